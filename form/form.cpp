#include "form/form.h"

#include <algorithm>

#include "form/tell.h"
#include "study/message_codes.h"

namespace kalvo {

Control::Control(Form& form, std::string_view name) : name_(name) {
  form.controls_.push_back(this);
}

Control* Form::Find(std::string_view name) const {
  const auto found = std::ranges::find_if(
      controls_, [name](const Control* control) { return control->name() == name; });
  return found == controls_.end() ? nullptr : *found;
}

void Form::TakeFocus(Control* part) {
  if (auto* left = dynamic_cast<Field*>(focus_)) left->ForgetRefusal();
  focus_ = part;
  if (auto* field = dynamic_cast<Field*>(part)) field->Enter(desk.separators);
}

void Form::Focus(Control& part) {
  TakeFocus(&part);
  ++focus_moves_;
}

bool Form::MayLeaveFocus() {
  auto* field = dynamic_cast<Field*>(focus_);
  if (field == nullptr) return true;
  const Field::Leave leave = field->TryLeave(desk.separators);
  if (leave == Field::Leave::kYes) return true;
  if (leave == Field::Leave::kTooManySeparators) bench.Show(message::kTooManySeparators);
  Focus(*field);
  return false;
}

bool Form::MoveFocus(Control* part) {
  if (part == focus_) return true;
  const int moves = focus_moves_;
  const auto* command = dynamic_cast<const Command*>(part);
  const bool freely = command != nullptr && command->leaves_freely;
  if (!freely && !MayLeaveFocus()) return false;
  if (moves != focus_moves_) return false;  // leaving sent the focus elsewhere
  TakeFocus(part);
  return true;
}

void Form::Run(Command& command) {
  if (!command.leaves_freely && focus_ != &command && !MayLeaveFocus()) return;
  LeaveClosedEditor();
  if (!command.sounds_itself) desk.Click();
  if (command.action) command.action();
}

EditableGrid* Form::FocusedGrid() const {
  for (Control* control : controls_) {
    auto* grid = dynamic_cast<EditableGrid*>(control);
    if (grid != nullptr && (focus_ == grid || focus_ == &grid->editor)) return grid;
  }
  return nullptr;
}

void Form::LeaveClosedEditor() {
  EditableGrid* grid = FocusedGrid();
  if (grid != nullptr && focus_ != grid && !grid->editing()) Focus(*grid);
}

void Form::TellBroken(const std::exception& cause) { kalvo::TellBroken(bench, cause); }

void Form::TellUnpainted(const std::exception& cause) {
  kalvo::TellBroken(bench, cause, kNotPainted);
}

bool Form::Type(Field& field, const Edit& edit) {
  const int refusals = field.refusals();
  const bool taken = field.Type(edit, desk.separators);
  if (field.refusals() != refusals) desk.sound.Beep();
  return taken;
}

Command* Form::CommandOf(const Key& key) const {
  for (Control* control : controls_) {
    auto* command = dynamic_cast<Command*>(control);
    if (command != nullptr && command->visible && std::ranges::count(command->keys, key) != 0) {
      return command;
    }
  }
  return nullptr;
}

bool Form::PressInField(Field& field, const Key& key) {
  if (key == Plain(KeyCode::kEnter)) {
    if (field.on_enter) {
      field.on_enter();
      return true;
    }
    if (field.enter_to != nullptr) {
      if (MoveFocus(field.enter_to)) Focus(*field.enter_to);
      return true;
    }
    return false;
  }
  if (!key.IsText() || key.character == 0) return false;
  const int refusals = field.refusals();
  const bool taken = field.TakesKey(key.character, desk.separators);
  if (field.refusals() != refusals) desk.sound.Beep();
  return !taken;
}

bool Form::PressPart(Control* part) {
  if (auto* command = dynamic_cast<Command*>(part)) {
    Run(*command);
    return true;
  }
  if (auto* list = dynamic_cast<List*>(part); list != nullptr && list->on_activate) {
    list->Activate(list->selected);
    return true;
  }
  if (auto* grid = dynamic_cast<Grid*>(part); grid != nullptr && grid->on_activate) {
    grid->on_activate();
    return true;
  }
  return false;
}

bool Form::Press(const Key& key) {
  if (FirstKey(key)) return true;
  if (EditableGrid* grid = FocusedGrid()) {
    const EditableGrid::KeyEnd end = grid->Press(key);
    if (end != EditableGrid::KeyEnd::kNotMine) return end == EditableGrid::KeyEnd::kTaken;
  }
  if (auto* grid = dynamic_cast<Grid*>(focus_); grid != nullptr && grid->PressToSelect(key)) {
    return true;
  }
  if (auto* list = dynamic_cast<EntryList*>(focus_); list != nullptr && list->Press(key)) {
    return true;
  }
  if (auto* field = dynamic_cast<Field*>(focus_)) {
    if (PressInField(*field, key)) return true;
    if (field->CanEdit() && EditsText(key)) return false;
  }
  if (key == Plain(KeyCode::kEnter) && PressPart(focus_)) return true;
  if (Command* command = CommandOf(key)) {
    Run(*command);
    return true;
  }
  return OtherKey(key);
}

}  // namespace kalvo
