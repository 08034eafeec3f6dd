#pragma once

#include <string>
#include <vector>

#include "engine/notes.h"
#include "study/study.h"

namespace kalvo {

/// A line for each kind of note that any section has, with their numbers.
std::vector<std::string> NoteLines(const ResultNotes& notes);

/// The notes of one section, a line each.
std::vector<std::string> NoteLinesOf(const ResultNotes& notes, int section);

/// That results do not hold, and where the walk along their network is lost: a line that stands
/// above all notes.
std::string LostWalkNote(const Study& study, const LostWalk& lost);

/// The lines as one text, each on its own line.
std::string JoinLines(const std::vector<std::string>& lines);

}  // namespace kalvo
