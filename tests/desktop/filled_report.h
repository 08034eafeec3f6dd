#pragma once

#include <gtest/gtest.h>

#include <string>

#include "platform/xls/xls_application.h"
#include "results/reports/report_writer.h"
#include "study/real_disk.h"

namespace kalvo {

inline constexpr std::string_view kSampleDesigner = "Γραφείο Μελετών Η/Μ Εγκαταστάσεων";

/// Keeps the workbook that it is to show.
class KeptPages : public WorkbookPages {
 public:
  Result<bool> Print(const Workbook& /*workbook*/, const PrintOrder& /*order*/) override {
    return false;
  }
  Outcome Preview(const Workbook& workbook) override {
    kept = workbook;
    return Done{};
  }
  Result<std::string> MakePdf(const Workbook& /*workbook*/) override { return std::string(); }

  Workbook kept;
};

/// A report of the bench's study in the delivered template. Code: as that of ReportOrder.
inline Workbook FilledReport(Workbench& bench, int code, ReportKind kind) {
  RealDisk disk;
  KeptPages pages;
  XlsApplication application(disk, pages);
  const ReportOrder order{
      .code = code,
      .kind = kind,
      .designer = std::string(kSampleDesigner),
      .template_folder = std::filesystem::path(KALVO_SOURCE_DIR) / "data/templates"};
  EXPECT_EQ(WriteReport(bench, application, order), ReportEnd::kMade);
  return std::move(pages.kept);
}

}  // namespace kalvo
