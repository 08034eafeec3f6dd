#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "engine/calculation_command.h"
#include "entry/winter/frm_winter.h"
#include "tests/support/test_desk.h"

namespace kalvo {

/// The winter form of a study that is calculated for summer, driven by keys. Its emitters are in
/// sections 2 (300 l/h, 500 mm) and 3 (200 l/h, 400 mm).
class WinterUser {
 public:
  explicit WinterUser(const std::vector<std::string_view>& network = {
                          "ANT/1 5m plant", "1/2 5m soma 300l/h 500mm", "1/3 5m soma 200l/h 400mm",
                          "2/4 5m", "3/4 5m", "4/ANT 5m"}) {
    Put(network);
    Open();
  }

  /// The study is of that network from now on, calculated; winter's files stay.
  void Put(const std::vector<std::string_view>& network) {
    user.test.PutNetwork(network);
    EXPECT_EQ(kalvo::Calculate(user.test.bench, Method::kFlowOnly), CommandEnd::kCalculated);
    user.test.study.results_valid = true;
    user.test.study.unsaved_changes = false;
    user.test.study.study_title = "Γραφεία";
  }

  /// From here on the program works on that disk, over the one in memory, for that user.
  void WorkOn(Disk& disk) { WorkOn(disk, test().prompter); }
  void WorkOn(Disk& disk, Prompter& prompter) {
    workspace_ = std::make_unique<Workspace>(disk, TestBench::kProgramFolder, test().outer_disk,
                                             TestBench::kLibraryFolder, test().clock);
    bench_ = std::make_unique<Workbench>(test().study, *workspace_, test().pipes, prompter);
    desk_ = std::make_unique<Desk>(Desk{*bench_, user.navigator, user.sound, user.viewer,
                                        user.clipboard, user.printer, user.desk.separators});
    desk_->data_folder = kStudies;
  }
  [[nodiscard]] Desk& desk() { return desk_ ? *desk_ : user.desk; }

  void Open() {
    form = std::make_unique<FrmWinter>(desk());
    form->Load();
    form->Activate();
    form->Derive();
  }

  void Press(const Key& key) {
    PressKey(*form, key);
    form->Derive();
  }
  void Press(KeyCode code) { Press(Plain(code)); }
  /// Types a text key by key where the keyboard is.
  void Type(std::string_view text) {
    while (!text.empty()) Press(Typed(TakeCharacter(text)));
  }
  void Run(Command& command) {
    form->Run(command);
    form->Derive();
  }
  void GoTo(int row, int column) {
    form->MoveFocus(&form->fpSpread1);
    form->fpSpread1.GoTo({row, column});
  }

  /// Lengths, flows and drops of the cells, as they are shown.
  [[nodiscard]] std::string Cells() const { return CellsOf(*form); }
  [[nodiscard]] static std::string CellsOf(const FrmWinter& form) {
    std::string text;
    for (int row = 0; row < form.fpSpread1.row_count(); ++row) {
      if (row > 0) text += " | ";
      for (int column = 4; column < 7; ++column) {
        if (column > 4) text += " ";
        const std::string& cell = form.fpSpread1.At(row, column).text;
        text += cell.empty() ? "-" : cell;
      }
    }
    return text;
  }

  /// Values that run well, down the columns of flows and of drops.
  void TypeValues() {
    GoTo(0, 5);
    for (const char* value : {"250", "150", "210,5", "160"}) {
      Type(value);
      Press(KeyCode::kEnter);
    }
  }
  /// The user closes the form and answers its question.
  void Close(Answer answer) {
    test().prompter.Expect("  ! !   ΠΡΟΣΟΧΗ   ! ! ", answer);
    Press(KeyCode::kEscape);
  }
  [[nodiscard]] std::string Box() {
    return test().prompter.boxes().empty() ? "" : Joined(test().prompter.boxes().back().lines);
  }
  [[nodiscard]] bool IsKept() { return test().workspace.Exists(work_file::kWinterInWork); }
  [[nodiscard]] GridPlace Current() const { return form->fpSpread1.current(); }

  [[nodiscard]] TestBench& test() { return user.test; }

  TestDesk user;

 private:
  std::unique_ptr<Workspace> workspace_;
  std::unique_ptr<Workbench> bench_;
  std::unique_ptr<Desk> desk_;

 public:
  std::unique_ptr<FrmWinter> form;
};

}  // namespace kalvo
