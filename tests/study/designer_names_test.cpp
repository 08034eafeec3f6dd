#include "study/designer_names.h"

#include <gtest/gtest.h>

#include "tests/support/failing_disk.h"
#include "tests/support/test_bench.h"

namespace kalvo {
namespace {

const DesignerList kThree = {{"Κ. Παπαδόπουλος", "Ά. Ωμέγας & Συνεργάτες", "J. Smith"}, "Κλειδί 7"};

struct Designers : TestBench, ::testing::Test {
  [[nodiscard]] std::string File() const { return Bytes(work_file::kDesigners); }
  void PutFile(std::string bytes) {
    ASSERT_TRUE(workspace.Write(work_file::kDesigners, std::move(bytes)).ok());
  }
  /// Why the file cannot be taken for a list; the test fails when it can.
  [[nodiscard]] std::string Refusal() const {
    const auto read = ReadDesigners(workspace);
    EXPECT_FALSE(read.ok());
    return read ? "(read)" : read.error().Line();
  }
};

TEST_F(Designers, ComeBackInTheirOrderWithThePassword) {
  ASSERT_TRUE(WriteDesigners(workspace, kThree).ok());
  EXPECT_EQ(*ReadDesigners(workspace), kThree);
  EXPECT_EQ(File().size(), 300U);
  EXPECT_EQ(File().find("Smith"), std::string::npos);
  EXPECT_EQ(File().substr(0, 2), std::string("\1\0", 2));
  EXPECT_EQ(File().substr(200, 2), std::string("\3\0", 2));
  EXPECT_EQ(File().substr(80, 20), File().substr(280, 20)) << "the password is on every record";
}

TEST_F(Designers, AreScrambledPaddedAndAnewForEachField) {
  const DesignerList one = {{"Α"}, "Α"};
  ASSERT_TRUE(WriteDesigners(workspace, one).ok());
  const std::string bytes = File();
  EXPECT_EQ(bytes.substr(2, 20), bytes.substr(80, 20)) << "both begin with the same noise";
  EXPECT_EQ(Unscrambled(bytes.substr(2, 78)), "\xC1" + std::string(77, ' '));
  EXPECT_EQ(Scrambled(std::string(6, '\0')), "\xC2\x43\xA0\x69\x35\x6F");
  std::string all;
  for (int i = 0; i < 256; ++i) all += static_cast<char>(i);
  EXPECT_EQ(Unscrambled(Scrambled(all)), all);
  EXPECT_NE(Scrambled(all), all);
}

TEST_F(Designers, OfFullWidthKeepEveryCharacter) {
  std::string name;
  for (int i = 0; i < 39; ++i) name += "Ώζ";
  EXPECT_EQ(ListedDesigner(name), name);
  ASSERT_TRUE(WriteDesigners(workspace, {{name}, std::string(20, '*')}).ok());
  EXPECT_EQ(ReadDesigners(workspace)->names, std::vector{name});
  EXPECT_EQ(ReadDesigners(workspace)->password, std::string(20, '*'));
  EXPECT_EQ(ListedDesigner("  " + name + "ω "), name) << "cut where there is no room";
  EXPECT_EQ(ListedDesigner("  "), "");
  EXPECT_EQ(ListedDesigner("a\tb"), "");
}

TEST_F(Designers, AreNoneInAMissingOrEmptyFile) {
  EXPECT_EQ(*ReadDesigners(workspace), DesignerList());
  PutFile("");
  EXPECT_EQ(*ReadDesigners(workspace), DesignerList());
  ASSERT_TRUE(WriteDesigners(workspace, {{}, "secret"}).ok());
  EXPECT_EQ(*ReadDesigners(workspace), DesignerList()) << "no name, no password";
}

TEST_F(Designers, AreNotReadFromAnythingElse) {
  ASSERT_TRUE(WriteDesigners(workspace, kThree).ok());
  const std::string good = File();
  std::string other_numbers = good;
  other_numbers[100] = 7;
  const std::string blank = good.substr(0, 2) + Scrambled(std::string(78, ' ')) + good.substr(80);
  std::string twice = good.substr(0, 100) + good.substr(0, 100);
  twice[100] = 2;
  std::string bad_password = good;
  bad_password.replace(80, 20, Scrambled(std::string(20, '\n')));
  for (const std::string& bytes :
       {good.substr(0, 250), good + "x", std::string(200, 'x'), std::string(100, '\0'),
        other_numbers, blank, twice, bad_password}) {
    PutFile(bytes);
    EXPECT_NE(Refusal().find("/program/CLIENTS.VAM"), std::string::npos) << Refusal();
    EXPECT_EQ(File(), bytes) << "left as it is";
  }
}

TEST_F(Designers, ThatCannotBeReadAreNotMissing) {
  ASSERT_TRUE(WriteDesigners(workspace, kThree).ok());
  UnreadableDisk disk(work_disk);
  Workspace barred(disk, kProgramFolder, outer_disk, kLibraryFolder, clock);
  disk.Bar(work_file::kDesigners);
  EXPECT_FALSE(ReadDesigners(barred).ok());
}

TEST_F(Designers, StayAsTheyWereWhereTheDiskIsFull) {
  ASSERT_TRUE(WriteDesigners(workspace, kThree).ok());
  FailingDisk disk(work_disk);
  Workspace full(disk, kProgramFolder, outer_disk, kLibraryFolder, clock);
  disk.FailAfterBytes(150);
  EXPECT_FALSE(WriteDesigners(full, {{"A", "B"}, ""}).ok());
  EXPECT_EQ(*ReadDesigners(workspace), kThree);
}

}  // namespace
}  // namespace kalvo
