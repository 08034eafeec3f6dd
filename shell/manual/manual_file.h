#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "form/desk.h"

namespace kalvo {

/// The manual in the program folder, and the folders of the installed data that it and its chapters
/// are delivered in.
constexpr const char* kManualFile = "Kalvo.pdf";
constexpr const char* kManualPart = "pdf";
constexpr const char* kChaptersPart = "manual";

/// The line that ends a delivered manual: the version of the program it is of, and a sum of all
/// bytes before, by which a copy that was written in is told from one that was not.
std::string ManualMark(std::string_view pdf, std::string_view version);

/// Puts the installed manual into the program folder where it is missing there, or where it is
/// newer than the one there and nobody changed that. Error: there is none afterwards, and why.
Outcome DeliverManual(Disk& disk, const std::filesystem::path& folder,
                      const std::filesystem::path& installed);

/// Shows the manual with the desktop's program for it, or says why that cannot be.
void OpenManualFile(Desk& desk);

}  // namespace kalvo
