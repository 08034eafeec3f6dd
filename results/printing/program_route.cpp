#include "results/printing/program_route.h"

#include <array>

#include "engine/row_store.h"
#include "engine/trap.h"
#include "form/tell.h"
#include "form/wait.h"
#include "results/designer/designer_name.h"
#include "results/printing/make_report.h"
#include "results/printing/print_database.h"
#include "results/quantities.h"

namespace kalvo {
namespace {

constexpr std::array kExtensions = {".REC", ".TXT", ".XLS"};
constexpr std::array kScratch = {"PRNFILE.TMP", "PRNFILE.@@@"};

// One export; every step tells why it cannot be made.
class Export {
 public:
  explicit Export(Desk& desk) : desk_(desk) {}

  bool Write(const char* shell, const PrintTable& table) {
    desk_.bench.workspace.Pause();
    const std::filesystem::path& folder = desk_.program_folder;
    const auto found = FindIgnoringCase(desk_.bench.workspace.outer_disk(), folder, shell);
    if (!found) return Told(found.error(), folder);
    const std::filesystem::path file = folder / kPrintDatabase;
    return Told(desk_.print_database->Export(folder / found->value_or(shell), table, file), file);
  }

  bool WriteFile(const PrintFile& file, const PrintTable& table) {
    Disk& disk = desk_.bench.workspace.outer_disk();
    const std::filesystem::path& target = file.target.file;
    if (file.target.in_export_folder &&
        !TellIfFailed(desk_.bench, disk.MakeFolder(target.parent_path()))) {
      return false;
    }
    const Outcome written =
        WritePrintFile(disk, *desk_.print_database, file.kind, table, desk_.separators, target);
    if (written) file_ = target;
    return Told(written, target);
  }

  void TellMade() {
    made_.insert(made_.begin(), "Δημιουργήθηκε :");
    if (file_.empty()) {
      desk_.bench.Ask({"Εκτύπωση", made_, box_style::kInformation});
      return;
    }
    made_.emplace_back("Θέλετε Άνοιγμα του Αρχείου ??");
    if (desk_.bench.Ask({"Εκτύπωση", made_, box_style::kDefaultNo}) == Answer::kYes) {
      TellIfFailed(desk_.bench, desk_.viewer.Open(file_));
    }
  }

 private:
  bool Told(const Outcome& written, const std::filesystem::path& file) {
    if (!TellIfFailed(desk_.bench, written)) return false;
    made_.push_back(file.string());
    return true;
  }

  Desk& desk_;
  std::vector<std::string> made_;
  std::filesystem::path file_;  ///< made next to the database
};

// What is exported. Nothing: it cannot be read, which the user was told.
std::optional<PrintTable> SectionsToPrint(Desk& desk) {
  const auto designer = DesignerName(desk);
  if (!designer) {
    TellError(desk.bench, designer.error());
    return std::nullopt;
  }
  const auto rows = desk.bench.workspace.Rows().ReadAll();
  if (!rows) {
    TellError(desk.bench, rows.error());
    return std::nullopt;
  }
  return PrintedSections(*rows, *designer);
}

std::optional<PrintTable> QuantitiesToPrint(Desk& desk, std::string_view rows) {
  std::optional<PrintTable> table;
  RunTrapped(desk.bench, [&] {
    const std::string designer = Require(DesignerName(desk));
    const Quantities read = Require(ReadQuantities(desk.bench.workspace, desk.bench.study, rows));
    if (read.lines.empty()) {
      desk.bench.Ask({" !!... ΠΡΟΣΟΧΗ ...!! ", {kNoQuantities}, box_style::kExclamation});
    } else {
      table = PrintedQuantities(read.lines, read.pipes, designer);
    }
  });
  return table;
}

}  // namespace

std::vector<std::string> PrintFileKinds() {
  return {" Αρχείο τύπου RECORD ", " Αρχείο τύπου ASCII ", " Αρχείο μορφής ΠΙΝΑΚΑ "};
}

std::string_view ExtensionOf(PrintFileKind kind) {
  return kExtensions.at(static_cast<std::size_t>(kind));
}

bool ExportForPrint(Desk& desk, const std::optional<PrintFile>& file) {
  if (desk.print_database == nullptr || !FillClient(desk)) return false;
  Export made(desk);
  {
    const WaitShown wait(desk.navigator);
    const auto table = SectionsToPrint(desk);
    if (!table || !made.Write(kSectionShell, *table)) return false;
    if (file && !MayWriteReport(desk, file->target)) {
      DeletePrintScratch(desk.bench.workspace);
      return false;
    }
    if (file && !made.WriteFile(*file, *table)) return false;
  }
  made.TellMade();
  return true;
}

bool ExportQuantitiesForPrint(Desk& desk, std::string_view rows) {
  if (desk.print_database == nullptr || !FillClient(desk)) return false;
  Export made(desk);
  {
    const WaitShown wait(desk.navigator);
    const auto table = QuantitiesToPrint(desk, rows);
    if (!table || !made.Write(kQuantityShell, *table)) return false;
  }
  made.TellMade();
  return true;
}

void DeletePrintScratch(Workspace& workspace) {
  for (const char* const name : kScratch) workspace.Delete(name);
}

}  // namespace kalvo
