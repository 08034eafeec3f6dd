#include "form/print_pdf.h"

#include "form/ask_to_replace.h"
#include "form/tell.h"
#include "study/export_folder.h"

namespace kalvo {
namespace {

constexpr const char* kPrintTitle = "Εκτύπωση";
constexpr const char* kPrintCancelled = "Η εκτύπωση ακυρώθηκε";
constexpr const char* kNoPdf = "Το Αρχείο PDF ΔΕΝ δημιουργήθηκε";
constexpr const char* kPrintFailed = "Η εκτύπωση ΔΕΝ έγινε";

PdfEnd Failed(Desk& desk, const FileError& error) {
  TellError(desk.bench, error);
  return {kPrintFailed, {}};
}

Result<std::filesystem::path> PlaceOf(const Desk& desk, const std::filesystem::path& file) {
  if (file.is_absolute()) return file;
  const auto folder = ExportFolder(desk.bench.workspace.outer_disk(), desk.data_folder);
  if (!folder) return folder.error();
  return *folder / file;
}

PdfEnd WritePdf(Desk& desk, const PdfSource& source, const std::filesystem::path& file) {
  auto pdf = source.make();
  if (!pdf) return Failed(desk, pdf.error());
  if (!*pdf) return {kPrintCancelled, {}};
  const Outcome written = ReplaceFile(desk.bench.workspace.outer_disk(), file, std::move(**pdf));
  if (!written) return Failed(desk, written.error());
  return {"Δημιουργήθηκε το Αρχείο < " + file.filename().string() + " >", file};
}

// A folder from the root on has been named by the user; any other is made when it is missing.
PdfEnd WriteInItsPlace(Desk& desk, const PdfSource& source, const std::filesystem::path& place) {
  if (!AskToReplace(desk.bench, place)) return {kPrintCancelled, {}};
  if (!source.file.is_absolute()) {
    const Outcome made = desk.bench.workspace.outer_disk().MakeFolder(place.parent_path());
    if (!made) return Failed(desk, made.error());
  }
  return WritePdf(desk, source, place);
}

PdfEnd Told(Desk& desk, PdfEnd end) {
  if (!end.file.empty()) {
    desk.bench.Ask({kPrintTitle,
                    {"Δημιουργήθηκε το Αρχείο PDF :", end.file.string()},
                    box_style::kInformation});
  }
  return end;
}

PdfEnd PrintWithoutPrinter(Desk& desk, const PdfSource& source) {
  const auto place = PlaceOf(desk, source.file);
  if (!place) return Failed(desk, place.error());
  if (AskForPdfInstead(desk.bench, *place) != Answer::kYes) return {kPrintCancelled, {}};
  return Told(desk, WriteInItsPlace(desk, source, *place));
}

PdfEnd PrintOnPrinter(Desk& desk, const PdfSource& source) {
  const auto pdf = source.make();
  if (!pdf) return Failed(desk, pdf.error());
  if (!*pdf) return {kPrintCancelled, {}};
  const auto printed = desk.printer.Print(**pdf, source.name, kPrintNotice);
  if (!printed) return Failed(desk, printed.error());
  return {*printed ? "Στάλθηκε στον εκτυπωτή" : kPrintCancelled, {}};
}

}  // namespace

Answer AskForPdfInstead(Workbench& bench, const std::filesystem::path& place) {
  Box question{kPrintTitle,
               {"Δεν υπάρχει διαθέσιμος εκτυπωτής.", "Να δημιουργηθεί Αρχείο PDF ??"},
               box_style::kYesNo};
  if (!place.empty()) question.lines.push_back(place.string());
  return bench.Ask(question);
}

PdfEnd PrintPdf(Desk& desk, const PdfSource& source) {
  const PrinterChoice choice = desk.printer.Choose(source.name, source.across);
  switch (choice.kind) {
    case PrinterChoice::Kind::kPrinter:
      return PrintOnPrinter(desk, source);
    case PrinterChoice::Kind::kFile:
      return Told(desk, WritePdf(desk, source, choice.file));
    case PrinterChoice::Kind::kNoPrinter:
      return PrintWithoutPrinter(desk, source);
    case PrinterChoice::Kind::kCancelled:
      break;
  }
  return {kPrintCancelled, {}};
}

PdfEnd SavePdf(Desk& desk, const PdfSource& source) {
  const auto place = PlaceOf(desk, source.file);
  PdfEnd end = place ? WriteInItsPlace(desk, source, *place) : Failed(desk, place.error());
  if (end.file.empty()) end.text = kNoPdf;
  return end;
}

}  // namespace kalvo
