#pragma once

#include <QByteArray>
#include <QStringList>
#include <string_view>

#include "study/result.h"

class QPrinter;

namespace kalvo {

/// The desktop's print service is reached by its command `lp`, which says whether it took a file;
/// Qt itself does not tell.
bool HasPrintService();

/// What `lp` is told of a printer and what the user has set for it.
QStringList PrintArguments(const QPrinter& printer, std::string_view name);

/// The same of a printer that is only known by its name, and pages that state their own paper.
QStringList PrintArguments(std::string_view printer, std::string_view name, int copies);

/// Hands a PDF to the service, showing `notice` meanwhile; false: the user has cancelled. Error:
/// the service does not take it, with what it says.
Result<bool> HandToPrintService(const QStringList& arguments, const QByteArray& pdf,
                                std::string_view notice);

}  // namespace kalvo
