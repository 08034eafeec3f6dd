#include "study/recent_files.h"

#include <gtest/gtest.h>

#include "tests/support/failing_disk.h"
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

TEST(RecentFiles, OfAnyBytesReadBackInOrderAfterAPathWasAdded) {
  TestBench bench;
  // Half a character, carriage returns of their own, one file's end without a line end.
  const std::string text = "\"/m/\xCA\xF4.PCK\r\r\n/m/a\rb.PCK\r\n\"/m/\xCE.PCK\"\r\n/m/\xCA\r";
  ASSERT_TRUE(bench.workspace.Write(work_file::kRecentFiles, text).ok());
  std::vector<std::string> paths = ReadRecentFiles(bench.workspace);
  ASSERT_EQ(paths.size(), 4U);
  for (const char* path : {"/m/1.PCK", "/m/2.PCK"}) {
    ASSERT_TRUE(AddRecentFile(bench.workspace, path).ok());
    paths.insert(paths.begin(), path);
    EXPECT_EQ(ReadRecentFiles(bench.workspace), paths);
  }
}

// Paths of the lines of a kind, with their places.
std::string OfKind(const TestBench& bench, SystemKind kind) {
  std::string text;
  for (const RecentLine& line : RecentFilesOfKind(bench.workspace, kind)) {
    text += std::to_string(line.place) + line.path + "|";
  }
  return text;
}

TEST(RecentFiles, OfOneKindAreTakenOutByTheirPlaceAndAllOthersKeepTheirBytes) {
  TestBench bench;
  const std::string broken = "\"/m/\xCA\xF4 \xFF.pcA\"";
  const std::string text = "\"/m/Κτίριο.pck\"\r\n\n" + broken + "\nC:\\α.PCK\n/m/α.txt\n";
  ASSERT_TRUE(bench.workspace.Write(work_file::kRecentFiles, text).ok());
  EXPECT_EQ(OfKind(bench, SystemKind::kClosed), "0/m/Κτίριο.pck|2C:/α.PCK|");
  EXPECT_EQ(OfKind(bench, SystemKind::kOpen), "1/m/Κτ \xEF\xA3\xBB.pcA|");

  const auto lines = RecentFilesOfKind(bench.workspace, SystemKind::kClosed);
  EXPECT_EQ(lines[1].folder() + "|" + lines[1].file_name(), "C:|α.PCK");
  EXPECT_TRUE(lines[0].IsFull());
  EXPECT_FALSE(lines[1].IsFull());
  ASSERT_TRUE(RemoveRecentFile(bench.workspace, lines[1]).ok());
  const std::string rest = "\"/m/Κτίριο.pck\"\r\n" + broken + "\n/m/α.txt\n";
  EXPECT_EQ(bench.Bytes(work_file::kRecentFiles), rest);
  EXPECT_FALSE(bench.workspace.Exists(work_file::kRecentFilesRebuilt));
  // The list changed meanwhile: another line stands at that place now.
  ASSERT_TRUE(RemoveRecentFile(bench.workspace, lines[1]).ok());
  EXPECT_EQ(bench.Bytes(work_file::kRecentFiles), rest);

  ASSERT_TRUE(AddRecentFile(bench.workspace, "/m/β.PCK").ok());
  EXPECT_EQ(bench.Bytes(work_file::kRecentFiles),
            "\"/m/β.PCK\"\n\"/m/Κτίριο.pck\"\n" + broken + "\n\"/m/α.txt\"\n");
}

TEST(RecentFiles, AnEmptyListIsNoFile) {
  TestBench bench;
  EXPECT_FALSE(TidyRecentFiles(bench.workspace));
  ASSERT_TRUE(bench.workspace.Write(work_file::kRecentFiles, "\r\n\n").ok());
  EXPECT_FALSE(TidyRecentFiles(bench.workspace));
  EXPECT_FALSE(bench.workspace.Exists(work_file::kRecentFiles));
  ASSERT_TRUE(AddRecentFile(bench.workspace, "/m/β.PCK").ok());
  EXPECT_TRUE(TidyRecentFiles(bench.workspace));
  ASSERT_TRUE(RemoveRecentFile(bench.workspace, {0, "/m/β.PCK"}).ok());
  EXPECT_FALSE(bench.workspace.Exists(work_file::kRecentFiles));
}

TEST(RecentFiles, ARemovalThatFailsLeavesTheList) {
  MemoryDisk inner;
  FailingDisk disk(inner);
  NoWait clock;
  Workspace workspace(disk, "/program", disk, "/library", clock);
  const std::string text = "\"/m/α.PCK\"\n\"/m/β.PCK\"\n";
  ASSERT_TRUE(workspace.Write(work_file::kRecentFiles, text).ok());
  for (int bad = 1; bad <= 3; ++bad) {
    disk.FailAtOperation(bad, FailingDisk::Lasting::kFromThenOn);
    EXPECT_FALSE(RemoveRecentFile(workspace, {1, "/m/β.PCK"}).ok());
    EXPECT_EQ(*workspace.Read(work_file::kRecentFiles), text);
  }
  disk.Mend();
  ASSERT_TRUE(RemoveRecentFile(workspace, {1, "/m/β.PCK"}).ok());
  EXPECT_EQ(*workspace.Read(work_file::kRecentFiles), "\"/m/α.PCK\"\n");
}

}  // namespace
}  // namespace kalvo
