#include "results/printing/printers_part.h"

#include <algorithm>

#include "form/print_pdf.h"
#include "results/printing/printer_list.h"

namespace kalvo {
namespace {

constexpr const char* kNoPrinter = "Δεν υπάρχει εκτυπωτής";

}  // namespace

PrintersPart::PrintersPart(Form& form) : Cbo_Printers(form, "Cbo_Printers") {}

void PrintersPart::Fill(Desk& desk) {
  printers_ = desk.printer.Known();
  RefreshPrinterList(desk.bench.workspace, printers_);
  Cbo_Printers.entries.clear();
  for (const KnownPrinter& printer : printers_) Cbo_Printers.entries.push_back(printer.name);
  if (printers_.empty()) Cbo_Printers.entries = {kNoPrinter};
  const auto own = std::ranges::find(printers_, true, &KnownPrinter::is_default);
  Cbo_Printers.selected = own == printers_.end() ? 0 : static_cast<int>(own - printers_.begin());
}

const KnownPrinter* PrintersPart::Chosen() const {
  const auto at = static_cast<std::size_t>(Cbo_Printers.selected);
  return at < printers_.size() ? &printers_[at] : nullptr;
}

std::string PrintersPart::Description(const Desk& desk) const {
  const KnownPrinter* printer = Chosen();
  const auto row =
      printer == nullptr ? std::nullopt : FindPrinter(desk.bench.workspace, printer->name);
  return row ? row->description.Utf8() : "";
}

bool PrintersPart::MakesPdfInstead(Desk& desk) const {
  return printers_.empty() && AskForPdfInstead(desk.bench) == Answer::kYes;
}

std::optional<PrintOrder> PrintersPart::Choose(Desk& desk, int copies) const {
  const KnownPrinter* printer = Chosen();
  if (printer == nullptr) return std::nullopt;
  return desk.printer.ChooseFrom({printer->name, copies});
}

}  // namespace kalvo
