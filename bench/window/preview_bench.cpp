// The pages of a filled workbook, as a PDF and in their window.

#include "bench/report_workbook.h"
#include "bench/window/session.h"
#include "desktop/pages/qt_workbook_pages.h"
#include "study/real_disk.h"

namespace kalvo {
namespace {

// The main menu, and a workbook of 15 pages.
struct FilledWorkbook {
  FilledWorkbook() { session.StartToMenu(); }

  const TemporaryFolder folder;
  const Home home;
  Session session{home};
  RealDisk disk;
  QtWorkbookPages pages{session.desk()};
  XlsApplication application{disk, pages};
  std::unique_ptr<OpenWorkbook> book = OpenFilled(application);
};

void PdfOf600(benchmark::State& state) {
  FilledWorkbook filled;
  QElapsedTimer watch;
  for (auto _ : state) {
    watch.start();
    const Outcome saved = filled.book->SaveAsPdf(filled.folder.path() / "b_RCO.PDF");
    Note(state, watch, 0);
    if (!saved) throw std::runtime_error(saved.error().Line());
  }
}
BENCHMARK(PdfOf600)->Apply(RepeatTen);

void PreviewOf600(benchmark::State& state) {
  FilledWorkbook filled;
  Session& session = filled.session;
  QElapsedTimer watch;
  for (auto _ : state) {
    QTimer::singleShot(0, [&] {
      session.Draw(screen::kPreview);
      Note(state, watch, 0);
      session.Press(screen::kPreview, Qt::Key_Escape);
    });
    watch.start();
    if (!filled.book->Preview()) throw std::runtime_error("no preview");
  }
}
BENCHMARK(PreviewOf600)->Apply(RepeatTen);

}  // namespace
}  // namespace kalvo
