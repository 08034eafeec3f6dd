#pragma once

#include <QByteArray>
#include <QStringList>
#include <string_view>

#include "form/printers.h"

class QPrinter;

namespace kalvo {

/// The desktop's print service is reached by its command `lp`, which says whether it took a file;
/// Qt itself does not tell.
bool HasPrintService();

/// What `lp` is told of a printer and what the user has set for it.
QStringList PrintArguments(const QPrinter& printer, std::string_view name);

/// What the user has set for a printer besides paper and copies.
QStringList SettingsOf(const QPrinter& printer);

/// What `lp` gets of an order. Paper: begins with its name, as in "A4 όρθιο".
QStringList PrintArguments(const PrintOrder& order, std::string_view name, std::string_view paper);

/// Hands a PDF to the service, showing `notice` meanwhile; false: the user has cancelled. Error:
/// the service does not take it, with what it says.
Result<bool> HandToPrintService(const QStringList& arguments, const QByteArray& pdf,
                                std::string_view notice);

}  // namespace kalvo
