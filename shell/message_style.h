#pragma once

#include <cstddef>
#include <span>

#include "study/prompter.h"

namespace kalvo {

enum class BoxIcon { kNone, kStop, kQuestion, kExclamation, kInformation };

/// What a box's style number asks a front-end to draw.
struct BoxStyle {
  BoxIcon icon = BoxIcon::kNone;
  std::span<const Answer> buttons;  ///< left to right; OK is the button that answers kNone
  std::size_t default_button = 0;   ///< index into `buttons`

  [[nodiscard]] constexpr Answer DefaultAnswer() const { return buttons[default_button]; }
};

inline constexpr Answer kOkButton[] = {Answer::kNone};
inline constexpr Answer kYesNoButtons[] = {Answer::kYes, Answer::kNo};
inline constexpr Answer kYesNoCancelButtons[] = {Answer::kYes, Answer::kNo, Answer::kCancel};

constexpr std::span<const Answer> ButtonsOf(int style) {
  switch (style & 0x0F) {
    case 3:
      return kYesNoCancelButtons;
    case 4:
      return kYesNoButtons;
    default:
      return kOkButton;
  }
}

constexpr BoxIcon IconOf(int style) {
  switch (style & 0xF0) {
    case 16:
      return BoxIcon::kStop;
    case 32:
      return BoxIcon::kQuestion;
    case 48:
      return BoxIcon::kExclamation;
    case 64:
      return BoxIcon::kInformation;
    default:
      return BoxIcon::kNone;
  }
}

/// A style is a sum: the buttons (0, 3 or 4), the icon (16, 32, 48 or 64), and 256 for each button
/// that stands before the default one. A default beyond the last button is the last button.
constexpr BoxStyle StyleOf(int style) {
  const std::span<const Answer> buttons = ButtonsOf(style);
  const std::size_t wanted = static_cast<std::size_t>(style & 0xF00) / 256;
  return {IconOf(style), buttons, wanted < buttons.size() ? wanted : buttons.size() - 1};
}

}  // namespace kalvo
