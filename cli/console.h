#pragma once

#include <iostream>
#include <string>
#include <string_view>

#include "study/numeric_text.h"

namespace kalvo {

/// Where a command writes and how: results to `out`, messages to `err`.
struct Console {
  std::ostream& out;
  std::ostream& err;
  Separators separators = {};
  /// Of machine-read tables: those of programs unless the user asks for others.
  Separators csv_separators = {'.', ','};
  bool out_is_terminal = false;
  bool err_is_terminal = false;
  int width = 0;  ///< columns of the terminal, 0 for no limit
  bool quiet = false;

  /// `text` made to stand out on a terminal, plain elsewhere.
  [[nodiscard]] std::string Strong(const std::string& text) const {
    return out_is_terminal ? "\x1b[1m" + text + "\x1b[0m" : text;
  }
};

/// How a command ended; the process's exit code.
namespace exit_code {
constexpr int kDone = 0;
constexpr int kWrongUse = 2;
constexpr int kUnreadable = 3;
constexpr int kRefused = 4;
constexpr int kBrokenOff = 5;
constexpr int kUnwritable = 6;
}  // namespace exit_code

}  // namespace kalvo
