#pragma once

#include "form/desk.h"

namespace kalvo {

/// End of the name under which a work file that cannot be read is kept in the program folder; from
/// the second on with a number. Nothing reads or deletes files of such names.
constexpr const char* kAsideEnd = ".unread";

/// Renames rows, sheets, fluid and winter rows among the work files that are there and cannot be
/// read, and a box names their new places. Before rows, or the sheet in work, go the user is asked,
/// "no" is the default, and what can be read is copied to safety. False: the user stays, also when
/// a file cannot be renamed; none is lost.
bool SetUnreadableAside(Desk& desk);

}  // namespace kalvo
