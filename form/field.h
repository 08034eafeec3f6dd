#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "form/control.h"
#include "form/edit.h"

namespace kalvo {

/// Which characters a field takes; any other key becomes nothing. Texts are of the code page, paths
/// of any characters.
enum class KeyFamily {
  kText,
  kPath,
  kSignedDecimal,
  kUnsignedDecimal,
  kSignedWhole,
  kUnsignedWhole
};

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
  bool highlight_dropped = false;  ///< the front-end takes the highlight off the text
  bool one_separator = true;       ///< a number with more is not left
  bool strips_thousands = true;    ///< a number loses thousands separators when it gets the focus
  std::size_t max_bytes = 0;       ///< characters of the code page; 0: no limit
  Tone tone = Tone::kPlain;
  Control* enter_to = nullptr;      ///< the part that Enter moves to
  std::function<void()> on_enter;   ///< Enter, instead of moving
  std::function<void()> on_change;  ///< after each edit
  std::function<bool()> on_leave;   ///< false: the focus stays
  /// Why a text shall not be typed or pasted although its characters may; empty: it may.
  std::function<std::string(std::string_view)> forbids;

  [[nodiscard]] bool numeric() const {
    return family != KeyFamily::kText && family != KeyFamily::kPath;
  }
  /// True when the user changed the text since the form last showed one.
  [[nodiscard]] bool edited() const { return edited_; }
  [[nodiscard]] bool CanEdit() const { return visible && enabled && !locked; }
  /// `text` without blanks at its ends.
  [[nodiscard]] std::string Trimmed() const;

  /// The user presses the key of a character. False: it becomes nothing; a text says why.
  bool TakesKey(char32_t character, Separators separators);

  /// Why the last edit was not taken, or not whole; empty when it was. It is shown until the next
  /// edit, or until the field is left.
  [[nodiscard]] const std::string& refusal() const { return refusal_; }
  /// Grows with each refusal, of the same kind too.
  [[nodiscard]] int refusals() const { return refusals_; }
  void ForgetRefusal() { refusal_.clear(); }

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

  /// The user types or pastes. In decimal numbers both "." and "," come in as the decimal
  /// separator. In a text line ends at the ends of the piece go, those inside become blanks,
  /// accents go into their letters, and what has no room is cut at the right. False, and nothing
  /// changes, when the piece has a character that is not the field's, or no room at all.
  bool Type(const Edit& edit, Separators separators);

  /// The focus comes: a numeric field loses its thousands separators, unless it keeps them, and the
  /// whole text is selected.
  void Enter(Separators separators);

 private:
  /// The first character that may not stand in the field.
  [[nodiscard]] std::optional<char32_t> FirstAlien(std::string_view typed,
                                                   Separators separators) const;
  /// Always false.
  bool Refuse(std::string why);
  void TakeText(std::string typed);

  bool edited_ = false;
  float value_ = 0;
  bool has_value_ = false;
  std::string refusal_;
  int refusals_ = 0;
};

}  // namespace kalvo
