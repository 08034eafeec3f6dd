#pragma once

#include <QPageLayout>
#include <memory>

#include "form/printers.h"

class QPrinter;

namespace kalvo {

/// The desktop's printers, with the dialogue of Qt.
class QtPrinter : public Printers {
 public:
  QtPrinter();
  ~QtPrinter() override;

  std::vector<KnownPrinter> Known() override;
  std::optional<PrintOrder> ChooseFrom(const PrintOrder& order) override;
  PrinterChoice Choose(std::string_view name, bool across) override;
  Result<std::optional<std::string>> MakePdf(const PrintedTable& table,
                                             std::string_view notice) override;
  Result<bool> Print(const std::string& pdf, std::string_view name,
                     std::string_view notice) override;

 private:
  std::unique_ptr<QPrinter> printer_;  ///< as set last; made when it is first asked for
  QPageLayout paper_;
};

}  // namespace kalvo
