#include "desktop/qt_printer.h"

#include <QApplication>
#include <QBuffer>
#include <QPainter>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>

#include "desktop/page_painter.h"
#include "desktop/print_notice.h"
#include "desktop/print_service.h"
#include "desktop/qt_text.h"

namespace kalvo {
namespace {

constexpr double kMarginMm = 12;

QPageLayout A4Across() {
  return {QPageSize(QPageSize::A4), QPageLayout::Landscape,
          QMarginsF(kMarginMm, kMarginMm, kMarginMm, kMarginMm), QPageLayout::Millimeter};
}

}  // namespace

QtPrinter::QtPrinter() : paper_(A4Across()) {}

QtPrinter::~QtPrinter() = default;

std::vector<KnownPrinter> QtPrinter::Known() {
  std::vector<KnownPrinter> known;
  if (!HasPrintService()) return known;
  for (const QPrinterInfo& printer : QPrinterInfo::availablePrinters()) {
    known.push_back({printer.printerName().toStdString(), printer.description().toStdString(),
                     printer.makeAndModel().toStdString(), printer.isDefault()});
  }
  return known;
}

std::optional<PrintOrder> QtPrinter::ChooseFrom(const PrintOrder& order) {
  QPrinter printer(QPrinter::HighResolution);
  printer.setPrinterName(ToQt(order.printer));
  printer.setCopyCount(order.copies);
  QPrintDialog dialog(&printer, QApplication::activeWindow());
  dialog.setOptions(QAbstractPrintDialog::PrintCollateCopies);
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  PrintOrder chosen{printer.printerName().toStdString(), printer.copyCount()};
  for (const QString& setting : SettingsOf(printer)) {
    chosen.settings.push_back(setting.toStdString());
  }
  return chosen;
}

PrinterChoice QtPrinter::Choose(std::string_view name, bool across) {
  paper_ = A4Across();
  if (!across) paper_.setOrientation(QPageLayout::Portrait);
  if (!HasPrintService() || QPrinterInfo::availablePrinterNames().isEmpty()) {
    return {PrinterChoice::Kind::kNoPrinter, {}};
  }
  if (printer_ == nullptr) {
    printer_ = std::make_unique<QPrinter>(QPrinter::HighResolution);
    printer_->setPageLayout(paper_);
  }
  printer_->setPageOrientation(paper_.orientation());
  printer_->setDocName(ToQt(name));
  QPrintDialog dialog(printer_.get(), QApplication::activeWindow());
  dialog.setOptions(QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintCollateCopies);
  if (dialog.exec() != QDialog::Accepted) return {PrinterChoice::Kind::kCancelled, {}};
  paper_ = printer_->pageLayout();
  const bool to_file = printer_->outputFormat() == QPrinter::PdfFormat;
  if (!to_file) return {PrinterChoice::Kind::kPrinter, {}};
  return {PrinterChoice::Kind::kFile, printer_->outputFileName().toStdString()};
}

Result<std::optional<std::string>> QtPrinter::MakePdf(const PrintedTable& table,
                                                      std::string_view notice) {
  PrintNotice shown(notice, static_cast<int>(table.pages.size()));
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  QPdfWriter writer(&buffer);
  writer.setPageLayout(paper_);
  writer.setTitle(ToQt(table.name));
  writer.setCreator(QStringLiteral("Kalvoflume"));
  QPainter painter(&writer);
  bool whole = painter.isActive();
  int done = 0;
  for (const PrintedPage& page : table.pages) {
    whole = whole && (done == 0 || writer.newPage());
    if (!whole) return FileError{{}, "Οι σελίδες δεν σχεδιάζονται"};
    PaintPage(painter, table, page);
    if (!shown.GoOn(++done)) return std::optional<std::string>();
  }
  painter.end();
  return std::optional(buffer.data().toStdString());
}

Result<bool> QtPrinter::Print(const std::string& pdf, std::string_view name,
                              std::string_view notice) {
  return HandToPrintService(PrintArguments(*printer_, name), QByteArray::fromStdString(pdf),
                            notice);
}

}  // namespace kalvo
