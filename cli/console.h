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
  bool out_is_terminal = false;  ///< of the kind that obeys escape sequences
  bool err_is_terminal = false;
  bool colours = true;  ///< wanted where a terminal shows them
  int width = 0;        ///< columns of the terminal, 0 for no limit
  bool quiet = false;

  /// The same manners on other streams.
  [[nodiscard]] Console On(std::ostream& other_out, std::ostream& other_err) const {
    return {other_out,       other_err, separators, csv_separators, out_is_terminal,
            err_is_terminal, colours,   width,      quiet};
  }

  /// `text` made to stand out on a terminal, plain elsewhere: a heading, what is marked among
  /// results, the title of a message.
  [[nodiscard]] std::string Heading(const std::string& text) const {
    return Painted(text, "1;36", out_is_terminal);
  }
  [[nodiscard]] std::string Marked(const std::string& text) const {
    return Painted(text, "1;35", out_is_terminal);
  }
  [[nodiscard]] std::string Alarm(const std::string& text) const {
    return Painted(text, "1;31", err_is_terminal);
  }

 private:
  [[nodiscard]] std::string Painted(const std::string& text, const std::string& colour,
                                    bool terminal) const {
    return terminal && colours ? "\x1b[" + colour + "m" + text + "\x1b[0m" : text;
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
