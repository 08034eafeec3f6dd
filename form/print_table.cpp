#include "form/print_table.h"

#include "form/tell.h"
#include "study/export_folder.h"

namespace kalvo {
namespace {

constexpr const char* kPrintNotice = "Printing - Click Cancel to quit";
constexpr const char* kPrintTitle = "Εκτύπωση";
constexpr const char* kPrintCancelled = "Η εκτύπωση ακυρώθηκε";
constexpr const char* kPrintFailed = "Η εκτύπωση ΔΕΝ έγινε";

std::string Failed(Desk& desk, const FileError& error) {
  TellError(desk.bench, error);
  return kPrintFailed;
}

bool MayReplace(Desk& desk, const std::filesystem::path& file) {
  if (!desk.bench.workspace.outer_disk().Exists(file)) return true;
  Box box{"  ! !  ΠΡΟΣΟΧΗ  ! ! ",
          {"... To Αρχείο < " + file.filename().string() + " >, υπάρχει ήδη ...",
           "... ΘΕΛΕΤΕ ΝΑ ΤΟ ΑΝΤΙΚΑΤΑΣΤΗΣΩ ?? ..."},
          box_style::kWarnDefaultNo,
          kAlarmBeeps};
  return desk.bench.Ask(box) == Answer::kYes;
}

std::string WritePdf(Desk& desk, const PrintedTable& table, const std::filesystem::path& file) {
  auto pdf = desk.printer.MakePdf(table, kPrintNotice);
  if (!pdf) return Failed(desk, pdf.error());
  if (!*pdf) return kPrintCancelled;
  const Outcome written = ReplaceFile(desk.bench.workspace.outer_disk(), file, std::move(**pdf));
  if (!written) return Failed(desk, written.error());
  desk.bench.Ask(
      {kPrintTitle, {"Δημιουργήθηκε το Αρχείο PDF :", file.string()}, box_style::kInformation});
  return "Δημιουργήθηκε το Αρχείο < " + file.filename().string() + " >";
}

std::string PrintWithoutPrinter(Desk& desk, const PrintedTable& table, std::string_view pdf_name) {
  Disk& disk = desk.bench.workspace.outer_disk();
  const auto folder = ExportFolder(disk, desk.data_folder);
  if (!folder) return Failed(desk, folder.error());
  const std::filesystem::path file = *folder / pdf_name;
  const Answer answer = desk.bench.Ask(
      {kPrintTitle,
       {"Δεν υπάρχει διαθέσιμος εκτυπωτής.", "Να δημιουργηθεί Αρχείο PDF ??", file.string()},
       box_style::kYesNo});
  if (answer != Answer::kYes || !MayReplace(desk, file)) return kPrintCancelled;
  if (Outcome made = disk.MakeFolder(*folder); !made) return Failed(desk, made.error());
  return WritePdf(desk, table, file);
}

std::string PrintOnPrinter(Desk& desk, const PrintedTable& table) {
  const auto pdf = desk.printer.MakePdf(table, kPrintNotice);
  if (!pdf) return Failed(desk, pdf.error());
  if (!*pdf) return kPrintCancelled;
  const auto printed = desk.printer.Print(**pdf, table.name, kPrintNotice);
  if (!printed) return Failed(desk, printed.error());
  return *printed ? "Στάλθηκε στον εκτυπωτή" : kPrintCancelled;
}

}  // namespace

std::string PrintTable(Desk& desk, const PrintedTable& table, std::string_view pdf_name) {
  const PrinterChoice choice = desk.printer.Choose(table.name);
  switch (choice.kind) {
    case PrinterChoice::Kind::kPrinter:
      return PrintOnPrinter(desk, table);
    case PrinterChoice::Kind::kFile:
      return WritePdf(desk, table, choice.file);
    case PrinterChoice::Kind::kNoPrinter:
      return PrintWithoutPrinter(desk, table, pdf_name);
    case PrinterChoice::Kind::kCancelled:
      break;
  }
  return kPrintCancelled;
}

}  // namespace kalvo
