#pragma once

#include <filesystem>

#include "form/desk.h"
#include "study/load_study.h"

namespace kalvo {

/// The save command: the file dialog with the name filled in, then the write. False: the dialog
/// ended in "Escape", there are no rows (message 139), or the write failed, which was told; the
/// study keeps its path and its flag then.
bool SaveStudy(Desk& desk);

/// Saves to the file that the study came from, with the questions before a save but without the
/// dialog; as SaveStudy() when there is no such file.
bool SaveToOwnFile(Desk& desk);

/// Asks what becomes of changes that are not saved (message 130). False: the caller must stop; a
/// save that was asked for and not made counts as "cancel". "No" leaves the flag as it is.
bool AskAboutUnsaved(Desk& desk);

/// The questions about the open study before another is opened. False: the caller must stop.
/// "Cancel" at message 130 clears the flag of unsaved changes although nothing was saved.
bool AskBeforeOpening(Desk& desk);

/// The open command: the questions about the open study, the list of studies, the load.
void AskToOpen(Desk& desk);

/// Opens a file that was chosen: a safety copy of a study that stands nowhere, then the load.
/// False: it could not be loaded, which was told; the open study and its flags stay if they can.
bool OpenChosen(Desk& desk, const std::filesystem::path& path, RecentList recent);

/// Shows a dialog that chooses a study's file and opens what was chosen. The recent files ask the
/// questions about the open study themselves, the other dialogs are shown after them.
void OpenFromDialog(Desk& desk, std::string_view dialog);

/// Empties the program for a new study, a safety copy first. False: that copy could not be made,
/// which was told; the study stays.
bool ThrowAwayStudy(Desk& desk);

/// Whether a file that is there already is asked about for that alone.
enum class Overwriting { kAsked, kUnasked };

/// The questions before the open study is saved as `target`: over a file that is there (as
/// `overwriting` tells), over its own files when another has changed them, over one that is
/// protected, over a companion that is another study's too. False: it is not to be saved there.
bool AskBeforeSaving(Desk& desk, const std::filesystem::path& target, Overwriting overwriting);

}  // namespace kalvo
