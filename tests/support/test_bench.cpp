#include "tests/support/test_bench.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numbers>

#include "study/fluid_library.h"
#include "study/tables.h"

namespace kalvo {
namespace {

struct Size {
  std::string_view name;
  double inner_diameter;  // mm
};

// Steel: EN 10255, medium series. Copper: EN 1057, outer diameter x wall.
constexpr Size kSteelSizes[] = {{"3/8", 12.6}, {"1/2", 16.1},   {"3/4", 21.7}, {"1", 27.3},
                                {"1 1/4", 36}, {"1 1/2", 41.9}, {"2", 53.1},   {"2 1/2", 68.9},
                                {"3", 80.9},   {"4", 105.3}};
constexpr Size kCopperSizes[] = {{"12x1", 10},   {"15x1", 13},   {"18x1", 16},   {"22x1", 20},
                                 {"28x1.5", 25}, {"35x1.5", 32}, {"42x1.5", 39}, {"54x2", 50}};

std::vector<PipeRow> Pipes(std::string_view title, std::string_view material, float roughness,
                           std::span<const Size> sizes) {
  std::vector<PipeRow> rows;
  for (const Size& size : sizes) {
    PipeRow& row = rows.emplace_back();
    row.title = FixedText<78>::FromUtf8(title);
    row.pipe_id = static_cast<std::int16_t>(rows.size());
    row.material = FixedText<30>::FromUtf8(material);
    row.nominal_diameter = FixedText<12>::FromUtf8(size.name);
    row.inner_diameter = static_cast<float>(size.inner_diameter);
    row.area = static_cast<float>(std::numbers::pi / 4 * size.inner_diameter * size.inner_diameter);
    row.roughness = roughness;
  }
  return rows;
}

}  // namespace

std::vector<PipeRow> SteelPipes() {
  return Pipes("Χαλυβδοσωλήνες", kSteelWord, 0.045F, kSteelSizes);
}

std::vector<PipeRow> CopperPipes() {
  return Pipes("Χαλκοσωλήνες", kCopperWord, 0.0015F, kCopperSizes);
}

std::string Joined(const std::vector<std::string>& texts) {
  std::string joined;
  for (const std::string& text : texts) {
    joined += (joined.empty() ? "" : "|") + text;
  }
  return joined;
}

void PutPipes(TestBench& bench, std::string_view file_name, std::span<const PipeRow> rows) {
  const auto path = bench.workspace.library_folder() / file_name;
  EXPECT_TRUE(bench.outer_disk.Write(path, EncodeRows(rows)).ok());
}

TestBench::TestBench(SystemKind kind) {
  PutPipes(*this, PipeFileName(1), SteelPipes());
  PutPipes(*this, PipeFileName(2), CopperPipes());
  EXPECT_TRUE(CreateFluidLibrary(workspace).ok());
  const auto list = BuildPipeList(workspace, EmptyLibraries::kSkip);
  EXPECT_TRUE(list.ok());
  pipes = list ? *list : PipeList{};
  study.system_kind = kind;
  study.pipe_system_number = 1;
  study.pipe_material = kSteelWord;
  EXPECT_TRUE(WriteStudyFluid(bench, WaterRow(workspace)).ok());
}

void TestBench::PutRows(std::span<const SectionRow> rows) {
  ASSERT_FALSE(rows.empty());
  const SectionRow& header = rows.front();
  study.system_kind =
      KindOf(header) == SystemKind::kClosed ? SystemKind::kClosed : SystemKind::kOpen;
  study.study_title = header.Thema.Utf8();
  study.pipe_system_number = header.FileNumber;
  study.pipe_material = header.Material.Utf8();
  study.MeanTemp = header.MeanTemp;
  study.MeanVel = header.MeanVel;
  study.TotalFlowM3h = header.PAR;
  study.PumpHead = header.DP / 1000.0F;
  study.plant_section = header.BurChil;
  study.results_valid = header.PAR != 0.0F && header.DP != 0.0F;
  study.unsaved_changes = false;
  study.CurrentRow = 1;
  study.row = header;
  RefreshSectionTable(study, rows);
  const std::vector<SectionRow> emitters = RowsWithEmitter(rows);
  RefreshEmitterTable(study, emitters);
  EXPECT_TRUE(workspace.Rows().WriteAll(rows).ok());
  workspace.Delete(work_file::kEmitters);
  if (!emitters.empty()) {
    EXPECT_TRUE(workspace.Rows(work_file::kEmitters).WriteAll(emitters).ok());
  }
}

void TestBench::PutNetwork(const std::vector<std::string_view>& lines) {
  NetworkHeader header;
  header.kind = study.system_kind;
  PutRows(Network(lines, header));
}

std::vector<SectionRow> TestBench::Rows(std::string_view name) const {
  const auto rows = workspace.Rows(name).ReadAll();
  EXPECT_TRUE(rows.ok()) << name;
  return rows ? *rows : std::vector<SectionRow>{};
}

SectionRow TestBench::Row(int number) const {
  const auto row = workspace.Rows().Read(number);
  EXPECT_TRUE(row.ok()) << "row " << number;
  return row ? *row : SectionRow{};
}

std::vector<std::string> TestBench::Names() const {
  std::vector<std::string> names;
  for (const SectionRow& row : Rows()) {
    names.push_back(FromCodePage(row.Name.bytes()));
  }
  return names;
}

std::vector<std::string> TestBench::Diameters() const {
  std::vector<std::string> names;
  for (const SectionRow& row : Rows()) {
    names.push_back(row.NomiDiam.Utf8());
  }
  return names;
}

std::string TestBench::Bytes(std::string_view name) const {
  const auto bytes = workspace.Read(name);
  return bytes ? *bytes : "(missing)";
}

}  // namespace kalvo
