#pragma once

#include <span>
#include <string>
#include <vector>

#include "study/study.h"

namespace kalvo {

/// Section numbers along the whole circuit of one emitter, source to source; in an open network
/// along the way from row 1 to one outlet.
using Branch = std::vector<int>;

/// The four characters of a section in a branch's text: its number in three, then "-".
/// Faults: 5 for a number of more than three characters.
std::string NumberCell(int number);

/// Faults: 5 for a number that NumberCell() has no room for.
void RequireCell(int number);

/// The branch as text, its cells one after the other, trimmed.
std::string BranchText(std::span<const int> branch);

/// The circuit of every emitter in `EmitterTable`, from `SectionTable`. Of several rows that leave
/// or reach a node the lowest is taken. A walk that finds no row, or takes more steps than there
/// are rows, stops and leaves its branch open. Faults: 5 for a section number of four characters.
std::vector<Branch> BuildBranchStrings(const Study& study);

/// The same for the outlets of an open network, each section being preceded by its feeder (see
/// LinkFeeders()). A branch begins with row 1, once, unless the walk stopped or was lost.
std::vector<Branch> BuildOpenBranchStrings(const Study& study);

}  // namespace kalvo
