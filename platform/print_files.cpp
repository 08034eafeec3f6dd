#include "platform/print_files.h"

#include "platform/jet/jet_file.h"
#include "platform/jet/jet_reasons.h"
#include "platform/jet/print_shell.h"
#include "platform/xls/plain_workbook.h"

namespace kalvo {
namespace {

// Longer ones are not even read.
Result<std::string> ReadShell(const Disk& disk, const std::filesystem::path& shell) {
  const auto status = disk.Status(shell);
  if (!status) return status.error();
  if (*status && (*status)->length > kMostJetBytes) return JetError(jet_reason::kTooLarge);
  return disk.Read(shell);
}

FileError AtFile(FileError error, const std::filesystem::path& file) {
  if (error.file.empty()) error.file = file;
  return error;
}

}  // namespace

Outcome PrintFiles::Export(const std::filesystem::path& shell, const PrintTable& table,
                           const std::filesystem::path& file) {
  auto bytes = ReadShell(disk_, shell);
  if (!bytes) return AtFile(bytes.error(), shell);
  auto filled = FillPrintShell(std::move(*bytes), table);
  if (!filled) return AtFile(filled.error(), shell);
  return ReplaceFile(disk_, file, std::move(*filled));
}

Outcome PrintFiles::ExportWorkbook(const PrintTable& table, const std::filesystem::path& file) {
  auto bytes = MakePlainWorkbook(table);
  if (!bytes) return AtFile(bytes.error(), file);
  return ReplaceFile(disk_, file, std::move(*bytes));
}

}  // namespace kalvo
