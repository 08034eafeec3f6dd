#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "form/desk.h"

namespace kalvo {

/// What an earlier run of the program left in the work files.
enum class LeftOver {
  kNothing,
  kStudy,      ///< rows of the chosen kind, to be offered back
  kOtherKind,  ///< rows of the other kind, to be thrown away
  kSheet       ///< a sheet of either kind that holds what the rows do not, to be offered back
};

struct FoundLeftOver {
  LeftOver what = LeftOver::kNothing;
  int rows = 0;
  int sheet_sections = 0;
  std::string_view sheet_file;          ///< work file of the sheet; empty: none
  SystemKind kind = SystemKind::kNone;  ///< of row 1, else of the sheet, else the chosen one
  std::string title;
  std::filesystem::path file;  ///< the study's own file; empty: it never had one
  std::string moment;          ///< of the last change, "dd/MM/yyyy, HH:mm:ss"
};

/// Puts the work files in order and tells what they hold. What cannot be read gives way first
/// (SetUnreadableAside()). Summer's rows of a winter duty go back
/// first; `DATARES.@@@` wins over the rows; without rows the first of it, `TEMPODAT.TMP` and
/// `FIRSTONE.TMP` takes their place: each only when it can be loaded, and what it displaces goes
/// into a safety copy. A copy of rows that cannot be loaded goes there too, and a box says so. Rows
/// of no length are deleted. Of a file of odd length the whole records are kept and the original
/// goes into a safety copy. `Spread.@@@` is a sheet to be offered back; without rows and without it
/// `Spread.ss2` is, when `Intro.ss2` goes with it. A broken one, or one of another kind than the
/// rows, goes into a safety copy, and a box says so. Nothing: the user stays at this screen rather
/// than lose what could not be copied. Error: a file cannot be read or written; nothing is lost
/// then.
Result<std::optional<FoundLeftOver>> SettleWorkFiles(Desk& desk);

/// Brings the study back as an unsaved one, of the kind of its row 1; `recovery` stays set for the
/// main menu. Damaged files that follow from the rows are kept in a safety copy and left out, and a
/// box names them. When the study cannot be loaded a box says so, everything is copied to
/// safety, and the program starts empty. False: the user stays; all files do.
bool AcceptRecovery(Desk& desk, const FoundLeftOver& found);

/// Brings back a study whose sheet holds what its rows do not, as an unsaved one; the main menu
/// then opens the sheet (kSheetEntry). With rows they come back as above. Without rows `Intro.ss2`
/// gives the general data, the sheet is copied to safety and stays, as `Spread.@@@`; what cannot be
/// taken of `Intro.ss2`, or a pipe system that is gone, is told and left out. False: the user
/// stays.
bool AcceptSheet(Desk& desk, const FoundLeftOver& found);

/// Throws away what was left, a safety copy first. False: the user stays; all files do.
bool DiscardLeftOver(Desk& desk);

/// Takes damaged files that follow from the rows, or go with them, out of the work files: they are
/// kept in a safety copy under their own names, and a box names them. False: the user stays.
bool SetDamagedAside(Desk& desk);

}  // namespace kalvo
