#pragma once

#include <string>

namespace kalvo {

/// Every key of every screen with the command that it runs, in the order of the keys.
std::string KeyIndex();

}  // namespace kalvo
