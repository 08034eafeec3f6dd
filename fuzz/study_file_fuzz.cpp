// Any main file of either kind: it is refused and nothing is touched, or it loads, and what is then
// saved loads again and saves the same bytes. First byte: 1 an open system, 2 a recovery, 4
// the end that is no whole record is left out.

#include "fuzz/fuzz_bench.h"
#include "study/write_study.h"

namespace {

using namespace kalvo;

void RequireWhole(const FuzzBench& bench) {
  const Study& study = bench.study;
  const auto rows = bench.workspace.Rows().ReadAll().value();
  std::size_t emitters = 0;
  for (const SectionRow& row : rows) {
    emitters += row.HasEmitter() ? 1 : 0;
  }
  Require(study.SectionTable.size() == rows.size(), "a line of the table for each row");
  Require(study.EmitterTable.size() == emitters, "a line for each emitter");
  Require(bench.workspace.Rows(work_file::kEmitters).ReadAll().value().size() == emitters,
          "an emitter row for each emitter");
  Require(study.pipe_system_number == 1, "the pipe system is in the list");
  Require(IsUtf8(study.study_title), "texts inside are UTF-8");
  Require(study.CalculatedDiameters.size() == (study.results_valid ? rows.size() : 0),
          "old diameters");
}

std::string SaveAgain(FuzzBench& bench, const std::string& name) {
  bench.study.study_path = kStudies / name;
  // The rows' own pipe system may be another than the one in the study's header.
  return WriteStudy(bench.bench) ? bench.StudyFile(name) : std::string();
}

void Open(FuzzBench& bench, const std::string& end, std::string_view bytes) {
  bench.PutStudyFile("b" + end, bytes);
  const auto work = ImageOf(bench.work_disk, "/program");
  const bool loaded = bench.Load("b" + end);
  Require(bench.StudyFile("b" + end) == bytes, "a load changes no file of the study");
  if (!loaded) {
    Require(ImageOf(bench.work_disk, "/program") == work, "the open study stays");
    return;
  }
  Require(bench.workspace.Read(work_file::kRows).value() == bytes, "the rows are taken over");
  RequireWhole(bench);
  const std::string saved = SaveAgain(bench, "c" + end);
  if (saved.empty()) {
    return;
  }
  Require(saved.size() == bytes.size(), "as many rows as before");
  Require(bench.Load("c" + end), "what was saved loads");
  RequireWhole(bench);
  Require(SaveAgain(bench, "d" + end) == saved, "a second save is the first");
}

void Recover(FuzzBench& bench, std::string_view bytes) {
  Require(bench.workspace.Write(work_file::kRows, std::string(bytes)).ok(), "rows");
  bench.study.recovery = true;
  const bool loaded = LoadStudy(bench.bench).ok();
  Require(bench.workspace.Read(work_file::kRows).value() == bytes, "the rows stay");
  if (loaded) {
    RequireWhole(bench);
    Require(bench.study.unsaved_changes && bench.study.recalculation_needed, "told as unsaved");
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view bytes = AsText(data, size);
  const unsigned flags = TakeByte(bytes);
  if ((flags & 4U) != 0) {
    bytes.remove_suffix(bytes.size() % RecordSize<SectionRow>());
  }
  FuzzBench bench((flags & 1U) != 0 ? SystemKind::kOpen : SystemKind::kClosed);
  if ((flags & 2U) != 0) {
    Recover(bench, bytes);
  } else {
    Open(bench, (flags & 1U) != 0 ? ".PCA" : ".PCK", bytes);
  }
  return 0;
}
