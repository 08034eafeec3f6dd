// What `kalvo report` writes, read back, and where it refuses.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <fstream>

#include "platform/xls/compound_file.h"
#include "platform/xls/read_workbook.h"
#include "study/real_disk.h"
#include "tests/cli/cli_bench.h"

namespace kalvo {
namespace {

using testing::HasSubstr;

std::string SampleStudy(const char* name) { return std::string(KALVO_SAMPLES_DIR) + "/" + name; }

// The text of a cell of the first sheet, row and column from 1; a number rounded.
std::string CellIn(const std::filesystem::path& file, int row, int column) {
  RealDisk disk;
  const auto bytes = disk.Read(file);
  if (!bytes) return bytes.error().Line();
  const auto root = ReadCompoundFile(*bytes);
  if (!root) return root.error().Line();
  const auto workbook = ReadWorkbookStream(root->Find("Workbook")->bytes);
  if (!workbook) return workbook.error().Line();
  const Cell* cell = workbook->sheets.front().FindCell(row - 1, column - 1);
  if (cell == nullptr) return "(none)";
  if (const auto* number = std::get_if<double>(&cell->value)) {
    return std::to_string(std::lround(*number));
  }
  return std::string(workbook->TextOf(*cell));
}

TEST(Report, WritesTheStudyIntoTheDeliveredTemplates) {
  const CliBench folder;
  struct Case {
    const char* study;
    const char* kind;
    int row;
    int column;
    const char* cell;
  };
  for (const Case& c :
       {Case{"fancoil.PCK", "results", 18, 2, "1"}, Case{"hotel.PCK", "data", 12, 6, "604"},
        Case{"house.PCA", "data", 18, 1, "1"}, Case{"fancoil.PCK", "quantities", 19, 1, "1"}}) {
    const std::filesystem::path file = folder.studies() / "out.XLS";
    const Told told = Kalvo({"report", SampleStudy(c.study), "--kind", c.kind, "--out",
                             file.string(), "--designer", "Μ. Μηχανικός", "--overwrite"});
    EXPECT_EQ(told.code, 0) << told.err;
    EXPECT_THAT(told.err, HasSubstr("Γράφηκε : " + file.string()));
    EXPECT_EQ(CellIn(file, c.row, c.column), c.cell) << c.study << " " << c.kind;
    EXPECT_THAT(CellIn(file, 1, 1), HasSubstr("Μ. Μηχανικός"));
  }
}

TEST(Report, RefusesWhatItCannotWrite) {
  const CliBench folder;
  const std::string file = (folder.studies() / "out.XLS").string();
  const std::string hotel = SampleStudy("hotel.PCK");
  std::ofstream(file) << "another file";
  const Told there = Kalvo({"report", hotel, "--kind", "data", "--out", file});
  EXPECT_EQ(there.code, exit_code::kUnwritable);
  EXPECT_THAT(there.err, HasSubstr("--overwrite"));
  EXPECT_EQ(Kalvo({"report", hotel, "--kind", "results", "--out", file + "x.xls"}).code,
            exit_code::kRefused)
      << "not calculated";
  const Told bare = Kalvo({"report", hotel, "--kind", "data", "--out", file, "--overwrite",
                           "--templates", folder.studies().string()});
  EXPECT_EQ(bare.code, exit_code::kUnreadable);
  EXPECT_THAT(bare.err, HasSubstr("Λείπει κάποιο βασικό Αρχείο"));
  const Told nowhere =
      Kalvo({"report", hotel, "--kind", "data", "--out", file + "/deeper/out.XLS"});
  EXPECT_EQ(nowhere.code, exit_code::kUnwritable);
  EXPECT_EQ(Kalvo({"report", hotel, "--kind", "paper", "--out", file}).code, exit_code::kWrongUse);
  EXPECT_EQ(Kalvo({"report", hotel, "--kind", "data", "--out", file + ".doc"}).code,
            exit_code::kWrongUse);
  RealDisk disk;
  EXPECT_EQ(*disk.Read(file), "another file");
}

}  // namespace
}  // namespace kalvo
