// The roads into a change of many diameters, and a disk that fails on them.

#include <gtest/gtest.h>

#include "results/frm_res.h"
#include "results/frm_res_sheet.h"
#include "tests/results/many_desk.h"
#include "tests/support/failing_disk.h"

namespace kalvo {
namespace {

enum class ManyNetwork { kClosed, kOpen, kLone };
enum class ManyEntry { kButton, kSheetButton, kMenu };

struct ManyRoad {
  ManyNetwork network;
  ManyEntry entry;
};

std::string NameOf(const ManyRoad& road) {
  return "network " + std::to_string(static_cast<int>(road.network)) + ", entry " +
         std::to_string(static_cast<int>(road.entry));
}

std::vector<int> SectionsOf(const ManyRoad& road) {
  if (road.network == ManyNetwork::kLone) return {1};
  return road.network == ManyNetwork::kOpen ? std::vector{1, 3} : std::vector{1, 3, 5};
}

// Unselected rows are as they were, bit for bit, the others have the pipe and else what they had.
void ExpectReplaced(const TestBench& test, const std::vector<SectionRow>& before,
                    const std::vector<int>& sections) {
  std::vector<SectionRow> expected = before;
  for (const int section : sections) {
    SectionRow& row = expected[static_cast<std::size_t>(section) - 1];
    row.NomiDiam = FixedText<15>::FromUtf8("4");
    row.InDiameter = -SteelPipes().back().inner_diameter;
  }
  EXPECT_EQ(test.Bytes(), EncodeRows<SectionRow>(expected));
}

// A change on a road until the form is left.
template <typename View>
void ChangeOn(ManyDesk<View>& desk, const ManyRoad& road, Command& command) {
  TestBench& test = desk.test;
  const bool menu = road.entry == ManyEntry::kMenu;
  const std::string before = test.Bytes();
  const std::vector<SectionRow> rows = test.Rows();
  const bool shown = desk.Within(command, [&](FrmChang& form) {
    EXPECT_EQ(test.Bytes(work_file::kPreviousRows), menu ? "(missing)" : before);
    EXPECT_EQ(test.Bytes(work_file::kRowsBeforeChange), menu ? before : "(missing)");
    desk.Replace(form, SectionsOf(road), "4");
    ExpectReplaced(test, rows, SectionsOf(road));
    EXPECT_EQ(form.fpSpread1.At(0, 2).tone, Tone::kWaiting);
    EXPECT_EQ(form.fpSpread1.At(0, 3).text, desk.Bracketed(-SteelPipes().back().inner_diameter));
    EXPECT_TRUE(form.fpSpread1.At(0, 3).left);
    EXPECT_TRUE(test.study.unsaved_changes);
    form.Press(Plain(KeyCode::kEscape));
  });
  EXPECT_TRUE(shown);
  EXPECT_EQ(test.Bytes(work_file::kFirstRows), before);
  EXPECT_EQ(test.study.CurrentRow, 1);
  if (menu) {
    ExpectReplaced(test, rows, SectionsOf(road));
    EXPECT_EQ(test.Bytes(work_file::kRowsBeforeChange), before);
  } else {
    EXPECT_LT(test.Row(1).Velocity, rows[0].Velocity);
    EXPECT_EQ(test.Bytes(work_file::kPreviousRows), test.Bytes());
  }
}

template <typename View>
void BeginOn(ManyDesk<View>& desk, const ManyRoad& road) {
  if (road.network == ManyNetwork::kLone) desk.Calculate({"ANT/ANT 5m soma 300l/h 500mm"});
  desk.Load();
}

std::string RowsAfter(const ManyRoad& road) {
  const SystemKind kind =
      road.network == ManyNetwork::kOpen ? SystemKind::kOpen : SystemKind::kClosed;
  if (road.entry == ManyEntry::kSheetButton) {
    ManyDesk<FrmRes_Sheet> desk(kind);
    BeginOn(desk, road);
    ChangeOn(desk, road, desk.view->CmdNewD);
    EXPECT_EQ(desk.view->fpSpread1.At(0, 2).tone, Tone::kImposed);
    EXPECT_EQ(desk.view->frame.LblHead.text,
              FormatPattern(HeadOf(desk.test.Row(1).DP), "#,##0.00", desk.desk.separators));
    EXPECT_EQ(desk.TakeLog(), (std::vector<std::string>{"modal FrmChang", "close FrmRes",
                                                        "close FrmChang", "show FrmRes_Sheet"}));
    return desk.test.Bytes();
  }
  const bool menu = road.entry == ManyEntry::kMenu;
  ManyDesk<FrmRes> desk(kind);
  BeginOn(desk, road);
  ChangeOn(desk, road, menu ? desk.view->CmdChangeMany : desk.view->CmdNewD);
  EXPECT_EQ(desk.view->TxtNomiDiam.text, "4");
  EXPECT_EQ(desk.view->TxtNomiDiam.tone, menu ? Tone::kWaiting : Tone::kImposed);
  EXPECT_EQ(desk.view->LblWas.text.find("αναμένει") != std::string::npos, menu);
  if (menu) {
    desk.test.prompter.Expect(304, Answer::kYes);
    Click(*desk.view, desk.view->CmdPump);
    EXPECT_FALSE(desk.test.workspace.Exists(work_file::kRowsBeforeChange));
  }
  return desk.test.Bytes();
}

TEST(RoadsToManyDiameters, LeadToTheSameRowsByTheirOwnCopiesAndQuestions) {
  for (const ManyNetwork network : {ManyNetwork::kClosed, ManyNetwork::kOpen, ManyNetwork::kLone}) {
    std::string by_button;
    for (const ManyEntry entry : {ManyEntry::kButton, ManyEntry::kSheetButton, ManyEntry::kMenu}) {
      const ManyRoad road{network, entry};
      SCOPED_TRACE(NameOf(road));
      const std::string after = RowsAfter(road);
      if (entry == ManyEntry::kButton) by_button = after;
      EXPECT_EQ(after, by_button);
    }
  }
}

// Whatever operation of the disk fails, the rows are those of before or of after, whole, and the
// results stay open.
// Gives whether it went on to that operation, or read of the rows.
bool FailsAt(int number, bool reads, bool menu) {
  ManyDesk<FrmRes> desk;
  desk.Load();
  TestBench& test = desk.test;
  const std::string before = test.Bytes();
  FailingDisk disk(test.work_disk);
  test.workspace = Workspace(disk, TestBench::kProgramFolder, test.outer_disk,
                             TestBench::kLibraryFolder, test.clock);
  if (reads) {
    disk.FailAtRead(number, work_file::kRows);
  } else {
    disk.FailAtOperation(number, FailingDisk::Lasting::kOnce);
  }
  const bool opened =
      desk.Change(menu ? desk.view->CmdChangeMany : desk.view->CmdNewD, {1, 3}, "4");
  const bool reached = (reads ? disk.reads() : disk.operations()) >= number;
  disk.Mend();
  EXPECT_TRUE(opened || !test.prompter.boxes().empty());
  EXPECT_EQ(test.Rows().size(), 6U);
  EXPECT_EQ(test.Bytes(work_file::kFirstRows), before);
  const bool changed = test.Bytes() != before;
  EXPECT_EQ(test.Row(1).NomiDiam.Utf8() == "4", changed);
  EXPECT_EQ(test.Row(3).NomiDiam.Utf8() == "4", changed);
  EXPECT_TRUE(changed || !test.prompter.boxes().empty()) << "the user was told";
  if (changed) test.prompter.Expect(307, Answer::kNo);
  Click(*desk.view, desk.view->CmdBack);
  EXPECT_EQ(test.Bytes(), before);
  return reached;
}

TEST(FailingDiskAtManyDiameters, LosesNoRows) {
  for (const bool menu : {false, true}) {
    for (const bool reads : {false, true}) {
      bool reached = true;
      for (int number = 1; reached; ++number) {
        SCOPED_TRACE(std::string(menu ? "menu" : "button") + (reads ? ", read " : ", operation ") +
                     std::to_string(number));
        reached = FailsAt(number, reads, menu);
      }
    }
  }
}

}  // namespace
}  // namespace kalvo
