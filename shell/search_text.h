#pragma once

#include <string>
#include <string_view>

namespace kalvo {

/// What of a text counts when it is searched or put in order: small letters without accents and
/// dialytika, the final sigma as any other, whatever form the accents are written in.
std::string SearchKey(std::string_view utf8);

/// True when what was typed begins the title or one of its words, by SearchKey(). Nothing typed
/// matches every title.
bool MatchesTypeAhead(std::string_view title, std::string_view typed);

/// True when `name` is what the mask describes, byte for byte; "*" stands for any run of them.
bool FitsMask(std::string_view name, std::string_view mask);

/// Order of a list that people read: by SearchKey(), equal ones by their bytes.
bool StandsBefore(std::string_view a, std::string_view b);

}  // namespace kalvo
