#pragma once

#include <string>

namespace kalvo {

/// Title and lines of a numbered message as a quote, once for each kind of system where they
/// differ; "" for a number that there is not.
std::string MessageText(int number);

}  // namespace kalvo
