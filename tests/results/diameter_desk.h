#pragma once

#include <optional>

#include "results/frm_avai_d.h"
#include "tests/results/view_desk.h"

namespace kalvo {

/// Results with a view, and beside it the form, once a command of the view has opened it.
template <typename View>
struct DiameterDesk : ViewDesk<View> {
  using ViewDesk<View>::ViewDesk;
  using ResultsDesk::desk;
  using ResultsDesk::navigator;
  using ResultsDesk::TakeLog;
  using ViewDesk<View>::view;

  /// Gives whether the command asked for the form; it is open then.
  bool OpenBy(Command& command) {
    TakeLog();
    Click(*view, command);
    const std::vector<std::string> log = TakeLog();
    if (log.empty() || log.back() != "show FrmAvaiD") return false;
    if (!form) {
      form.emplace(desk);
      form->Load();
    }
    form->Activate();
    form->Derive();
    return desk.screens.ChangeFormOpen;
  }
  void Replace(std::string_view diameter) {
    form->fpSpread1.MoveTo({RowOf(diameter), 0});
    EXPECT_TRUE(form->Press(Plain(KeyCode::kEnter)));
    form->Derive();
  }
  /// As in the window, which is gone once it was closed.
  void Bury() {
    if (!desk.screens.ChangeFormOpen) form.reset();
  }
  [[nodiscard]] int RowOf(std::string_view diameter) const {
    for (int row = 0; row < form->fpSpread1.row_count(); ++row) {
      if (form->fpSpread1.At(row, 0).text == diameter) return row;
    }
    ADD_FAILURE() << "no diameter " << diameter;
    return 0;
  }
  [[nodiscard]] std::string Chosen() const {
    const int row = form->fpSpread1.current().row;
    return row < 0 ? "(none)" : form->fpSpread1.At(row, 0).text;
  }

  std::optional<FrmAvaiD> form;
};

}  // namespace kalvo
