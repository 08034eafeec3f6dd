#include "study/recent_files.h"

#include <gtest/gtest.h>

#include "tests/support/test_bench.h"

namespace kalvo {
namespace {

TEST(RecentFiles, NewestComesFirstAndStandsOnlyOnce) {
  TestBench bench;
  // Two of them can be no line of text and are left out.
  for (const char* path :
       {"/m/α.PCK", "/m/β.PCK", "/m/γ.PCA", "/a\nb.PCK", "/\xCA\xF4.PCK", "/m/α.PCK"}) {
    ASSERT_TRUE(AddRecentFile(bench.workspace, path).ok());
  }
  EXPECT_EQ(bench.Bytes(work_file::kRecentFiles), "\"/m/α.PCK\"\n\"/m/γ.PCA\"\n\"/m/β.PCK\"\n");
}

TEST(RecentFiles, NeverHoldsMoreThanTwentySix) {
  TestBench bench;
  for (int i = 1; i <= 40; ++i) {
    ASSERT_TRUE(AddRecentFile(bench.workspace, "/m/" + std::to_string(i) + ".PCK").ok());
    EXPECT_LE(ReadRecentFiles(bench.workspace).size(), 26U);
  }
  const std::vector<std::string> paths = ReadRecentFiles(bench.workspace);
  ASSERT_EQ(paths.size(), 26U);
  EXPECT_EQ(paths.front(), "/m/40.PCK");
  EXPECT_EQ(paths.back(), "/m/15.PCK");
  ASSERT_TRUE(AddRecentFile(bench.workspace, "/m/15.PCK").ok());
  EXPECT_EQ(ReadRecentFiles(bench.workspace).size(), 26U);
  EXPECT_EQ(ReadRecentFiles(bench.workspace).back(), "/m/16.PCK");
}

TEST(RecentFiles, AreReadWithOrWithoutQuotesInEitherEncoding) {
  TestBench bench;
  EXPECT_TRUE(ReadRecentFiles(bench.workspace).empty());
  const std::string text = "\"C:\\Μελέτες\\α.PCK\"\r\n\r\n/m/β γ.PCA\r\n";
  const std::vector<std::string> expected = {"C:/Μελέτες/α.PCK", "/m/β γ.PCA"};
  for (const std::string& bytes : {text, ToCodePage(text)}) {
    ASSERT_TRUE(bench.workspace.Write(work_file::kRecentFiles, bytes).ok());
    EXPECT_EQ(ReadRecentFiles(bench.workspace), expected);
  }
}

}  // namespace
}  // namespace kalvo
