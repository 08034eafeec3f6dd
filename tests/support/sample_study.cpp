#include "tests/support/sample_study.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>

#include "study/fluid_library.h"
#include "study/load_study.h"
#include "study/real_disk.h"
#include "study/tables.h"
#include "study/write_study.h"

namespace kalvo {

namespace fs = std::filesystem;

namespace {

std::vector<StatRow> SampleStatistics(std::string_view title) {
  std::vector<StatRow> rows(2);
  for (std::size_t i = 0; i < rows.size(); ++i) {
    rows[i].RecordNumber = static_cast<std::int16_t>(i + 1);
    rows[i].Thema = FixedText<78>::FromUtf8(title);
    rows[i].Length = 12.5F * static_cast<float>(i + 1);
  }
  return rows;
}

}  // namespace

std::vector<SectionRow> SampleRows(SystemKind kind, std::string_view title) {
  NetworkHeader header;
  header.kind = kind;
  header.title = title;
  std::vector<SectionRow> rows =
      kind == SystemKind::kClosed ? Network({"ANT/1 10m 600 l/h plant", "1/2 4m 300 l/h soma 250mm",
                                             "1/3 6m 300 l/h soma 500mm"},
                                            header)
                                  : Network({"1/ANT 10m 600 l/h", "2/1 4m 300 l/h outlet 10mwg",
                                             "3/1 6m 300 l/h 2up outlet 12mwg"},
                                            header);
  for (SectionRow& row : rows) {
    row.PAR = 0.6F;
    row.DP = 1500.0F;
    row.INILAMDA = 1.0F;
    row.NomiDiam = FixedText<15>::FromUtf8("3/4");
    row.AvaiPres = 100.0F * static_cast<float>(row.RecordNumber);
  }
  return rows;
}

void PutSampleStudy(Workbench& bench, std::string_view title) {
  Study& study = bench.study;
  Workspace& workspace = bench.workspace;
  const auto rows = SampleRows(study.system_kind, title);
  const auto emitters = RowsWithEmitter(rows);
  const SectionRow& first = rows.front();
  study.study_title = title;
  study.pipe_system_number = first.FileNumber;
  study.MeanTemp = first.MeanTemp;
  study.MeanVel = first.MeanVel;
  study.results_valid = true;
  study.critical_branch = "1-3";
  RefreshSectionTable(study, rows);
  RefreshEmitterTable(study, emitters);
  EXPECT_TRUE(workspace.Rows().WriteAll(rows).ok());
  EXPECT_TRUE(workspace.Rows(work_file::kEmitters).WriteAll(emitters).ok());
  const auto stats = SampleStatistics(title);
  EXPECT_TRUE(workspace.Rows<StatRow>(work_file::kStatistics).WriteAll(stats).ok());
  if (study.SystemClosed()) {
    EXPECT_TRUE(workspace.Rows(work_file::kWinter).WriteAll(rows).ok());
  }
  FluidRow fluid;
  fluid.row_number = 2;
  fluid.name = FixedText<50>::FromUtf8(title);
  fluid.density = 1260.0F;
  EXPECT_TRUE(WriteStudyFluid(bench, fluid).ok());
}

void PutMain(TestBench& bench, const std::string& name, std::string bytes) {
  const fs::path path = kStudies / name;
  EXPECT_TRUE(bench.outer_disk.Write(path, std::move(bytes)).ok());
}

void PutMain(TestBench& bench, const std::string& name, std::span<const SectionRow> rows) {
  PutMain(bench, name, EncodeRows(rows));
}

void SaveSample(TestBench& bench, const std::string& name, std::string_view title) {
  TestBench other(bench.study.system_kind);
  PutSampleStudy(other.bench, title);
  other.study.study_path = kStudies / name;
  EXPECT_TRUE(WriteStudy(other.bench).ok());
  for (const auto& [file, bytes] : ImageOf(other.outer_disk, kStudies)) {
    PutMain(bench, file, bytes);
  }
}

Result<bool> Load(TestBench& bench, const std::string& name) {
  bench.study.study_path = kStudies / name;
  return LoadStudy(bench.bench, RecentList::kLeave);
}

DiskBench::DiskBench() {
  // Where there is a folder in memory, forced writes cost nothing.
  const fs::path memory = "/dev/shm";
  std::error_code missing;
  const bool has_memory = fs::is_directory(memory, missing);
  std::string name = ((has_memory ? memory : fs::temp_directory_path()) / "kalvo-XXXXXX").string();
  EXPECT_NE(mkdtemp(name.data()), nullptr);
  folder_ = name;
  RealDisk disk;
  EXPECT_TRUE(disk.MakeFolder(studies()).ok());
  EXPECT_TRUE(disk.MakeFolder(library()).ok());
  const auto pipes = SteelPipes();
  EXPECT_TRUE(RowFile<PipeRow>(disk, library() / PipeFileName(1)).WriteAll(pipes).ok());
}

DiskBench::~DiskBench() {
  std::error_code ignored;
  fs::remove_all(folder_, ignored);
}

}  // namespace kalvo
