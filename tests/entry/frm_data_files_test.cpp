#include <gtest/gtest.h>

#include <array>

#include "tests/entry/section_user.h"

namespace kalvo {
namespace {

const char* const kAttention = " !!... ΠΡΟΣΟΧΗ ...!! ";

// What is in the files of a study that nobody changed, and how its entry ended.
struct Files {
  explicit Files(const SectionUser& user)
      : rows(user.user.test.Bytes()),
        emitters(user.user.test.Bytes(work_file::kEmitters)),
        unsaved(user.user.test.study.unsaved_changes) {}
  bool operator==(const Files&) const = default;
  std::string rows;
  std::string emitters;
  bool unsaved;
};

TEST(SectionFiles, AnEscapeThatChangedNothingLeavesThemAsTheyWere) {
  SectionUser user(SystemKind::kClosed, kChain);
  const Files before(user);
  user.Open();
  user.TypeIn(user.form->Txt2, "0");
  user.Next();
  EXPECT_EQ(user.user.test.prompter.codes(), (std::vector<int>{7}));
  user.Press(Ctrl('Z'));
  EXPECT_EQ(user.Shown(), "1 : ANT/1 · 5");
  user.Press(KeyCode::kEscape);
  EXPECT_EQ(user.LastScreen(), "show FrmMain");
  EXPECT_TRUE(Files(user) == before);

  SectionUser nameless(SystemKind::kClosed, kChain);
  nameless.user.test.ChangeRow(3, [](SectionRow& row) { row.Name = FixedText<7>(); });
  const Files blank(nameless);
  nameless.Open();
  nameless.Press(KeyCode::kEscape);
  EXPECT_TRUE(Files(nameless) == blank) << "a name of blanks is no change";
}

TEST(SectionFiles, AnEscapeStoresWhatWasTypedBeforeAFieldWasErased) {
  SectionUser user(SystemKind::kClosed, kChain);
  user.Open();
  user.Next();
  user.TypeIn(user.form->Txt6, "3");
  user.Press(KeyCode::kEnter);
  EXPECT_TRUE(user.form->LblUnsaved.visible) << "it is not in the file yet";
  user.TypeIn(user.form->Txt8, "40000");
  user.Press(KeyCode::kEnter);
  EXPECT_EQ(user.user.test.prompter.codes(), (std::vector<int>{200}));
  user.Press(Ctrl('Z'));
  EXPECT_EQ(user.form->Txt8.text, "0");
  user.Press(KeyCode::kEscape);
  EXPECT_EQ(user.user.test.Row(2).AnglePOP, 3);
  EXPECT_EQ(user.Emitters(), "2 3 ");
}

TEST(SectionFiles, WhatSomethingElseDidToTheRowsIsPutRightAndKept) {
  struct Deed {
    const char* name;
    bool has_bytes;
    std::function<void(Workspace&)> run;
  };
  const std::vector<Deed> deeds = {
      {"deleted", false, [](Workspace& files) { files.Delete(work_file::kRows); }},
      {"emptied", false,
       [](Workspace& files) { EXPECT_TRUE(files.Write(work_file::kRows, "").ok()); }},
      {"overwritten", true,
       [](Workspace& files) { EXPECT_TRUE(files.Write(work_file::kRows, "rubbish").ok()); }},
      {"cut", true,
       [](Workspace& files) {
         auto rows = *files.Rows().ReadAll();
         rows.pop_back();
         EXPECT_TRUE(files.Rows().WriteAll(rows).ok());
       }},
  };
  const std::vector<std::function<void(SectionUser&)>> ends = {
      [](SectionUser& user) { user.Next(); },
      [](SectionUser& user) { user.Press(KeyCode::kEscape); },
      [](SectionUser& user) { user.Run(user.form->Cmd_End); }};
  for (const Deed& deed : deeds) {
    for (const bool typed : {true, false}) {
      for (const auto& end : ends) {
        if (!typed && &end == ends.data()) continue;  // writes nothing
        SCOPED_TRACE(deed.name);
        SectionUser user(SystemKind::kClosed, kChain);
        user.Open();
        user.Next();
        if (typed) user.TypeIn(user.form->Txt2, "4");
        deed.run(user.user.test.workspace);
        end(user);
        EXPECT_EQ(user.Names(), "ANT/1|1/2|2/3|3/ANT");
        EXPECT_EQ(user.user.test.Row(2).Length, typed ? 4 : 6);
        EXPECT_EQ(user.user.test.Row(2).SomaDrop, 800);
        EXPECT_EQ(user.user.test.prompter.boxes().size(), 1U) << "it is told";
        EXPECT_EQ(NamesIn(user.user.test.outer_disk, kStudies / kSafetyFolder).size(),
                  deed.has_bytes ? 1U : 0U);
      }
    }
  }
}

// A step back or forward makes the rows anew, and so do the words that end an insertion.
TEST(SectionFiles, AStepKeepsWhatSomethingElsePutInPlaceOfTheRows) {
  struct Step {
    const char* name;
    std::function<void(SectionUser&)> prepare;
    std::function<void(SectionUser&)> run;
    float length_of_2;
  };
  const auto change = [](SectionUser& user) {
    user.TypeIn(user.form->Txt2, "4");
    user.Next();
  };
  const auto insert = [](SectionUser& user) { user.Run(user.form->Cmd_Ins); };
  const auto back = [](SectionUser& user) { user.Press(Ctrl('Z')); };
  const std::vector<Step> steps = {
      {"undo", change, back, 6},
      {"redo",
       [&](SectionUser& user) {
         change(user);
         back(user);
       },
       [](SectionUser& user) { user.Press(Ctrl('Y')); }, 4},
      {"the end of an insertion", insert, insert, 6},
  };
  for (const Step& step : steps) {
    for (const bool readable : {true, false}) {
      SCOPED_TRACE(step.name);
      SectionUser user(SystemKind::kClosed, kChain);
      const auto copies = [&] {
        return NamesIn(user.user.test.outer_disk, kStudies / kSafetyFolder).size();
      };
      user.Open();
      user.Next();
      step.prepare(user);
      ASSERT_TRUE(user.user.test.workspace.Write(work_file::kRows, "foreign"));
      if (!readable) user.disk.FailAtRead(1, work_file::kRows);
      step.run(user);
      EXPECT_EQ(user.user.test.prompter.boxes().size(), 1U) << "it is told";
      EXPECT_EQ(copies(), readable ? 1U : 0U);
      if (!readable) {
        EXPECT_EQ(user.user.test.Bytes(), "foreign") << "nobody knew what it holds";
        user.Press(KeyCode::kEscape);
        EXPECT_EQ(copies(), 1U);
      }
      EXPECT_EQ(user.Names(), "ANT/1|1/2|2/3|3/ANT");
      EXPECT_EQ(user.user.test.Row(2).Length, step.length_of_2);
    }
  }
}

TEST(SectionFiles, ANewStudyTakesThePlaceOfRowsThatAppeared) {
  SectionUser user;
  user.Open();
  ASSERT_TRUE(user.user.test.workspace.Write(work_file::kRows, std::string(2 * 355, ' ')).ok());
  user.TypeIn(user.form->Txt2, "5");
  int written = 0;
  user.user.test.prompter.before_box = [&] { written += user.user.test.Bytes().empty() ? 1 : 0; };
  user.Next();
  EXPECT_EQ(written, 0) << "never an empty file";
  EXPECT_EQ(user.Names(), "ANT/1");
  EXPECT_EQ(user.Shown(), "2 : 1/2 · 5");
  EXPECT_EQ(NamesIn(user.user.test.outer_disk, kStudies / kSafetyFolder).size(), 1U);
}

// A file cannot be read once, whichever of its reads that is: after Escape all is as it was, or as
// the deed makes it.
TEST(SectionFiles, AReadThatFailsOnceLosesNothing) {
  struct Deed {
    const char* name;
    std::function<void(SectionUser&)> prepare;
    std::function<void(SectionUser&)> run;
  };
  const auto nothing = [](SectionUser&) {};
  const auto insert = [](SectionUser& user) { user.Run(user.form->Cmd_Ins); };
  const std::vector<Deed> deeds = {
      {"insert", nothing, insert},
      {"its undo", insert, insert},
      {"delete", nothing,
       [](SectionUser& user) {
         user.user.test.prompter.Expect(120, Answer::kYes);
         user.Run(user.form->Cmd_Del);
       }},
      {"move", [](SectionUser& user) { user.TypeIn(user.form->Txt1, "9"); },
       [](SectionUser& user) { user.Next(); }},
      {"undo", insert, [](SectionUser& user) { user.Press(Ctrl('Z')); }},
  };
  for (const Deed& deed : deeds) {
    std::string before;
    std::string after;
    for (int i = 0; i <= 18; ++i) {
      const int read = i == 0 ? 0 : (i - 1) % 6 + 1;
      const char* const file =
          std::array{work_file::kRows, work_file::kEmitters, work_file::kRowsBeforeInsert}.at(
              i == 0 ? 0 : static_cast<std::size_t>(i - 1) / 6);
      SCOPED_TRACE(std::string(deed.name) + " " + file + " " + std::to_string(read));
      SectionUser user(SystemKind::kClosed, kChain);
      user.Open();
      user.Next();
      deed.prepare(user);
      if (read == 0) before = user.Names();
      user.disk.FailAtRead(read, file);
      deed.run(user);
      user.disk.Mend();
      user.form->Derive();
      user.Press(KeyCode::kEscape);
      EXPECT_EQ(user.LastScreen(), "show FrmMain");
      if (read == 0) after = user.Names();
      EXPECT_TRUE(user.Names() == before || user.Names() == after) << user.Names();
      for (const SectionRow& emitter : user.user.test.Rows(work_file::kEmitters)) {
        ASSERT_GT(emitter.RecordNumber + (after.size() < before.size() ? 1 : 0), 0);
        if (emitter.RecordNumber == 0) continue;
        EXPECT_EQ(user.user.test.Row(emitter.RecordNumber).SomaDrop, emitter.SomaDrop);
      }
      EXPECT_EQ(NamesIn(user.user.test.outer_disk, kStudies / kSafetyFolder).size(), 0U)
          << "nobody else has touched them";
    }
  }
}

TEST(SectionFiles, AnotherFileOfOldRowsIsNotTheInsertionsOwn) {
  SectionUser user(SystemKind::kClosed, kChain);
  user.Open();
  user.Next();
  const std::string rows = user.user.test.Bytes();
  user.Run(user.form->Cmd_Ins);
  ASSERT_TRUE(user.user.test.workspace.Write(work_file::kRowsBeforeInsert, rows.substr(0, 355)));
  user.Run(user.form->Cmd_Ins);
  EXPECT_EQ(user.user.test.Bytes(), rows);
  EXPECT_EQ(user.Shown(), "2 : 1/2 · 6");
  EXPECT_TRUE(user.DraftSaysRows());
}

TEST(SectionFiles, RowsAreOnTheMediumBeforeAnOlderCopyGoes) {
  SectionUser user(SystemKind::kClosed, kChain);
  user.Open();
  const auto kept = [&] { return user.user.test.workspace.Exists(work_file::kSheetInWork); };
  user.TypeIn(user.form->Txt2, "6,5");
  user.form->Idle(6);
  ASSERT_TRUE(kept());
  user.Next();
  EXPECT_FALSE(user.disk.IsFlushed(work_file::kRows)) << "a move does not wait for it";
  user.disk.FailAtOperation(1, FailingDisk::Lasting::kOnce);
  user.form->Idle(0.3);
  EXPECT_TRUE(kept()) << "what is not on the medium is not relied on";
  user.disk.Mend();
  user.form->LostFocus();
  EXPECT_FALSE(kept());
  EXPECT_TRUE(user.disk.IsFlushed(work_file::kRows));
  user.TypeIn(user.form->Txt2, "4");
  user.Press(KeyCode::kEscape);
  EXPECT_EQ(user.user.test.Bytes(work_file::kFirstRows), "(missing)");
  EXPECT_TRUE(user.disk.IsFlushed(work_file::kRows));
}

TEST(SectionFiles, RowsOfTheBeginningStayAsLongAsThoseOfNowAreNotOnTheMedium) {
  SectionUser user(SystemKind::kClosed, kChain);
  user.Open();
  user.TypeIn(user.form->Txt2, "6,5");
  user.Next();
  user.TypeIn(user.form->Txt2, "0");
  user.disk.FailFlushesOf(work_file::kRows);
  const auto close = [&](Answer leaves) {
    user.user.test.prompter.Expect(kAttention, leaves);
    user.Press(KeyCode::kEscape);
    EXPECT_TRUE(user.user.test.workspace.Exists(work_file::kFirstRows));
  };
  user.user.test.prompter.Expect(kAttention, Answer::kYes);  // drops the row
  close(Answer::kNo);
  ASSERT_NE(user.form, nullptr);
  EXPECT_EQ(user.Shown(), "2 : 1/2 · 6") << "what was dropped is gone";
  close(Answer::kYes);
  EXPECT_EQ(user.LastScreen(), "show FrmMain");
  user.disk.Mend();
  user.OpenSheet();
  EXPECT_EQ(user.sheet->fpSpread1.At(0, 3).text, "6,5");
  EXPECT_EQ(user.sheet->fpSpread1.At(1, 3).text, "6");
}

TEST(SectionFiles, RowsThatCouldNeitherBeWrittenNorRestoredAreWrittenAgain) {
  for (int operation = 1; operation <= 8; ++operation) {
    SCOPED_TRACE(operation);
    SectionUser user(SystemKind::kClosed, kChain);
    user.Open();
    user.Next();
    user.Run(user.form->Cmd_Ins);
    user.Next();
    user.Press(Ctrl('Z'));
    user.Press(Ctrl('Y'));
    const std::string rows = user.user.test.Bytes();
    user.disk.FailAtOperation(operation, FailingDisk::Lasting::kFromThenOn);
    user.Press(Ctrl('Z'));
    user.disk.Mend();
    user.Press(Ctrl('Y'));
    user.form->Idle(6);
    EXPECT_TRUE(user.user.test.Bytes() == rows);
    EXPECT_TRUE(user.DraftSaysRows());
    EXPECT_EQ(NamesIn(user.user.test.outer_disk, kStudies / kSafetyFolder).size(), 0U)
        << "nobody else has touched them";
  }
}

TEST(SectionFiles, RowsOfTheBeginningStayWhereNothingCanBeKept) {
  SectionUser user(SystemKind::kClosed, kChain);
  user.Open();
  user.TypeIn(user.form->Txt2, "9");
  user.disk.FailAfterBytes(0);
  user.user.test.prompter.Expect(kAttention, Answer::kYes);
  user.user.test.prompter.Expect(kAttention, Answer::kNo);
  user.Close();
  ASSERT_NE(user.form, nullptr);
  EXPECT_TRUE(user.user.test.workspace.Exists(work_file::kFirstRows));
}

// The form counts one more than there are in rows that it writes, and in those alone.
TEST(SectionFiles, StepsDoneAgainCountRowsAsTheFormDoes) {
  SectionUser user(SystemKind::kClosed, kChain);
  user.Open();
  user.TypeIn(user.form->Txt2, "6");
  user.Next();
  const std::string rows = user.user.test.Bytes();
  EXPECT_EQ(user.user.test.Column(&SectionRow::TOT), (std::vector<std::int16_t>{5, 4, 4, 4}));
  user.Press(Ctrl('Z'));
  user.Press(Ctrl('Y'));
  EXPECT_EQ(user.user.test.Column(&SectionRow::TOT), (std::vector<std::int16_t>{5, 4, 4, 4}));
}

}  // namespace
}  // namespace kalvo
