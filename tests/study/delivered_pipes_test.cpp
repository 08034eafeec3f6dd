// The pipe library that is delivered, against the tables it is made from.

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <numbers>
#include <set>
#include <sstream>

#include "study/fluid_library.h"
#include "study/memory_workspace.h"
#include "study/pipe_list.h"
#include "tests/support/csv_table.h"
#include "tests/support/test_bench.h"

namespace kalvo {
namespace {

using Path = std::filesystem::path;

const Path kTables = Path(KALVO_SOURCE_DIR) / "data/pipes";

struct DeliveredLibrary {
  MemoryWorkspace workspace{KALVO_LIBRARY_DIR};
  PipeList list = BuildPipeList(*workspace, EmptyLibraries::kSkip).value();
};

Path TableOf(int number) { return kTables / Path(PipeFileName(number)).replace_extension(".csv"); }

TEST(DeliveredPipes, BearTheTitlesAndMaterialsOfTheirTables) {
  const DeliveredLibrary library;
  EXPECT_GE(library.list.size(), 14U);
  EXPECT_FALSE(std::filesystem::exists(TableOf(static_cast<int>(library.list.size()) + 1)));
  std::set<std::string> titles;
  for (const PipeListEntry& entry : library.list) {
    const CsvTable table = ReadCsv(TableOf(entry.number));
    EXPECT_EQ(entry.file_name, PipeFileName(entry.number));
    EXPECT_EQ("title: " + entry.title, table.comments.at(0));
    EXPECT_EQ("material: " + entry.material, table.comments.at(1));
    EXPECT_TRUE(titles.insert(entry.title).second) << entry.title << " stands twice";
  }
}

TEST(DeliveredPipes, HaveTheCommonestSteelTubeAsTheStartingChoice) {
  const PipeListEntry entry = DeliveredLibrary().list.at(10);
  EXPECT_NE(entry.title.find("EN 10255"), std::string::npos) << entry.title;
  EXPECT_NE(entry.title.find("μεσαίου τύπου"), std::string::npos) << entry.title;
  EXPECT_EQ(entry.material, kSteelWord);
}

void ExpectSize(const PipeRow& row, const CsvLine& line) {
  const double inner = CellNumber(line.at("outer_mm")) - 2 * CellNumber(line.at("wall_mm"));
  EXPECT_EQ(row.nominal_diameter.bytes().substr(0, line.at("nominal").size()), line.at("nominal"));
  EXPECT_NEAR(row.inner_diameter, inner, 1e-4);
  EXPECT_NEAR(row.area, std::numbers::pi / 4 * inner * inner, 0.051);
  EXPECT_GT(row.roughness, 0);
  EXPECT_EQ(row.roughness, static_cast<float>(CellNumber(line.at("roughness_mm"))));
}

TEST(DeliveredPipes, HaveSizesThatRiseAndFollowFromTheOuterDiameters) {
  const DeliveredLibrary library;
  for (const PipeListEntry& entry : library.list) {
    SCOPED_TRACE(entry.file_name);
    const auto rows = ReadPipeSystem(*library.workspace, entry.number).value();
    const CsvTable table = ReadCsv(TableOf(entry.number));
    ASSERT_EQ(rows.size(), table.lines.size());
    std::set<std::string> names;
    for (std::size_t i = 0; i < rows.size(); ++i) {
      SCOPED_TRACE(table.lines[i].at("nominal"));
      ExpectSize(rows[i], table.lines[i]);
      EXPECT_EQ(rows[i].pipe_id, static_cast<int>(i) + 1);
      EXPECT_EQ(rows[i].title, rows.front().title);
      EXPECT_EQ(rows[i].material, rows.front().material);
      EXPECT_TRUE(names.insert(rows[i].nominal_diameter.Utf8()).second) << "stands twice";
      if (i > 0) {
        EXPECT_GT(rows[i].inner_diameter, rows[i - 1].inner_diameter);
        EXPECT_GT(rows[i].area, rows[i - 1].area);
      }
    }
  }
}

TEST(DeliveredFluids, AreThoseOfANewLibrary) {
  const auto fluids = ReadFluids(*DeliveredLibrary().workspace).value();
  TestBench fresh;
  EXPECT_EQ(EncodeRows<FluidRow>(fluids), EncodeRows<FluidRow>(*ReadFluids(fresh.workspace)));
}

std::string TextOf(const Path& file) {
  std::ostringstream text;
  text << std::ifstream(file).rdbuf();
  return text.str();
}

// What build_pipes says of a folder that holds 0001.csv alone, with `from` replaced by `to`.
std::string Complaint(const std::string& from, const std::string& to) {
  const Path folder = Path(testing::TempDir()) / ("kalvo_pipes_" + std::to_string(getpid()));
  std::filesystem::remove_all(folder);
  std::filesystem::create_directories(folder / "library");
  std::string table = TextOf(TableOf(1));
  EXPECT_NE(table.find(from), std::string::npos) << from;
  table.replace(table.find(from), from.size(), to);
  std::ofstream(folder / "0001.csv") << table;
  const std::string program = (Path(KALVO_BINARY).parent_path() / "build_pipes").string();
  const Path said = folder / "said.txt";
  const int status = std::system(("\"" + program + "\" \"" + folder.string() + "\" \"" +
                                  (folder / "library").string() + "\" 2> \"" + said.string() + "\"")
                                     .c_str());
  const std::string complaint = TextOf(said);
  EXPECT_EQ(status == 0, complaint.empty()) << complaint;
  EXPECT_EQ(status == 0, std::filesystem::exists(folder / "library/Liquids.dat"));
  std::filesystem::remove_all(folder);
  return complaint;
}

TEST(PipeTable, ThatIsNotRightIsRefusedWithItsLine) {
  EXPECT_EQ(Complaint("12x1", "12x1"), "");
  struct Spoilt {
    const char* from;
    const char* to;
    const char* complaint;
  };
  for (const Spoilt& spoilt :
       {Spoilt{"# title: ", "# ", ":1: not \"# title: "},
        Spoilt{"outer_mm,", "outer,", ":6: not the names"},
        Spoilt{"\n10x1,", "\n漢,", ":7: not a text of code page"},
        Spoilt{"\n10x1,", "\nmore than twelve,", ":7: longer than 12"},
        Spoilt{"\n12x1,", "\n10x1,", ":8: a second size"},
        Spoilt{"\n12x1,", "\n12x1,12,", ":8: not 6 cells"},
        Spoilt{"\n12x1,12.0", "\n12x1,12mm", ":8: not a positive"},
        Spoilt{"\n12x1,12.0", "\n12x1,13", ":8: inner is not"},
        Spoilt{"10.0,78.5", "10.0,78.6", ":8: area is not"},
        Spoilt{"78.5,0.0015", "78.5,0.002", ":8: another roughness"},
        Spoilt{"15.0,1.0,13.0,132.7", "12.0,1.0,10.0,78.5", ":9: not larger"}}) {
    const std::string complaint = Complaint(spoilt.from, spoilt.to);
    EXPECT_NE(complaint.find("0001.csv" + std::string(spoilt.complaint)), std::string::npos)
        << complaint;
  }
}

}  // namespace
}  // namespace kalvo
