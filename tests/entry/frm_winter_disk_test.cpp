// The winter form on disks that fail.

#include <gtest/gtest.h>

#include "study/message_codes.h"
#include "tests/entry/winter_user.h"
#include "tests/support/failing_disk.h"

namespace kalvo {
namespace {

TEST(WinterDisk, IsLeftWhenItsFilesCannotBeRead) {
  WinterUser winter;
  for (const char* damaged : {work_file::kWinter, work_file::kWinterInWork}) {
    ASSERT_TRUE(winter.test().workspace.Write(damaged, "odd").ok());
    winter.user.navigator.log.clear();
    winter.Open();
    EXPECT_EQ(winter.user.navigator.log,
              (std::vector<std::string>{"show FrmMain", "close FrmWinter"}));
    EXPECT_NE(winter.Box().find(damaged), std::string::npos);
    EXPECT_EQ(winter.test().Bytes(damaged), "odd");
    winter.test().workspace.Delete(damaged);
    winter.Press(Ctrl(KeyCode::kEnter));
    winter.Press(KeyCode::kF7);
    winter.Press(Ctrl('V'));
    EXPECT_FALSE(winter.form->Idle(9));
  }
}

// Types, runs and closes; false when something kept the form open.
bool UseAll(WinterUser& winter) {
  winter.TypeValues();
  winter.form->Idle(0.3);
  winter.form->Idle(6);
  winter.Press(Ctrl(KeyCode::kEnter));
  winter.GoTo(0, 4);
  winter.Type("6");
  winter.Press(KeyCode::kEnter);
  winter.form->Idle(0.3);
  winter.Press(Ctrl(KeyCode::kEnter));
  winter.Close(Answer::kYes);
  return !winter.user.navigator.log.empty();
}

TEST(WinterDisk, ADiskThatFailsAnywhereIsToldAndNothingIsLost) {
  int failures = 0;
  for (int operation = 1; operation < 80; ++operation) {
    WinterUser winter;
    FailingDisk disk(winter.test().work_disk);
    winter.WorkOn(disk);
    const std::string summer = winter.test().Bytes();
    winter.Open();
    disk.FailAtOperation(operation, FailingDisk::Lasting::kOnce);
    const bool closed = UseAll(winter);
    const bool reached = disk.operations() >= operation;
    failures += reached ? 1 : 0;
    if (!closed) {
      EXPECT_EQ(winter.Cells(), "6,0 250,0 210,5 | 5,0 150,0 160,0") << operation;
      winter.Close(Answer::kYes);
    }
    EXPECT_EQ(winter.test().Bytes(), summer) << operation;
    EXPECT_FALSE(winter.user.navigator.log.empty()) << operation;
    EXPECT_FALSE(winter.test().workspace.Exists(work_file::kSummerRows)) << operation;
    const auto row = winter.test().Rows(work_file::kWinter).at(1);
    EXPECT_EQ(row.WaterFlow, 250.0F) << operation;
    EXPECT_EQ(row.Length, 6.0F) << operation;
    if (!reached) break;
  }
  EXPECT_GT(failures, 20);
}

TEST(WinterDisk, ADiskThatIsFullTellsThatNothingIsKept) {
  WinterUser winter;
  FailingDisk disk(winter.test().work_disk);
  winter.WorkOn(disk);
  winter.Open();
  winter.TypeValues();
  disk.FailAfterBytes(0);
  EXPECT_TRUE(winter.form->Idle(0.3));
  EXPECT_EQ(winter.form->LblStatus.tone, Tone::kAlarm);
  EXPECT_FALSE(winter.form->Idle(1)) << "not at every moment again";
  winter.Press(Ctrl(KeyCode::kEnter));
  EXPECT_FALSE(winter.form->LblPump.visible);
  EXPECT_NE(winter.Box().find("WINTCIRC"), std::string::npos);
  winter.Close(Answer::kYes);
  EXPECT_TRUE(winter.user.navigator.log.empty()) << "the form stays with its values";
  disk.Mend();
  winter.Press(Ctrl(KeyCode::kEnter));
  EXPECT_TRUE(winter.form->LblPump.visible);
}

TEST(WinterDisk, AReadThatFailsAnywhereIsToldAndNothingIsLost) {
  int failures = 0;
  for (int read = 1; read < 200; ++read) {
    WinterUser winter;
    FailingDisk disk(winter.test().work_disk);
    winter.WorkOn(disk);
    const std::string summer = winter.test().Bytes();
    winter.Open();
    disk.FailAtRead(read);
    if (!UseAll(winter)) winter.Close(Answer::kYes);
    EXPECT_EQ(winter.test().Bytes(), summer) << read;
    EXPECT_FALSE(winter.user.navigator.log.empty()) << read;
    const auto row = winter.test().Rows(work_file::kWinter).at(1);
    EXPECT_EQ(row.WaterFlow, 250.0F) << read;
    EXPECT_EQ(row.Length, 6.0F) << read;
    if (disk.reads() < read) break;
    ++failures;
  }
  EXPECT_GT(failures, 20);
  EXPECT_LT(failures, 199);
}

TEST(WinterDisk, ValuesThatAreDeclinedStayOpenUntilTheirFileIsGone) {
  WinterUser winter;
  FailingDisk disk(winter.test().work_disk);
  winter.WorkOn(disk);
  winter.Open();
  winter.TypeValues();
  winter.Press(Ctrl(KeyCode::kEnter));
  disk.FailAtOperation(1, FailingDisk::Lasting::kFromThenOn);
  winter.Close(Answer::kNo);
  EXPECT_TRUE(winter.user.navigator.log.empty());
  EXPECT_NE(winter.Box().find(work_file::kWinter), std::string::npos);
  disk.Mend();
  winter.Close(Answer::kNo);
  EXPECT_FALSE(winter.test().workspace.Exists(work_file::kWinter));
  EXPECT_EQ(winter.user.navigator.log.size(), 2U);
}

// As on a share that answers too late.
class LateDisk : public ForwardingDisk {
 public:
  using ForwardingDisk::ForwardingDisk;
  bool is_late = false;

