#pragma once

#include <string>
#include <string_view>

#include "form/desk.h"
#include "form/printed_table.h"

namespace kalvo {

/// Prints the table where the user chooses. Without a printer a PDF of that name is made in the
/// export folder, after a question; an older one is replaced only by one that is whole. What goes
/// wrong is told in a box. Gives in a few words what came of it.
std::string PrintTable(Desk& desk, const PrintedTable& table, std::string_view pdf_name);

}  // namespace kalvo
