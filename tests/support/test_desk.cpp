#include "tests/support/test_desk.h"

#include <algorithm>

#include "study/codepage.h"

namespace kalvo {

NotedNavigator::~NotedNavigator() {
  for (const Expected& expected : expected_) {
    ADD_FAILURE() << "never shown: " << expected.screen;
  }
}

void NotedNavigator::Expect(std::string_view screen, std::function<void()> use) {
  expected_.push_back({std::string(screen), std::move(use)});
}

void NotedNavigator::Show(std::string_view screen) {
  log.push_back("show " + std::string(screen));
  open_.emplace_back(screen);
}

void NotedNavigator::ShowModal(std::string_view screen) {
  log.push_back("modal " + std::string(screen));
  if (on_modal) return on_modal(screen);
  if (expected_.empty() || expected_.front().screen != screen) {
    ADD_FAILURE() << "unexpected screen: " << screen;
    return;
  }
  const std::function<void()> use = std::move(expected_.front().use);
  expected_.pop_front();
  use();
}

void NotedNavigator::Close(std::string_view screen) {
  log.push_back("close " + std::string(screen));
  std::erase(open_, screen);
}

void NotedNavigator::Hide(std::string_view screen) { log.push_back("hide " + std::string(screen)); }

bool NotedNavigator::IsOpen(std::string_view screen) const {
  return std::ranges::count(open_, screen) != 0;
}

void TypeInto(Form& form, Field& field, std::string_view text) {
  form.MoveFocus(&field);
  form.Type(field, {});
  while (!text.empty()) {
    const char32_t character = TakeCharacter(text);
    if (form.Press(Typed(character))) continue;
    std::string typed;
    AppendUtf8(typed, character);
    form.Type(field, {field.text, typed, {}});
  }
}

void PressKey(Form& form, const Key& key) {
  const bool taken = form.Press(key);
  auto* field = dynamic_cast<Field*>(form.focus());
  if (taken || field == nullptr) return;
  const bool deletes = key.code == KeyCode::kBackspace || key.code == KeyCode::kDelete;
  if (deletes) form.Type(*field, {});
  if (!key.IsText() || key.character == 0) return;
  std::string piece;
  AppendUtf8(piece, key.character);
  form.Type(*field, {field->whole_selected ? "" : field->text, piece, ""});
}

bool PasteInto(Form& form, Field& field, std::string_view text) {
  form.MoveFocus(&field);
  return form.Type(field, {{}, text, {}});
}

void Click(Form& form, Command& command) {
  if (form.MoveFocus(&command)) form.Run(command);
}

}  // namespace kalvo
