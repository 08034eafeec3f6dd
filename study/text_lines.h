#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kalvo {

/// Lines of a text file as UTF-8: text that is no UTF-8 is read as code page 1253; line ends are
/// LF or CR LF; the empty rest behind the last line end is no line.
std::vector<std::string> SplitLines(std::string_view bytes);

/// `text` without one pair of double quotes around it.
std::string_view Unquoted(std::string_view text);

/// `text` in double quotes.
std::string Quoted(std::string_view text);

}  // namespace kalvo
