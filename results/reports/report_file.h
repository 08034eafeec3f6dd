#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "study/disk.h"

namespace kalvo {

/// A file that a report is written to.
struct ReportTarget {
  std::filesystem::path file;     ///< empty: no name was given
  bool in_export_folder = false;  ///< its folder is made when it is missing
};

/// `suffix` with the extension of a PDF.
std::string PdfSuffix(std::string_view suffix);

/// `name` with a report's suffix, such as "_RCO.XLS". What of it the name has already, in any case,
/// is not added again; the extension of the other kind of file gives way. Empty: there is no name.
std::string ReportName(std::string_view name, std::string_view suffix);

/// Where a report under that name goes: into the export folder, unless the name has a folder from
/// the root on. Error: the data folder cannot be read.
Result<ReportTarget> FindReportTarget(const Disk& disk, const std::filesystem::path& data_folder,
                                      std::string_view name, std::string_view suffix);

}  // namespace kalvo
