#include "tests/structure/include_rules.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <vector>

namespace kalvo {
namespace {

namespace fs = std::filesystem;

// Every .h and .cpp of the tree, by its path from the root; build folders and hidden ones aside.
std::vector<std::string> ProjectSources() {
  const fs::path root = KALVO_SOURCE_DIR;
  std::vector<std::string> sources;
  for (auto it = fs::recursive_directory_iterator(root); it != fs::end(it); ++it) {
    const std::string name = it->path().filename().string();
    const bool is_build = it.depth() == 0 && name.starts_with("build");
    if (it->is_directory() && (is_build || name.starts_with('.'))) {
      it.disable_recursion_pending();
    } else if (name.ends_with(".h") || name.ends_with(".cpp")) {
      sources.push_back(it->path().lexically_relative(root).generic_string());
    }
  }
  return sources;
}

std::string ReadText(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  EXPECT_TRUE(file) << path;
  return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<std::string> ReasonsFor(const std::string& path, const std::string& text) {
  std::vector<std::string> reasons;
  for (const auto& offence : FindIncludeOffences(path, text)) reasons.push_back(offence.reason);
  return reasons;
}

using Reasons = std::vector<std::string>;

TEST(Includes, OfTheTreePointDownward) {
  const auto sources = ProjectSources();
  const std::set<std::string> known(sources.begin(), sources.end());
  ASSERT_TRUE(known.contains("tests/structure/include_rules_test.cpp"));
  for (const auto& path : sources) {
    for (const auto& offence :
         FindIncludeOffences(path, ReadText(fs::path(KALVO_SOURCE_DIR) / path))) {
      ADD_FAILURE() << path << ":" << offence.line << ": \"" << offence.included << "\" "
                    << offence.reason;
    }
  }
}

TEST(IncludeRules, FindAnUpwardIncludeWithItsLine) {
  const std::vector<IncludeOffence> expected = {{3, "engine/network.h", "points upward"}};
  EXPECT_EQ(FindIncludeOffences("study/row.cpp",
                                "#include \"study/row.h\"\n\n  #  include \"engine/network.h\""),
            expected);
}

TEST(IncludeRules, KeepFoldersOfOneFloorApart) {
  EXPECT_EQ(ReasonsFor("entry/a.h", "#include \"results/b.h\"\n"), Reasons{"points sideways"});
  EXPECT_EQ(ReasonsFor("results/a.h", "#include \"entry/b.h\"\n"), Reasons{"points sideways"});
  EXPECT_EQ(ReasonsFor("cli/a.h", "#include \"desktop/b.h\"\n"), Reasons{"points sideways"});
}

TEST(IncludeRules, WantProjectFilesInQuotesFromTheRoot) {
  const std::string reason = "is not written from the project's root";
  EXPECT_EQ(ReasonsFor("engine/a.cpp", "#include \"a.h\"\n"), Reasons{reason});
  EXPECT_EQ(ReasonsFor("engine/a.cpp", "#include \"../study/a.h\"\n"), Reasons{reason});
  EXPECT_EQ(ReasonsFor("engine/a.cpp", "#include \"study/../shell/a.h\"\n"), Reasons{reason});
  EXPECT_EQ(ReasonsFor("engine/a.cpp", "#include <study/a.h>\n"),
            Reasons{"is a project file and belongs in quotes"});
  EXPECT_EQ(ReasonsFor("engine/a.cpp", "#include A_HEADER\n"), Reasons{"names no file"});
}

TEST(IncludeRules, KeepToolkitsOutOfTheLowerFloors) {
  for (const std::string header :
       {"QString", "QtWidgets/QLabel", "nlohmann/json.hpp", "CLI/CLI.hpp", "gtest/gtest.h"}) {
    const std::string text = "#include <" + header + ">\n";
    EXPECT_EQ(ReasonsFor("shell/a.cpp", text), Reasons{"is not of the standard library"}) << header;
    EXPECT_EQ(ReasonsFor("cli/a.cpp", text), Reasons{}) << header;
  }
}

TEST(IncludeRules, LetThroughWhatPointsDown) {
  EXPECT_EQ(ReasonsFor("shell/a.cpp",
                       "#include \"shell/a.h\"\n#include <vector>\n#include <fcntl.h>\n"
                       "#include \"entry/b.h\"\n#include \"results/c.h\"\n"),
            Reasons{});
  EXPECT_EQ(ReasonsFor("fuzz/a.cpp", "#include \"tests/support/b.h\"\n#include \"cli/c.h\"\n"),
            Reasons{});
}

TEST(IncludeRules, WantEveryFolderToHaveItsFloor) {
  EXPECT_EQ(ReasonsFor("helpers/a.h", ""), Reasons{"lies in a folder that is no floor"});
  EXPECT_EQ(ReasonsFor("a.h", ""), Reasons{"lies in a folder that is no floor"});
}

}  // namespace
}  // namespace kalvo
