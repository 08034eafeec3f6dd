#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "entry/sections/section_sitting.h"
#include "entry/sheet/frm_data_sheet.h"
#include "tests/support/test_desk.h"

namespace kalvo {

/// The smallest networks with an emitter, and with two outlets.
inline const std::vector<std::string_view> kLoop = {"ANT/1 5m", "1/2 5m 300l/h soma 800mm",
                                                    "2/ANT 5m"};
inline const std::vector<std::string_view> kTree = {"1/ANT 5m", "2/1 5m 300l/h soma 2m",
                                                    "3/1 5m 200l/h soma 2m"};

/// The sheet of a study with a title and general data, driven by keys.
class SheetUser {
 public:
  explicit SheetUser(SystemKind kind = SystemKind::kClosed,
                     const std::vector<std::string_view>& network = {})
      : user(kind) {
    Study& study = user.test.study;
    if (!network.empty()) user.test.PutNetwork(network);
    study.study_title = "Γραφεία";
    study.MeanTemp = 80;
    study.MeanVel = 0.75F;
    Open();
  }

  /// As after a crash: what was kept goes on.
  void Open() {
    user.desk.screens.open_kept_sheet = true;
    OpenFromMenu();
  }
  void OpenFromMenu() {
    form.reset();
    user.desk.screens.section_sitting.reset();  // of another run
    form = std::make_unique<FrmData_Sheet>(user.desk);
    form->Load();
    form->Activate();
    form->Derive();
  }

  void Press(const Key& key) {
    PressKey(*form, key);
    form->Derive();
  }
  void Press(KeyCode code) { Press(Plain(code)); }

  // Cells of a row, parted by blanks; "-" leaves a cell as it is. The cursor goes on by Enter.
  void TypeCells(std::string_view cells) {
    std::string word;
    for (const char c : std::string(cells) + " ") {
      if (c != ' ') {
        word += c;
        continue;
      }
      if (word != "-") {
        for (std::string_view rest = word; !rest.empty();) Press(Typed(TakeCharacter(rest)));
      }
      Press(KeyCode::kEnter);
      word.clear();
    }
  }

  void GoTo(int row, int column) { form->fpSpread1.GoTo({row, column}); }

  [[nodiscard]] std::string Line(int row) const {
    std::string line;
    for (int column = 0; column < kSheetColumns; ++column) {
      if (column > 0) line += "|";
      line += form->fpSpread1.At(row, column).text;
    }
    return line.substr(0, line.find_last_not_of('|') + 1);
  }

  TestDesk user;
  std::unique_ptr<FrmData_Sheet> form;
};

}  // namespace kalvo
