#pragma once

#include <span>
#include <string>

namespace kalvo {

/// A field of the section form in words.
struct FieldWord {
  const char* caption;  ///< as beside the field
  const char* word;     ///< in short
};

/// All fifteen, in the order of the form.
std::span<const FieldWord> FieldWords();

/// How the field of that column of the sheet is typed, in a sentence or two.
std::string HintOf(int column, bool open);

}  // namespace kalvo
