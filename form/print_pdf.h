#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "form/desk.h"

namespace kalvo {

/// Pages that are printed, or become a file, as a PDF.
struct PdfSource {
  std::string name;            ///< of the print job
  std::filesystem::path file;  ///< not from the root on: below the export folder
  bool across = true;          ///< its pages are wider than high
  /// Makes the PDF; nothing: the user has cancelled that. Error: a page cannot be painted.
  std::function<Result<std::optional<std::string>>()> make;
};

/// In a few words what came of it, and the file that was written, if one was.
struct PdfEnd {
  std::string text;
  std::filesystem::path file;
};

inline constexpr std::string_view kPrintNotice = "Printing - Click Cancel to quit";

/// There is no printer: whether the pages shall become a file instead, `place` if it is known yet.
Answer AskForPdfInstead(Workbench& bench, const std::filesystem::path& place = {});

/// Prints where the user chooses. Without a printer the file is made, after a question. What goes
/// wrong is told in a box.
PdfEnd PrintPdf(Desk& desk, const PdfSource& source);

/// Makes the file; an older one is replaced only after a question, and by one that is whole. What
/// goes wrong is told in a box.
PdfEnd SavePdf(Desk& desk, const PdfSource& source);

}  // namespace kalvo
