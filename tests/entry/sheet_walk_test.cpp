#include <gtest/gtest.h>

#include "entry/sections/sheet_columns.h"
#include "study/kept_sheet.h"
#include "study/sheet_file.h"
#include "tests/entry/sheet_user.h"
#include "tests/support/walk.h"

namespace kalvo {
namespace {

// A user without a plan: any keys, commands, pastes, in any order.
class Wanderer {
 public:
  Wanderer(SheetUser& sheet, unsigned seed) : sheet_(sheet), dice_(seed) {}

  int Below(int n) { return dice_.Below(n); }

  // A text that the cell refuses is given up.
  void LeaveCell() {
    EditableGrid& grid = sheet_.form->fpSpread1;
    if (!grid.Accept()) grid.GiveUp();
  }

  void Act() {
    FrmData_Sheet& form = *sheet_.form;
    if (form.focus() == &form.Cmd_Exit) form.Focus(form.fpSpread1);
    switch (Below(12)) {
      case 0:
        return Delete();
      case 1:
        return Paste();
      case 2:
        return sheet_.Press(ShiftTyped(static_cast<char32_t>(U'A' + Below(20))));
      case 3:
        return sheet_.GoTo(Below(sheet_.form->draft().Count() + 3), Below(kSheetColumns));
      case 4:
        return RunCommand();
      case 5:
      case 6:
        return sheet_.Press(kMoves[static_cast<std::size_t>(Below(kMoves.size()))]);
      default:
        for (int i = Below(5); i >= 0; --i) {
          sheet_.Press(
              Typed(kTyped[static_cast<std::size_t>(Below(static_cast<int>(kTyped.size())))]));
        }
        if (Below(2) == 0) sheet_.Press(KeyCode::kEnter);
    }
  }

 private:
  struct Keys : std::vector<Key> {
    using std::vector<Key>::vector;
    [[nodiscard]] int size() const { return static_cast<int>(std::vector<Key>::size()); }
  };

  void Delete() {
    FrmData_Sheet& form = *sheet_.form;
    LeaveCell();
    form.Focus(form.fpSpread1);
    if (form.fpSpread1.block().top < form.draft().Count()) {
      sheet_.user.test.prompter.Expect(120, Below(2) == 0 ? Answer::kYes : Answer::kNo);
    }
    sheet_.Press(Ctrl(KeyCode::kDelete));
  }

  void Paste() {
    std::string text;
    for (int rows = Below(6); rows >= 0; --rows) {
      for (int cells = Below(18); cells >= 0; --cells) {
        text += kPasted[static_cast<std::size_t>(Below(static_cast<int>(kPasted.size())))];
        text += cells > 0 ? "\t" : (Below(2) == 0 ? "\n" : "\r\n");
      }
    }
    sheet_.user.desk.clipboard.SetText(text);
    sheet_.Press(Ctrl('V'));
  }

  void RunCommand() {
    FrmData_Sheet& form = *sheet_.form;
    Command* const commands[] = {&form.Cmd_InsRow,   &form.Cmd_DelCell,  &form.CmdSame,
                                 &form.Cmd_ANT1,     &form.Cmd_ANT2,     &form.Cmd_DelANT,
                                 &form.Cmd_Cut,      &form.Cmd_Fill,     &form.CmdCopyToClpbrd,
                                 &form.Cmd_Save,     &form.Cmd_Retrieve, &form.Cmd_Find,
                                 &form.Cmd_FindNext, &form.Cmd_Headers};
    form.Run(*commands[Below(static_cast<int>(std::size(commands)))]);
    form.Derive();
  }

