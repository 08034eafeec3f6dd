#include "desktop/pages/qt_workbook_pages.h"

#include "desktop/pages/shown_pages.h"
#include "desktop/print_service.h"
#include "form/print_pdf.h"

namespace kalvo {

Result<bool> QtWorkbookPages::Print(const Workbook& workbook, std::string_view printer,
                                    int copies) {
  if (!HasPrintService()) return FileError{{}, "Δεν υπάρχει υπηρεσία εκτύπωσης (lp)"};
  if (printer.empty()) return FileError{{}, "Δεν έχει επιλεγεί εκτυπωτής"};
  ShownPages pages(workbook, desk_.separators);
  const auto pdf = pages.MakePdf();
  if (!pdf) return pdf.error();
  return HandToPrintService(PrintArguments(printer, pages.sheet(), copies),
                            QByteArray::fromStdString(*pdf), kPrintNotice);
}

Outcome QtWorkbookPages::Preview(const Workbook& workbook) {
  ShownPages pages(workbook, desk_.separators);
  ShowPreview(desk_, pages);
  return Done{};
}

Result<std::string> QtWorkbookPages::MakePdf(const Workbook& workbook) {
  return ShownPages(workbook, desk_.separators).MakePdf();
}

}  // namespace kalvo