  Outcome Rename(const std::filesystem::path& from, const std::filesystem::path& to) override {
    Outcome renamed = inner_.Rename(from, to);
    const bool fails = is_late && to.filename() == work_file::kRows;
    if (fails) is_late = false;
    return fails ? Outcome(FileError{to, "Δεν απαντά"}) : renamed;
  }
};

TEST(WinterDisk, SummerComesBackWhereItsPlaceWasTakenInSpiteOfAnError) {
  WinterUser winter;
  LateDisk disk(winter.test().work_disk);
  winter.WorkOn(disk);
  const std::string summer = winter.test().Bytes();
  winter.Open();
  winter.TypeValues();
  winter.Press(Ctrl(KeyCode::kEnter));
  disk.is_late = true;
  winter.Run(winter.form->Cmd_Res);
  EXPECT_FALSE(disk.is_late);
  EXPECT_EQ(winter.test().Bytes(), summer);
  EXPECT_NE(winter.Box().find("Δεν απαντά"), std::string::npos);
}

TEST(WinterDisk, RowsThatHaveGoneAreNamedAndTheValueIsTaken) {
  WinterUser winter;
  winter.TypeValues();
  winter.Press(Ctrl(KeyCode::kEnter));
  winter.test().workspace.Delete(work_file::kRows);
  winter.GoTo(0, 5);
  winter.Type("222");
  winter.Press(KeyCode::kEnter);
  EXPECT_NE(winter.Box().find(work_file::kRows), std::string::npos);
  EXPECT_EQ(winter.Cells(), "5,0 222,0 210,5 | 5,0 150,0 160,0");
}

}  // namespace
}  // namespace kalvo
