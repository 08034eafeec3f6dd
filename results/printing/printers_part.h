#pragma once

#include <optional>
#include <vector>

#include "form/form.h"

namespace kalvo {

/// The list of printers of a form that prints.
class PrintersPart {
 public:
  explicit PrintersPart(Form& form);

  /// The system's printers as they are now, its default one chosen.
  void Fill(Desk& desk);
  /// What the list of printers says beside the name of the one chosen.
  [[nodiscard]] std::string Description(const Desk& desk) const;
  /// There is no printer, and the user wants a PDF instead.
  [[nodiscard]] bool MakesPdfInstead(Desk& desk) const;
  /// Has the user agree to the chosen printer in the desktop's dialogue; the list keeps its choice.
  /// Nothing: it was cancelled, or there is no printer.
  std::optional<PrintOrder> Choose(Desk& desk, int copies) const;

  Choice Cbo_Printers;

 private:
  [[nodiscard]] const KnownPrinter* Chosen() const;

  std::vector<KnownPrinter> printers_;
};

}  // namespace kalvo
