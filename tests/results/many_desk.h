#pragma once

#include <gtest/gtest.h>

#include "results/frm_chang.h"
#include "tests/results/view_desk.h"

namespace kalvo {

/// Results with a view, and over it the form, once a command of the view has opened it.
template <typename View>
struct ManyDesk : ViewDesk<View> {
  using ViewDesk<View>::ViewDesk;
  using ResultsDesk::desk;
  using ResultsDesk::navigator;
  using ResultsDesk::TakeLog;
  using ViewDesk<View>::view;

  /// The user presses a command and does this in the form that it shows. Gives whether it did.
  template <typename Use>
  bool Within(Command& command, const Use& use) {
    bool shown = false;
    navigator.on_modal = [&](std::string_view name) {
      EXPECT_EQ(name, "FrmChang");
      shown = true;
      FrmChang form(desk);
      form.Load();
      form.Activate();
      form.Derive();
      use(form);
    };
    TakeLog();
    Click(*view, command);
    navigator.on_modal = nullptr;
    return shown;
  }
  /// The user replaces the diameter of these sections and leaves.
  bool Change(Command& command, const std::vector<int>& sections, std::string_view diameter) {
    return Within(command, [&](FrmChang& form) {
      Replace(form, sections, diameter);
      EXPECT_TRUE(form.Press(Plain(KeyCode::kEscape)));
    });
  }

  static void Choose(FrmChang& form, std::string_view diameter) {
    for (int row = 0; row < form.fpSpread2.row_count(); ++row) {
      if (form.fpSpread2.At(row, 0).text == diameter) form.fpSpread2.MoveTo({row, 0});
    }
    form.Derive();
  }
  static void Select(FrmChang& form, std::vector<int> sections) {
    for (int& section : sections) --section;
    form.fpSpread1.TakeSelection(sections);
    form.Derive();
  }
  static void Replace(FrmChang& form, const std::vector<int>& sections, std::string_view diameter) {
    Select(form, sections);
    Choose(form, diameter);
    EXPECT_TRUE(form.Press(Ctrl(KeyCode::kEnter)));
    form.Derive();
  }
  [[nodiscard]] std::string Bracketed(float mm) const {
    return "[ " + FormatNumber(mm, desk.separators) + " ]";
  }
};

}  // namespace kalvo
