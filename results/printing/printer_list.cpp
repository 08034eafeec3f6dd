#include "results/printing/printer_list.h"

#include <algorithm>

namespace kalvo {
namespace {

std::vector<PrinterRow> RowsOf(const std::vector<KnownPrinter>& known) {
  std::vector<PrinterRow> rows;
  for (const KnownPrinter& printer : known) {
    PrinterRow& row = rows.emplace_back();
    row.number = static_cast<std::int16_t>(rows.size());
    row.name = FixedText<1024>::FromUtf8(printer.name);
    row.description = FixedText<512>::FromUtf8(printer.description);
    row.driver = FixedText<512>::FromUtf8(printer.driver);
  }
  return rows;
}

bool TellTheSame(const PrinterRow& a, const PrinterRow& b) {
  return a.number == b.number && a.name == b.name && a.description == b.description &&
         a.driver == b.driver;
}

}  // namespace

void RefreshPrinterList(Workspace& workspace, const std::vector<KnownPrinter>& known) {
  const std::vector<PrinterRow> wanted = RowsOf(known);
  auto file = workspace.Rows<PrinterRow>(kPrinterListFile);
  const auto listed = file.ReadAll();
  const bool stands = listed && workspace.Exists(kPrinterListFile) &&
                      std::ranges::equal(*listed, wanted, TellTheSame);
  if (!stands) static_cast<void>(file.WriteAll(wanted));
}

std::optional<PrinterRow> FindPrinter(const Workspace& workspace, std::string_view name) {
  const auto listed = workspace.Rows<PrinterRow>(kPrinterListFile).ReadAll();
  if (!listed) return std::nullopt;
  const auto wanted = FixedText<1024>::FromUtf8(name);
  const auto found = std::ranges::find(*listed, wanted, &PrinterRow::name);
  return found == listed->end() ? std::nullopt : std::optional(*found);
}

}  // namespace kalvo
