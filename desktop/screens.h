#pragma once

#include <QWidget>
#include <span>

#include "form/form.h"

namespace kalvo {

/// One screen of the program: the form behind it and the window before it.
struct Screen {
  std::string_view name;
  FormFactory make;
  void (*set_up)(QWidget& window);  ///< puts the designed parts into an empty window
  std::string_view beside = {};     ///< the screen beside whose window it opens
  std::string_view or_beside = {};  ///< or this one
  bool level = false;               ///< as high as that window, which stays where it is
};

/// All screens.
std::span<const Screen> Screens();

/// The screen of that name, nullptr when there is none.
const Screen* FindScreen(std::string_view name);

}  // namespace kalvo
