#pragma once

#include <CLI/CLI.hpp>
#include <string>

#include "cli/console.h"
#include "study/result.h"

namespace kalvo {

/// Adds an option for the file that a command writes, whose name has to end in `extension`, in any
/// case.
void AddFileOption(CLI::App& app, std::string& file, const std::string& extension,
                   const std::string& help);

/// Whether a command may write `file`. Error: it is there and not to be replaced, is a folder, or
/// cannot be looked at.
Outcome MayWriteFile(const std::string& file, bool overwrite);

/// Says on `err` that the file was written; a quiet console says nothing.
void TellWritten(const Console& console, const std::string& file);

}  // namespace kalvo
