#include "results/reports/report_file.h"

#include <algorithm>

#include "study/export_folder.h"
#include "study/fixed_text.h"
#include "study/letter_case.h"
#include "study/path_text.h"

namespace kalvo {
namespace {

constexpr std::string_view kPdfExtension = ".PDF";
constexpr std::string_view kWorkbookExtension = ".XLS";

bool EndsWith(std::string_view name, std::string_view end) {
  return name.size() >= end.size() && EqualIgnoringCase(name.substr(name.size() - end.size()), end);
}

// "_RCO" and ".XLS" of "_RCO.XLS".
std::string_view StemOf(std::string_view suffix) { return suffix.substr(0, suffix.rfind('.')); }
std::string_view ExtensionOf(std::string_view suffix) { return suffix.substr(suffix.rfind('.')); }

}  // namespace

std::string PdfSuffix(std::string_view suffix) {
  return std::string(StemOf(suffix)) + std::string(kPdfExtension);
}

std::string ReportName(std::string_view name, std::string_view suffix) {
  name = Trim(name);
  std::string_view extension = ExtensionOf(suffix);
  for (const std::string_view known : {extension, kWorkbookExtension, kPdfExtension}) {
    const bool of_reports = !StemOf(suffix).empty();  // which a PDF and a workbook go by one name
    if (!EndsWith(name, known) || (known != extension && !of_reports)) continue;
    const std::string_view typed = name.substr(name.size() - known.size());
    if (known == extension) extension = typed;
    name.remove_suffix(known.size());
    break;
  }
  if (name.empty() || name.ends_with('/') || name.ends_with('\\')) return {};
  const std::string_view stem = EndsWith(name, StemOf(suffix)) ? "" : StemOf(suffix);
  return std::string(name) + std::string(stem) + std::string(extension);
}

Result<ReportTarget> FindReportTarget(const Disk& disk, const std::filesystem::path& data_folder,
                                      std::string_view name, std::string_view suffix) {
  const std::string full_name = ReportName(name, suffix);
  if (full_name.empty()) return ReportTarget{};
  const std::filesystem::path path = PathFromText(full_name);
  if (path.is_absolute()) return ReportTarget{path, false};
  const auto folder = ExportFolder(disk, data_folder);
  if (!folder) return folder.error();
  return ReportTarget{*folder / path, true};
}

}  // namespace kalvo
