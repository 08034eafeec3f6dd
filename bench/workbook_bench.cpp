// A report as a workbook, without the data that it tells of: a template on the disk to a saved
// file.

#include <stdexcept>
#include <string>

#include "bench/bench_program.h"
#include "bench/repeated.h"
#include "platform/xls/xls_application.h"
#include "study/real_disk.h"

namespace kalvo {
namespace {

constexpr int kPages = 15;
constexpr int kPageRows = 59;
constexpr int kFirstTableRow = 18;
constexpr int kTableRows = 40;
constexpr int kTableColumns = 9;

/// Nobody paints here.
class NoPages : public WorkbookPages {
 public:
  Outcome Print(const Workbook& /*workbook*/, std::string_view /*printer*/,
                int /*copies*/) override {
    return Done{};
  }
  Outcome Preview(const Workbook& /*workbook*/) override { return Done{}; }
  Result<std::string> MakePdf(const Workbook& /*workbook*/) override { return std::string(); }
};

void FillPages(OpenWorkbook& book) {
  for (int page = 1; page < kPages; ++page) {
    book.CopyRows(0, {1, kPageRows}, 0, page * kPageRows + 1);
    book.BreakBefore(0, page * kPageRows + 1);
  }
  for (int line = 0; line < kPages * kTableRows; ++line) {
    const int row = line / kTableRows * kPageRows + kFirstTableRow + line % kTableRows;
    book.PutNumber(0, row, 1, line + 1);
    book.PutText(0, row, 2, std::to_string(line) + "/" + std::to_string(line + 1));
    for (int column = 3; column <= kTableColumns; ++column) {
      book.PutNumber(0, row, column, 12.25 * line / column);
    }
  }
}

// 600 sections: 15 pages of 59 rows by 9 columns.
void WorkbookOf600(benchmark::State& state) {
  const TemporaryFolder folder;
  RealDisk disk;
  NoPages pages;
  XlsApplication application(disk, pages);
  for ([[maybe_unused]] auto step : state) {
    const auto book = application.Open(KALVO_SOURCE_DIR "/tests/platform/template.xls", "");
    if (!book) throw std::runtime_error(book.error().Line());
    FillPages(**book);
    (*book)->Protect("password");
    const Outcome saved = (*book)->SaveAs(folder.path() / "b_RCO.XLS");
    if (!saved) throw std::runtime_error(saved.error().Line());
  }
}
BENCHMARK(WorkbookOf600)->Apply(RepeatMs);

}  // namespace
}  // namespace kalvo
