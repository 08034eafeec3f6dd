#include "shell/fault_file.h"

#include <gtest/gtest.h>

#include "study/memory_disk.h"
#include "tests/support/failing_disk.h"
#include "tests/support/program_in_memory.h"

namespace kalvo {
namespace {

const std::filesystem::path kFolder = "/state";
const std::filesystem::path kLogPath = kFolder / kFaultFile;

FaultNote Overflow(std::string text = "value outside 32 bits") {
  return {6, std::move(text), false, 12, "11/12"};
}

TEST(FaultFile, HasALineForEveryFault) {
  MemoryDisk disk;
  NoWait clock;
  FaultFile log(disk, clock, kFolder);
  log.Note(Overflow());
  log.Note({0, "std::bad_alloc\nsecond line", false, 0, {}});
  const std::string text = *disk.Read(kLogPath);
  const std::size_t second = text.find('\n') + 1;
  EXPECT_NE(text.find("  fault 6, row 12 (11/12) : value outside 32 bits\n"), std::string::npos);
  EXPECT_TRUE(text.substr(second).ends_with("  fault 0 : std::bad_alloc second line\n")) << text;
}

TEST(FaultFile, KeepsItsNewestLinesAndNeverGrowsPastItsRoom) {
  MemoryDisk disk;
  NoWait clock;
  FaultFile log(disk, clock, kFolder);
  for (int i = 1; i <= 200; ++i) {
    log.Note(Overflow(std::to_string(i) + std::string(1000, 'x')));
  }
  log.Note(Overflow(std::string(1'000'000, 'y')));
  const std::string text = *disk.Read(kLogPath);
  EXPECT_LE(text.size(), FaultFile::kMostBytes);
  EXPECT_GT(text.size(), FaultFile::kMostBytes / 2);
  EXPECT_EQ(text.find("fault 6"), text.find("fault")) << "whole lines go";
  EXPECT_NE(text.find(" : 200x"), std::string::npos);
  EXPECT_EQ(text.find(" : 1x"), std::string::npos);
  EXPECT_EQ(text.back(), '\n');
}

TEST(FaultFile, ThatCannotBeReadIsLeftAloneAndThatCannotBeWrittenIsNoError) {
  MemoryDisk disk;
  NoWait clock;
  FaultFile(disk, clock, kFolder).Note(Overflow());
  const std::string before = *disk.Read(kLogPath);
  UnreadableDisk unreadable(disk);
  unreadable.Bar(kFaultFile);
  FaultFile(unreadable, clock, kFolder).Note(Overflow());
  FailingDisk full(disk);
  full.FailAfterBytes(10);
  FaultFile(full, clock, kFolder).Note(Overflow());
  EXPECT_EQ(*disk.Read(kLogPath), before);
  EXPECT_EQ(NamesIn(disk, kFolder), std::vector<std::string>{kFaultFile});
}

}  // namespace
}  // namespace kalvo
