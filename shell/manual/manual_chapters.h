#pragma once

#include <span>
#include <string_view>

#include "shell/manual/manual_book.h"

namespace kalvo {

/// Where the manual speaks of a screen: a chapter by its name and a heading letter for letter.
struct ScreenChapter {
  std::string_view screen;
  std::string_view chapter;
  std::string_view heading;
};

/// One entry for each screen.
std::span<const ScreenChapter> ScreenChapters();

/// The place of that screen; the contents for one that has none.
ManualPlace PlaceOfScreen(std::string_view screen);

/// The place of a numbered message, by its number as a heading; 0: the chapter of messages.
ManualPlace PlaceOfMessage(int number);

inline constexpr std::string_view kMessagesChapter = "15-messages";

}  // namespace kalvo
