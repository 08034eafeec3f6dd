// Stories of the built program: its exit codes, its streams, limits of the system.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "study/real_disk.h"
#include "tests/cli/cli_bench.h"

namespace kalvo {
namespace {

using testing::HasSubstr;

class Program : public testing::Test {
 protected:
  // `kalvo calc` on the bench's study, further words behind it.
  [[nodiscard]] std::string Calc(const std::string& words) const {
    return "kalvo calc '" + study_ + "' --library '" + bench_.library().string() + "' " + words;
  }

  const CliBench bench_;
  const std::string study_ = bench_.Put("Κτίριο Α, όροφος 1.PCK", Chain(20));
};

TEST_F(Program, PipedOutputIsPlainAndThatOfTheCommand) {
  const Told told = RunProgram(Calc("--separators ,."));
  EXPECT_EQ(told.code, 0);
  EXPECT_EQ(told.out, bench_.Run({"calc", study_, "--separators", ",."}).out);
  EXPECT_EQ(RunProgram("kalvo pipes 11").code, 0);  // of the delivered library
  EXPECT_EQ(RunProgram("kalvo --separators .. calc x").code, 2);
  EXPECT_EQ(RunProgram("kalvo check '" + study_ + "' --library /none").code, 3);
}

TEST_F(Program, FullOutputIsToldAsUnwritable) {
  const Told told = RunProgram(Calc("> /dev/full"));
  EXPECT_EQ(told.code, 6);
  EXPECT_THAT(told.out, HasSubstr("Το αποτέλεσμα ΔΕΝ γράφτηκε"));
}

TEST_F(Program, ReaderWhoLeavesEndsNothing) {
  const std::string long_study = bench_.Put("long.PCK", Chain(500));  // more than a pipe holds
  const std::string batch = "kalvo calc '" + long_study + "' '" + study_ + "' --library '" +
                            bench_.library().string() + "' --format csv --save ";
  std::filesystem::create_directories(bench_.studies() / "whole");
  std::filesystem::create_directories(bench_.studies() / "left");
  ASSERT_EQ(RunProgram(batch + bench_.Path("whole") + " > /dev/null").code, 0);
  const Told told = RunProgram("{ " + batch + bench_.Path("left") +
                               "; echo code $? >&2; } | head -c 1 > /dev/null");
  EXPECT_THAT(told.out, testing::EndsWith("\ncode 0\n"));
  EXPECT_THAT(told.out, testing::Not(HasSubstr("ΔΕΝ γράφτηκε")));
  const FolderImage whole = ImageOf(RealDisk(), bench_.studies() / "whole");
  EXPECT_EQ(whole.size(), 6U);
  EXPECT_TRUE(ImageOf(RealDisk(), bench_.studies() / "left") == whole);
}

TEST_F(Program, SavesBeforeItPrints) {
  // Nobody reads until the study is saved: results that no pipe holds must not be waited for.
  const std::string saved = bench_.Path("new.PCK");
  const std::string reader =
      "timeout 20 sh -c 'until [ -s \"" + saved + "\" ]; do sleep 0.02; done'";
  const std::string calc = "kalvo calc '" + bench_.Put("long.PCK", Chain(500)) + "' --library '" +
                           bench_.library().string() + "' --save '" + saved + "'";
  EXPECT_EQ(RunProgram(calc + " | " + reader).code, 0);

  const std::string values = bench_.Put("values.csv", "section,flow,drop\n500,200,100\n");
  const std::string winter = "kalvo winter '" + saved + "' --values '" + values + "' --library '" +
                             bench_.library().string() + "' --yes --save '";
  const std::string cold = bench_.Path("winter.PCK");
  const std::string cold_reader =
      "timeout 20 sh -c 'until [ -s \"" + cold + "\" ]; do sleep 0.02; done'";
  EXPECT_EQ(RunProgram(winter + cold + "' | " + cold_reader).code, 0);
}

TEST_F(Program, WorkingFolderThatIsGoneIsToldInGreek) {
  const std::string gone =
      "cd '" + bench_.studies().string() + "' && mkdir gone && cd gone && " + "rmdir ../gone && ";
  const std::string told = "Ο φάκελος όπου εκτελείται η εντολή δεν υπάρχει πια : ";
  const Told loading = RunProgram(gone + "kalvo calc new.PCK");
  EXPECT_EQ(loading.code, 3);
  EXPECT_THAT(loading.out, HasSubstr(told + "new.PCK\n"));
  const Told saving = RunProgram(gone + Calc("--save new.PCK"));
  EXPECT_EQ(saving.code, 6);
  EXPECT_EQ(saving.out, "Η μελέτη ΔΕΝ σώθηκε. " + told + "new.PCK\n");
  EXPECT_EQ(RunProgram(gone + Calc("")).code, 0);
}

TEST_F(Program, SaveThatFindsNoRoomLeavesEveryFile) {
  ASSERT_EQ(RunProgram(Calc("--save '" + bench_.Path("new.PCK") + "'")).code, 0);
  const FolderImage before = bench_.Studies();
  // In blocks: no room at all, then room for the companions but not for the rows.
  for (const char* blocks : {"0", "6"}) {
    const Told told =
        RunProgram("ulimit -f " + std::string(blocks) + "; " +
                   Calc("--method 2 --overwrite --save '" + bench_.Path("new.PCK") + "'"));
    EXPECT_EQ(told.code, 6) << blocks;
    EXPECT_THAT(told.out, HasSubstr("Η μελέτη ΔΕΝ σώθηκε. "));
    EXPECT_THAT(told.out, HasSubstr(bench_.studies().string()));
    EXPECT_TRUE(bench_.Studies() == before) << blocks;
  }
}

TEST_F(Program, ReadingNeedsNoRoom) {
  const FolderImage before = bench_.Studies();
  EXPECT_EQ(RunProgram("ulimit -f 0; " + Calc("")).code, 0);
  EXPECT_TRUE(bench_.Studies() == before);
}

}  // namespace
}  // namespace kalvo
