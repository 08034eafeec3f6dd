#include "bench/bench_program.h"

#include <array>
#include <cstdlib>
#include <stdexcept>
#include <string>

#include "bench/building_network.h"
#include "bench/supply_network.h"
#include "engine/calculation_command.h"
#include "engine/winter.h"
#include "study/fluid_library.h"
#include "study/load_study.h"
#include "study/study_extensions.h"

namespace kalvo {

namespace fs = std::filesystem;

namespace {

// The value of a file operation; without it there is nothing to measure.
template <typename T>
T Need(Result<T> result) {
  if (!result) {
    throw std::runtime_error(result.error().Line());
  }
  return std::move(result).value();
}

}  // namespace

TemporaryFolder::TemporaryFolder() {
  std::string name = (fs::temp_directory_path() / "kalvo-bench-XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr) {
    throw std::runtime_error("no temporary folder: " + name);
  }
  path_ = name;
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  fs::remove_all(path_, ignored);
}

StudyFiles::StudyFiles(SystemKind kind, int sections) {
  RealDisk disk;
  const MemoryWorkspace workspace(KALVO_LIBRARY_DIR);
  const StudyExtensions& extensions = ExtensionsOf(kind);
  path_ = folder_.path() / ("building" + std::string(extensions.main));
  const fs::path fluid_path = path().replace_extension(extensions.fluid);
  Need(RowFile<SectionRow>(disk, path())
           .WriteAll(kind == SystemKind::kOpen ? SupplyStudy(sections) : BuildingStudy(sections)));
  Need(RowFile<FluidRow>(disk, fluid_path).WriteAll(std::array{WaterRow(*workspace)}));
}

PipeList DeliveredPipes() {
  MemoryWorkspace workspace(KALVO_LIBRARY_DIR);
  PipeList pipes = Need(BuildPipeList(*workspace, EmptyLibraries::kSkip));
  if (pipes.empty()) {
    throw std::runtime_error("no pipe systems in " KALVO_LIBRARY_DIR);
  }
  return pipes;
}

Answer NoQuestions::ShowMessage(int code, const Study& /*study*/) {
  throw std::runtime_error("message " + std::to_string(code));
}

Answer NoQuestions::Ask(const Box& box) {
  throw std::runtime_error(box.lines.empty() ? box.title : box.lines.front());
}

BenchProgram::BenchProgram(const PipeList& pipes)
    : workspace_(KALVO_LIBRARY_DIR), bench_(study_, *workspace_, pipes, prompter_) {}

void BenchProgram::Load(const fs::path& path) {
  study_.study_path = path;
  study_.system_kind = KindOfName(path.string());
  if (!LoadStudy(bench_, RecentList::kLeave)) {
    throw std::runtime_error("not loaded: " + path.string());
  }
}

void BenchProgram::Calculate(Method method) {
  if (kalvo::Calculate(bench_, method) != CommandEnd::kCalculated) {
    throw std::runtime_error("not calculated");
  }
}

void BenchProgram::RunWinter() {
  std::vector<WinterLine> lines = SummerValues(bench_);
  for (WinterLine& line : lines) {
    line.flow_lh *= 0.6F;
    line.drop *= 0.4F;
  }
  if (WinterDuty(bench_).Run(55, lines).end != WinterEnd::kCalculated) {
    throw std::runtime_error("no winter");
  }
}

void BenchProgram::Run(Method method) {
  RunPasses(bench_, method);
  if (study_.CalcStatus != calc_status::kNothing) {
    throw std::runtime_error("the run was broken off");
  }
}

std::vector<SectionRow> BenchProgram::Rows() const { return Need(workspace_->Rows().ReadAll()); }

}  // namespace kalvo
