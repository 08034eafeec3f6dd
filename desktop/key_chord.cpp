#include "desktop/key_chord.h"

#include "desktop/key_event.h"

namespace kalvo {
namespace {

constexpr Key kBoth = {KeyCode::kCharacter, 0, false, true, true};

// With Shift held the Alt key may report itself as Meta.
bool IsAlt(const QKeyEvent& event) {
  return event.key() == Qt::Key_Alt || event.key() == Qt::Key_Meta;
}

}  // namespace

bool KeyChord::HoldsBack(const QKeyEvent& press) {
  const bool of_chord = IsAlt(press) || press.key() == Qt::Key_Shift;
  both_pressed_ = of_chord && (both_pressed_ || KeyOf(press) == kBoth);
  if (KeyOf(press).ctrl) both_pressed_ = false;
  return both_pressed_;
}

std::optional<Key> KeyChord::Released(const QKeyEvent& release) {
  if (!both_pressed_) return std::nullopt;
  Qt::KeyboardModifiers held = release.modifiers();
  if (IsAlt(release)) held &= ~Qt::AltModifier;
  if (release.key() == Qt::Key_Shift) held &= ~Qt::ShiftModifier;
  if (held.testFlag(Qt::AltModifier) || held.testFlag(Qt::ShiftModifier)) return std::nullopt;
  both_pressed_ = false;
  return kBoth;
}

}  // namespace kalvo
