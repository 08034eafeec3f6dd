#include "desktop/pages/qt_workbook_pages.h"

#include "desktop/pages/shown_pages.h"
#include "desktop/print_service.h"
#include "form/print_pdf.h"

namespace kalvo {

Result<bool> QtWorkbookPages::Print(const Workbook& workbook, const PrintOrder& order) {
  if (!HasPrintService()) return FileError{{}, "Δεν υπάρχει υπηρεσία εκτύπωσης (lp)"};
  if (order.printer.empty()) return FileError{{}, "Δεν έχει επιλεγεί εκτυπωτής"};
  ShownPages pages(workbook, desk_.separators);
  const auto pdf = pages.MakePdf();
  if (!pdf) return pdf.error();
  return HandToPrintService(PrintArguments(order, pages.sheet(), pages.paper()),
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
