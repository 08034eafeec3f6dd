// A report as a workbook, without the data that it tells of: a template on the disk to a saved
// file.

#include <stdexcept>

#include "bench/bench_program.h"
#include "bench/repeated.h"
#include "bench/report_workbook.h"
#include "platform/xls/xls_application.h"
#include "study/real_disk.h"

namespace kalvo {
namespace {

/// Nobody paints here.
class NoPages : public WorkbookPages {
 public:
  Result<bool> Print(const Workbook& /*workbook*/, const PrintOrder& /*order*/) override {
    return true;
  }
  Outcome Preview(const Workbook& /*workbook*/) override { return Done{}; }
  Result<std::string> MakePdf(const Workbook& /*workbook*/) override { return std::string(); }
};

// 600 sections: 15 pages of 59 rows by 9 columns.
void WorkbookOf600(benchmark::State& state) {
  const TemporaryFolder folder;
  RealDisk disk;
  NoPages pages;
  XlsApplication application(disk, pages);
  for ([[maybe_unused]] auto step : state) {
    const auto book = OpenFilled(application);
    book->Protect("password");
    const Outcome saved = book->SaveAs(folder.path() / "b_RCO.XLS");
    if (!saved) throw std::runtime_error(saved.error().Line());
  }
}
BENCHMARK(WorkbookOf600)->Apply(RepeatMs);

}  // namespace
}  // namespace kalvo
