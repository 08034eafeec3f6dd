// Any main file of either kind, calculated by both methods, on its own diameters and for a winter:
// the run ends, one way or another, and no number that is not finite reaches a row.

#include <cmath>
#include <cstdint>
#include <cstdlib>

#include "engine/calculation_command.h"
#include "engine/rerun.h"
#include "engine/winter.h"
#include "study/load_study.h"
#include "study/memory_disk.h"
#include "study/study_extensions.h"

namespace {

using namespace kalvo;

class YesToAll : public Prompter {
 public:
  Answer ShowMessage(int /*code*/, const Study& /*study*/) override { return Answer::kYes; }
  Answer Ask(const Box& /*box*/) override { return Answer::kYes; }
};

std::vector<PipeRow> Pipes() {
  std::vector<PipeRow> pipes(4);
  for (std::size_t i = 0; i < pipes.size(); ++i) {
    pipes[i].pipe_id = static_cast<std::int16_t>(i + 1);
    pipes[i].material = FixedText<30>::FromUtf8("STEEL");
    pipes[i].nominal_diameter = FixedText<12>::FromUtf8(std::to_string(i + 1));
    pipes[i].inner_diameter = 10.0F * static_cast<float>(i + 1);
    pipes[i].area = 78.54F * static_cast<float>((i + 1) * (i + 1));
    pipes[i].roughness = 0.045F;
  }
  return pipes;
}

void Require(bool holds) {
  if (!holds) {
    std::abort();
  }
}

void RequireFinite(const Workspace& workspace, std::string_view name) {
  const auto rows = workspace.Rows(name).ReadAll();
  Require(rows.ok());
  for (const SectionRow& row : *rows) {
    ForEachField(row, [](std::string_view /*name*/, const auto& value) {
      if constexpr (std::is_same_v<std::decay_t<decltype(value)>, float>) {
        Require(std::isfinite(value));
      }
    });
  }
}

template <typename Run>
void Calculate(SystemKind kind, std::string_view bytes, Run&& run) {
  MemoryDisk disk;
  NoWait clock;
  Workspace workspace(disk, "/work", disk, "/library", clock);
  Require(RowFile<PipeRow>(disk, "/library/0001.WPT").WriteAll(Pipes()).ok());
  const std::string file = "/studies/A" + std::string(ExtensionsOf(kind).main);
  Require(disk.Write(file, std::string(bytes)).ok());
  const PipeList pipes = BuildPipeList(workspace, EmptyLibraries::kSkip).value();
  Study study;
  study.system_kind = kind;
  study.study_path = file;
  YesToAll prompter;
  Workbench bench(study, workspace, pipes, prompter);
  if (!LoadStudy(bench)) {
    return;
  }
  study.unsaved_changes = false;
  run(bench);
  RequireFinite(workspace, work_file::kRows);
  RequireFinite(workspace, work_file::kWinter);
}

void RunWinter(Workbench& bench) {
  const auto rows = bench.workspace.Rows().ReadAll();
  bench.study.results_valid = rows.ok() && HasResults(*rows);
  std::vector<WinterLine> lines = SummerValues(bench);
  for (WinterLine& line : lines) {
    line.flow_lh *= 0.6F;
  }
  WinterDuty(bench).Run(55, lines);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr std::size_t kMostRows = 40;
  if (size > kMostRows * RecordSize<SectionRow>()) {
    return 0;
  }
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  for (const SystemKind kind : {SystemKind::kClosed, SystemKind::kOpen}) {
    Calculate(kind, bytes, [](Workbench& bench) { Calculate(bench, Method::kFlowOnly); });
    Calculate(kind, bytes, [](Workbench& bench) { Calculate(bench, Method::kFlowAndPressure); });
    Calculate(kind, bytes, Rerun);
  }
  Calculate(SystemKind::kClosed, bytes, RunWinter);
  return 0;
}
