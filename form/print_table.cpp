#include "form/print_table.h"

#include "form/print_pdf.h"

namespace kalvo {

std::string PrintTable(Desk& desk, const PrintedTable& table, std::string_view pdf_name) {
  const PdfSource source{table.name, pdf_name, true,
                         [&] { return desk.printer.MakePdf(table, kPrintNotice); }};
  return PrintPdf(desk, source).text;
}

}  // namespace kalvo
