#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "form/desk.h"
#include "results/printing/print_text.h"
#include "results/reports/report_writer.h"

namespace kalvo {

// The program's own route of a print: it makes files for other programs and prints no page.

/// " Αρχείο τύπου RECORD " and so on, in the order of PrintFileKind.
std::vector<std::string> PrintFileKinds();
/// ".REC", ".TXT" or ".XLS".
std::string_view ExtensionOf(PrintFileKind kind);

/// A file beside the print database, of the same columns.
struct PrintFile {
  PrintFileKind kind = PrintFileKind::kRecord;
  ReportTarget target;
};

/// Writes `PRNFILE.MDB` in the program folder, then the file if one is asked for, and says what was
/// made. An old file is asked about first. False: one of them was not made; the user knows why.
bool ExportForPrint(Desk& desk, const std::optional<PrintFile>& file);

/// The same of the bill of quantities of these rows, without a file.
bool ExportQuantitiesForPrint(Desk& desk, std::string_view rows);

/// Deletes what a print leaves between its steps.
void DeletePrintScratch(Workspace& workspace);

}  // namespace kalvo
