#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "form/control.h"
#include "form/key.h"
#include "study/numeric_text.h"

namespace kalvo {

/// Which characters a field takes; any other key becomes nothing. Texts are of the code page, paths
/// of any characters.
enum class KeyFamily { kText, kPath, kSignedDecimal, kUnsignedDecimal, kSignedWhole };

/// A text that the user can type. Its text is UTF-8. What the user does comes in through the
/// members Type... and Press...; what the form does is plain assignment.
class Field : public Control {
 public:
  Field(Form& form, std::string_view name, KeyFamily key_family = KeyFamily::kText);

  std::string text;
  KeyFamily family;
  bool locked = false;   ///< can be read and copied, not changed
  bool refused = false;  ///< marked until the next edit
  bool whole_selected = false;
  std::size_t max_bytes = 0;  ///< characters of the code page; 0: no limit
  Tone tone = Tone::kPlain;
  Control* enter_to = nullptr;      ///< the part that Enter moves to
  std::function<void()> on_enter;   ///< Enter, instead of moving
  std::function<void()> on_change;  ///< after each edit
  std::function<bool()> on_leave;   ///< false: the focus stays

  [[nodiscard]] bool numeric() const {
    return family != KeyFamily::kText && family != KeyFamily::kPath;
  }
  /// True when the user changed the text since the form last showed one.
  [[nodiscard]] bool edited() const { return edited_; }
  [[nodiscard]] bool CanEdit() const { return visible && enabled && !locked; }
  /// `text` without blanks at its ends.
  [[nodiscard]] std::string Trimmed() const;

  /// True when every character of `typed` may stand in the field.
  [[nodiscard]] bool Takes(std::string_view typed, Separators separators) const;

  /// What the user types, as it comes into the field: in decimal numbers both "." and "," are the
  /// decimal separator.
  [[nodiscard]] std::string AsTyped(std::string_view piece, Separators separators) const;

  /// The form shows a text; the user has not edited it.
  void Show(std::string_view shown);
  /// The form shows a number by a pattern (by none: its default text) and keeps its whole value
  /// until the user edits it.
  void ShowNumber(float value, std::string_view pattern, Separators separators);
  /// The number in the field: the whole value shown, or what the edited text reads as.
  [[nodiscard]] double Number(Separators separators) const;

  /// The user may leave the field as it is: at most one decimal separator, and the form agrees.
  enum class Leave { kYes, kNo, kTooManySeparators };
  [[nodiscard]] Leave TryLeave(Separators separators);

  /// The user's edit has made the text this. False, and nothing changes, when a character is not
  /// the field's or the text is too long.
  bool TypeText(std::string_view given, Separators separators);

  /// The focus comes: a numeric field loses its thousands separators, and the whole text is
  /// selected.
  void Enter(Separators separators);

 private:
  [[nodiscard]] std::string Edited(std::string_view typed, Separators separators) const;

  bool edited_ = false;
  float value_ = 0;
  bool has_value_ = false;
};

}  // namespace kalvo
