// The winter form on disks that fail.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

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

// The user was told what the disk said: in a box that names the file, or in the status line.
bool WasTold(WinterUser& winter) {
  const auto names_file = [](const Box& box) {
    const std::string text = Joined(box.lines);
    return text.find("ίσκο") != std::string::npos && text.find("/") != std::string::npos;
  };
  return winter.form->LblStatus.tone == Tone::kAlarm ||
         std::ranges::any_of(winter.test().prompter.boxes(), names_file);
}

struct Use {
  bool closed = false;
  bool told = false;
};

// Types, runs and closes.
Use UseAll(WinterUser& winter) {
  Use use;
  const auto look = [&] { use.told = use.told || WasTold(winter); };
  winter.TypeValues();
  look();
  winter.form->Idle(0.3);
  look();
  winter.form->Idle(6);
  look();
  winter.Press(Ctrl(KeyCode::kEnter));
  look();
  winter.GoTo(0, 4);
  winter.Type("6");
  winter.Press(KeyCode::kEnter);
  look();
  winter.form->Idle(0.3);
  look();
  winter.Press(Ctrl(KeyCode::kEnter));
  look();
  winter.Close(Answer::kYes);
  look();
  use.closed = !winter.user.navigator.log.empty();
  return use;
}

// What the form tries again by itself, and what need not succeed: the end of the form would tell.
bool IsTriedAgain(const std::string& operation) {
  return std::ranges::count(std::array{"remove RESTBRA.TMP", "remove WINTCIRC.@@@",
                                       "flush WINTCIRC.TMP", "flush program"},
                            operation) != 0;
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
    const Use use = UseAll(winter);
    const bool reached = disk.operations() >= operation;
    failures += reached ? 1 : 0;
    EXPECT_TRUE(use.told || !reached || (use.closed && IsTriedAgain(disk.last_failed())))
        << operation << " " << disk.last_failed();
    if (!use.closed) {
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
    const Use use = UseAll(winter);
    if (!use.closed) winter.Close(Answer::kYes);
    EXPECT_TRUE(use.told || disk.reads() < read) << read;
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

TEST(WinterDisk, ALookThatFailsAnywhereLosesNothing) {
  int failures = 0;
  for (int look = 1; look < 100; ++look) {
    WinterUser winter;
    FailingDisk disk(winter.test().work_disk);
    winter.WorkOn(disk);
    const std::string summer = winter.test().Bytes();
    disk.FailAtLook(look);
    winter.Open();
    if (winter.form->fpSpread1.row_count() == 0) winter.Open();  // it could not begin
    winter.user.navigator.log.clear();
    if (!UseAll(winter).closed) winter.Close(Answer::kYes);
    EXPECT_EQ(winter.test().Bytes(), summer) << look;
    EXPECT_FALSE(winter.user.navigator.log.empty()) << look;
    EXPECT_FALSE(winter.test().workspace.Exists(work_file::kSummerRows)) << look;
    EXPECT_EQ(winter.test().Rows(work_file::kWinter).at(1).WaterFlow, 250.0F) << look;
    if (disk.looks() < look) break;
    ++failures;
  }
  EXPECT_GT(failures, 5);
  EXPECT_LT(failures, 99);
}

// A form whose values are declined on a disk that fails at one of the operations of its end.
class DeclinedWinter {
 public:
  // `earlier`: there is winter data already. `runs`: the values are calculated.
  DeclinedWinter(bool earlier, bool runs) {
    if (earlier) {
      winter.TypeValues();
      winter.Press(Ctrl(KeyCode::kEnter));
      winter.Close(Answer::kYes);
      winter.test().study.unsaved_changes = false;
    }
    before = winter.test().Bytes(work_file::kWinter);
    winter.user.navigator.log.clear();
    winter.WorkOn(disk);
    winter.Open();
    winter.TypeValues();
    winter.GoTo(0, 5);
    winter.Type("222");
    winter.Press(KeyCode::kEnter);
    winter.form->Idle(0.3);
    if (runs) winter.Press(Ctrl(KeyCode::kEnter));
  }

  // False: it was closed.
  bool StaysOpenAfterNo(int operation) {
    disk.FailAtOperation(operation, FailingDisk::Lasting::kOnce);
    winter.Close(Answer::kNo);
    winter.form->Derive();
    return winter.user.navigator.log.empty();
  }

  // The form shows what its files hold.
  void ExpectTruth() {
    EXPECT_NE(winter.Box().find(TestBench::kProgramFolder), std::string::npos) << "it was told";
    EXPECT_FALSE(winter.test().study.unsaved_changes);
    EXPECT_EQ(winter.test().Bytes(), summer);
    if (winter.form->LblPump.visible) {
      const auto rows = winter.test().Rows(work_file::kWinter);
      EXPECT_NE(rows.at(0).DP, 0.0F);
      EXPECT_EQ(rows.at(1).WaterFlow, 222.0F);
    } else {
      winter.Run(winter.form->Cmd_Res);
      EXPECT_EQ(winter.test().prompter.codes().back(), 140);
    }
    winter.form->Idle(0.3);
    FrmWinter next(winter.desk());
    next.Load();
    EXPECT_EQ(WinterUser::CellsOf(next), winter.Cells()) << "what is typed keeps itself";
  }

  WinterUser winter;
  FailingDisk disk{winter.test().work_disk};
  std::string before;
  const std::string summer = winter.test().Bytes();
};

TEST(WinterDisk, NoFailureWhileValuesAreDeclinedLosesWhatIsWantedAfterAll) {
  int failures = 0;
  for (const bool earlier : {false, true}) {
    for (const bool runs : {false, true}) {
      for (const Answer second : {Answer::kYes, Answer::kNo}) {
        for (int operation = 1;; ++operation) {
          SCOPED_TRACE("earlier " + std::to_string(int{earlier}) + " runs " +
                       std::to_string(int{runs}) + " operation " + std::to_string(operation));
          ASSERT_LT(operation, 20);
          DeclinedWinter declined(earlier, runs);
          WinterUser& winter = declined.winter;
          if (!declined.StaysOpenAfterNo(operation)) break;
          ++failures;
          declined.ExpectTruth();
          winter.Close(second);
          EXPECT_EQ(winter.user.navigator.log.size(), 2U);
          EXPECT_FALSE(winter.IsKept());
          EXPECT_EQ(winter.test().Bytes(), declined.summer);
          EXPECT_EQ(winter.test().study.unsaved_changes, second == Answer::kYes);
          if (second == Answer::kYes) {
            EXPECT_EQ(winter.test().Rows(work_file::kWinter).at(1).WaterFlow, 222.0F);
          } else {
            EXPECT_EQ(winter.test().Bytes(work_file::kWinter), declined.before);
          }
        }
      }
    }
  }
  EXPECT_GT(failures, 10);
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
