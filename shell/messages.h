#pragma once

#include <optional>
#include <string>

#include "study/workbench.h"

namespace kalvo {

/// The box of the numbered message with the values of `study` in place, nothing for a code that
/// the catalogue lacks. A line that comes out empty is left out. In the box of 1000 the flow of
/// `study.row` stands with these separators.
std::optional<Box> MessageFor(int code, const Study& study, Separators separators);

/// What a message leaves as the answer when the user has pressed `given`: the button itself for a
/// message that asks, kNo for message 300 although it has OK only, kNone for all others and for
/// unknown codes.
Answer AnswerOf(int code, Answer given);

/// Asks whether a file that is there already may be replaced; it stays until the save replaces it.
Box ConfirmOverwriteBox();
bool ConfirmOverwrite(Workbench& bench);

/// The text inside the box: a line break before the first line and one between lines.
std::string BoxText(const Box& box);

}  // namespace kalvo