  inline static const Keys kMoves = {Plain(KeyCode::kLeft),
                                     Plain(KeyCode::kRight),
                                     Plain(KeyCode::kUp),
                                     Plain(KeyCode::kDown),
                                     Shift(KeyCode::kDown),
                                     Shift(KeyCode::kRight),
                                     Ctrl(KeyCode::kEnd),
                                     Ctrl(KeyCode::kHome),
                                     CtrlShift(KeyCode::kEnd),
                                     Plain(KeyCode::kPageDown),
                                     Plain(KeyCode::kTab),
                                     Shift(KeyCode::kTab),
                                     Plain(KeyCode::kF2),
                                     Plain(KeyCode::kEscape),
                                     Plain(KeyCode::kDelete),
                                     Plain(KeyCode::kBackspace),
                                     Ctrl('Z'),
                                     Ctrl('Z'),
                                     Ctrl('Y'),
                                     Ctrl('L'),
                                     Ctrl('D'),
                                     Ctrl('A'),
                                     Plain(KeyCode::kF7),
                                     Plain(KeyCode::kF6)};
  inline static const std::u32string kTyped = U"0123456789,.-aΑαxAN ";
  inline static const std::vector<std::string> kPasted = {
      "",   "1",    "2",   "12", "ANT",  "ΑΝΤ",  "/",        "1,5",   "2.5",
      "-3", "x",    "999", "0",  "  7 ", "ABCD", "\"a\nb\"", "32768", std::string(400, '9'),
      "日", "1.2.3"};

  SheetUser& sheet_;
  Dice dice_;
};

std::vector<std::string> LinesOf(const std::vector<SheetRow>& rows) {
  std::vector<std::string> lines;
  for (const SheetRow& row : rows) {
    std::string& line = lines.emplace_back(std::to_string(row.origin));
    line += "<" + std::string(row.origin_name.bytes()) + ">";
    for (const std::string& text : row.texts) line += "|" + text;
  }
  return lines;
}

SheetImage Kept(const SheetUser& sheet) {
  const Workspace& workspace = sheet.user.test.workspace;
  const auto bytes = workspace.Read(work_file::kSheetInWork);
  if (!bytes) return {};
  auto image = DecodeSheet(*bytes, workspace.Path(work_file::kSheetInWork), ',');
  EXPECT_TRUE(image.ok());
  return image ? *image : SheetImage{};
}

TEST(SheetWalk, LosesNothingAndGoesBackToItsStart) {
  for (const SystemKind kind : {SystemKind::kClosed, SystemKind::kOpen}) {
    const bool open = kind == SystemKind::kOpen;
    SheetUser sheet(kind, open ? std::vector<std::string_view>{"1/ANT 5m", "2/1 5m", "3/1 4m"}
                               : std::vector<std::string_view>{"ANT/1 5m", "1/2 5m", "2/ANT 4m"});
    const std::vector<SheetRow> first = sheet.form->draft().Image().rows;
    Wanderer user(sheet, open ? 11 : 5);
    for (int step = 0, steps = WalkSteps(800); step < steps; ++step) {
      user.Act();
      if (step % 20 != 0) continue;
      user.LeaveCell();
      sheet.form->Idle(0.5);
      const std::vector<SheetRow> rows = sheet.form->draft().Image().rows;
      const std::vector<SheetRow> kept = rows == first ? rows : Kept(sheet).rows;
      ASSERT_EQ(LinesOf(kept), LinesOf(rows)) << step;
      ASSERT_LE(sheet.form->draft().Count(), kMostSections);
    }
    user.LeaveCell();
    const std::vector<SheetRow> last = sheet.form->draft().Image().rows;
    sheet.form->Focus(sheet.form->fpSpread1);
    while (sheet.form->draft().history().CanUndo()) sheet.Press(Ctrl('Z'));
    EXPECT_EQ(LinesOf(sheet.form->draft().Image().rows), LinesOf(first));
    sheet.form->Idle(0.5);
    EXPECT_FALSE(sheet.user.test.workspace.Exists(work_file::kSheetInWork));
    while (sheet.form->draft().history().CanRedo()) sheet.Press(Ctrl('Y'));
    EXPECT_EQ(LinesOf(sheet.form->draft().Image().rows), LinesOf(last));
  }
}

}  // namespace
}  // namespace kalvo
