#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace kalvo {

/// Gives the lines of a table by its name, "" for a name that it does not know.
using TableMaker = std::function<std::string(std::string_view name)>;

/// The text of a chapter with all its tables made anew: what is between "<!-- table: NAME -->" and
/// "<!-- end -->". Throws std::runtime_error on an unknown name and on a table without an end.
std::string WithTables(std::string_view chapter, const TableMaker& make);

}  // namespace kalvo
