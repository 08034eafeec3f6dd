#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "form/choice.h"
#include "form/command.h"
#include "form/desk.h"
#include "form/editable_grid.h"
#include "form/entry_list.h"
#include "form/field.h"
#include "form/grid.h"
#include "form/list.h"

namespace kalvo {

/// A screen without a toolkit: named parts and what happens to them. A front-end shows the parts,
/// hands in what the user does, and after each action paints what has changed. Tests do the same.
class Form {
 public:
  explicit Form(Desk& shared_desk) : desk(shared_desk), bench(shared_desk.bench) {}
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;
  virtual ~Form() = default;

  std::string title;

  /// It is about to be shown for the first time.
  virtual void Load() {}
  /// It came to the front.
  virtual void Activate() {}
  /// The window's close box. True: the form is closed then.
  virtual bool MayClose() { return true; }
  /// Each key before the part with the focus sees it. True: it is used up.
  virtual bool FirstKey(const Key& /*key*/) { return false; }
  /// A key that neither the field with the focus nor a command took. True: it is used up.
  virtual bool OtherKey(const Key& /*key*/) { return false; }
  /// Brings parts that follow from the study up to date; called before each painting.
  virtual void Derive() {}

  /// Nothing happens at the moment: called several times a second, with the seconds since the
  /// user's last action. True: what is shown has changed.
  virtual bool Idle(double /*quiet_seconds*/) { return false; }
  /// The user has gone to another program.
  virtual void LostFocus() {}

  [[nodiscard]] const std::vector<Control*>& controls() const { return controls_; }
  /// The part of that name, nullptr when there is none.
  [[nodiscard]] Control* Find(std::string_view name) const;
  /// The same as a part of its kind; it must be there.
  template <typename Part>
  [[nodiscard]] Part& Get(std::string_view name) const {
    return dynamic_cast<Part&>(*Find(name));
  }

  /// A command that runs by itself when the form has been shown for so long.
  Command* runs_by_itself = nullptr;
  double after_seconds = 0;

  /// Menus of the bar from left to right, and the one that pops up under the right mouse button.
  std::vector<Menu> menus;
  Menu popup;

  /// The part with the focus.
  [[nodiscard]] Control* focus() const { return focus_; }
  /// Grows whenever the form itself moves the focus: the front-end follows then.
  [[nodiscard]] int focus_moves() const { return focus_moves_; }
  /// Puts the focus there.
  void Focus(Control& part);

  /// The user moves the focus by mouse or Tab. False: the field that had it keeps it.
  bool MoveFocus(Control* part);
  /// The user runs a command. It does not run when the field with the focus must not be left.
  void Run(Command& command);
  /// The user presses a key. True: it is used up; otherwise it edits the text in focus as usual.
  bool Press(const Key& key);
  /// An action ended in an exception that nobody caught: it is written down and the user is told.
  void TellBroken(const std::exception& cause);
  /// The same for a painting.
  void TellUnpainted(const std::exception& cause);
  /// The user types or pastes into a field; false: it stays as it was. A refusal is heard.
  bool Type(Field& field, const Edit& edit);

 protected:
  Desk& desk;
  Workbench& bench;

 private:
  friend class Control;

  void TakeFocus(Control* part);
  /// The editable grid that has the focus itself or by its editor.
  EditableGrid* FocusedGrid() const;
  /// An editor that has closed gives the focus to its grid.
  void LeaveClosedEditor();
  bool MayLeaveFocus();
  /// Enter on a part that does something when it is meant.
  bool PressPart(Control* part);
  bool PressInField(Field& field, const Key& key);
  Command* CommandOf(const Key& key) const;

  std::vector<Control*> controls_;
  Control* focus_ = nullptr;
  int focus_moves_ = 0;
};

/// Makes a form of the desk; screens are a table of these.
using FormFactory = std::unique_ptr<Form> (*)(Desk& desk);

template <typename FormType>
std::unique_ptr<Form> MakeForm(Desk& desk) {
  return std::make_unique<FormType>(desk);
}

}  // namespace kalvo
