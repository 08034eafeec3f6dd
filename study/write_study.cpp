#include "study/write_study.h"

#include "study/companions.h"
#include "study/fluid_library.h"
#include "study/message_codes.h"
#include "study/pipe_choice.h"
#include "study/settled_disk.h"
#include "study/study_file_names.h"
#include "study/study_origin.h"
#include "study/tables.h"
#include "study/text_lines.h"

namespace kalvo {

namespace {

// Stale results are not saved, nor the quantities that go with them.
bool ResultsStand(const Study& study) { return study.results_valid && !study.recalculation_needed; }

void ClearRowResults(const Study& study, SectionRow& row) {
  row.MeanTemp = study.MeanTemp;
  row.FileNumber = study.pipe_system_number;
  row.MeanVel = study.MeanVel;
  row.PAR = 0;
  row.DP = 0;
  row.NomiDiam = {};
  row.AvaiPres = 0;
}

// The image of the rows as they are saved, which becomes that of the work file too.
Result<std::string> PrepareRows(Workbench& bench) {
  Study& study = bench.study;
  RowFile<SectionRow> file = bench.workspace.Rows();
  auto rows = file.ReadAll();
  if (!rows) {
    return rows.error();
  }
  if (rows->empty()) {
    bench.Show(message::kNoData);
    return FileError{file.path(), "ΔΕΝ υπάρχουν Δεδομένα"};
  }
  study.pipe_system_number = rows->front().FileNumber;
  if (Outcome loaded = SetPipeMaterial(bench); !loaded) {
    return loaded.error();
  }
  const auto outlets = static_cast<std::int16_t>(RowsWithEmitter(*rows).size());
  for (SectionRow& row : rows.value()) {
    row.Outlets = outlets;  // whatever a foreign file told
    row.Material = FixedText<78>::FromUtf8(study.pipe_material);
    if (!ResultsStand(study)) {
      ClearRowResults(study, row);
    }
  }
  if (Outcome written = file.WriteAll(*rows); !written) {
    return written.error();
  }
  return EncodeRows<SectionRow>(*rows);
}

Outcome RefreshSequence(Workbench& bench) {
  const auto first = bench.workspace.Rows().Read(1);
  if (!first) {
    return first.error();
  }
  const std::string mode = MethodOf(*first) == Method::kFlowOnly ? "Simple" : "";
  return bench.workspace.Write(work_file::kSequence,
                               Quoted(bench.study.critical_branch) + "\n" + Quoted(mode) + "\n");
}

class Family {
 public:
  explicit Family(const Workbench& bench)
      : bench_(bench), main_(BehindLink(bench.workspace.outer_disk(), bench.study.study_path)) {}

  // Adds a copy of the work file under `extension` if it is there and the kind has such a file.
  template <typename Row>
  Outcome AddRows(std::string_view work_name, std::string_view extension) {
    if (extension.empty() || !bench_.workspace.Exists(work_name)) {
      return Done{};
    }
    const auto rows = bench_.workspace.Rows<Row>(work_name).ReadAll();
    if (!rows) {
      return rows.error();
    }
    Add(NameOf(extension), EncodeRows<Row>(*rows));
    return Done{};
  }

  Outcome AddSequence(std::string_view extension) {
    auto text = bench_.workspace.Read(work_file::kSequence);
    if (!text) {
      return text.error();
    }
    Add(NameOf(extension), std::move(text).value());
    return Done{};
  }

  // The main file, which is to be the last, and all is saved.
  Outcome SaveWith(std::string rows) {
    const std::string name = main_.filename().string();
    Add(name, std::move(rows));
    return SaveFamily(bench_.workspace.outer_disk(), main_.parent_path(), std::string(BaseOf(name)),
                      files_);
  }

  // Of what is on disk after the save.
  [[nodiscard]] std::uint64_t Digest() const {
    return FamilyDigest(bench_.workspace.outer_disk(), main_, files_);
  }

 private:
  [[nodiscard]] std::string NameOf(std::string_view extension) const {
    return CompanionTarget(bench_.workspace.outer_disk(), main_, extension).filename().string();
  }

  void Add(std::string name, std::string bytes) {
    bench_.workspace.Pause();
    files_.push_back({std::move(name), std::move(bytes)});
  }

  const Workbench& bench_;
  std::filesystem::path main_;
  std::vector<FamilyFile> files_;
};

Outcome SaveFiles(Workbench& bench, std::string rows) {
  const Study& study = bench.study;
  const StudyExtensions& extensions = ExtensionsOf(study.system_kind);
  Family family(bench);
  Outcome outcome = Done{};
  if (!study.critical_branch.empty()) {
    if (bench.workspace.Exists(work_file::kSequence)) {
      outcome = RefreshSequence(bench);
      outcome = outcome ? family.AddSequence(extensions.sequence) : outcome;
    }
    if (outcome && ResultsStand(study)) {
      outcome = family.AddRows<StatRow>(work_file::kStatistics, extensions.statistics);
    }
  }
  if (outcome) {
    outcome = family.AddRows<SectionRow>(work_file::kWinter, extensions.winter);
  }
  if (outcome) {
    outcome = family.AddRows<FluidRow>(work_file::kFluid, extensions.fluid);
  }
  if (outcome) {
    outcome = family.SaveWith(std::move(rows));
  }
  if (outcome) {
    bench.study.saved_digest = family.Digest();
  }
  return outcome;
}

}  // namespace

Outcome WriteStudy(Workbench& bench) {
  Study& study = bench.study;
  if (study.study_path == kEscapePath) {
    study.study_path = study.last_study_path;
    return Done{};
  }
  study.unsaved_changes = true;
  const auto path = FullStudyPath(study);
  if (!path) {
    return path.error();
  }
  const auto settled = SettleStudy(bench.workspace.outer_disk(), *path);
  if (!settled) {
    return settled.error();
  }
  auto rows = PrepareRows(bench);
  if (!rows) {
    return rows.error();
  }
  study.study_path = OwnFile(*settled, *path);
  Outcome outcome = SaveFiles(bench, std::move(rows).value());
  if (outcome && bench.workspace.Exists(work_file::kFluid)) {
    outcome = LoadStudyFluid(bench);
  }
  if (!outcome) {
    return outcome;
  }
  study.unsaved_changes = false;
  RebuildNameState(bench);
  study.origin_path.clear();
  NoteOrigin(bench.workspace, bench.study.study_path);
  return outcome;
}

}  // namespace kalvo
