#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "form/printers.h"
#include "study/printer_row.h"
#include "study/workspace.h"

namespace kalvo {

/// Makes `iPrinters.prt` the list of the system's printers, if it is missing, broken or tells
/// another one. It only saves looking them up: that it cannot be written bars nobody from printing.
void RefreshPrinterList(Workspace& workspace, const std::vector<KnownPrinter>& known);

/// What the list has of a printer; nothing when it is not there.
std::optional<PrinterRow> FindPrinter(const Workspace& workspace, std::string_view name);

}  // namespace kalvo
