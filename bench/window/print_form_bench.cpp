// The form of a print, opened where nothing prints.

#include "bench/window/session.h"
#include "results/printing/print_study.h"

namespace kalvo {
namespace {

// For what is looked up in the folders of programs while it lives: "lp" alone, or nothing at all.
class Programs {
 public:
  enum class Lp { kThere, kMissing };

  explicit Programs(Lp lp) {
    if (lp == Lp::kThere) {
      const auto file = folder_.path() / "lp";
      std::ofstream(file) << "#!/bin/sh\nexit 1\n";
      std::filesystem::permissions(file, std::filesystem::perms::owner_all);
    }
    qputenv("PATH", QByteArray::fromStdString(folder_.path().string()));
    qputenv("CUPS_SERVER", "localhost:1");  // where nobody answers
  }
  Programs(const Programs&) = delete;
  Programs& operator=(const Programs&) = delete;
  ~Programs() {
    qputenv("PATH", path_);
    qunsetenv("CUPS_SERVER");
  }

 private:
  TemporaryFolder folder_;
  QByteArray path_ = qgetenv("PATH");
};

void OpenPrintForm(benchmark::State& state, Programs::Lp lp) {
  StudyOf999 open;
  Session& session = open.session;
  session.Calculate();
  session.ShowSheet();
  const Programs programs(lp);
  QElapsedTimer watch;
  for ([[maybe_unused]] auto step : state) {
    QTimer::singleShot(0, [&] {
      session.Draw(screen::kPrint);
      Note(state, watch, 0);
      session.Press(screen::kPrint, Qt::Key_Escape);
    });
    watch.start();
    PrintBySpreadsheet(session.desk(), ReportKind::kResults);
  }
}
BENCHMARK_CAPTURE(OpenPrintForm, no_service, Programs::Lp::kMissing)->Apply(RepeatTen);
BENCHMARK_CAPTURE(OpenPrintForm, no_server, Programs::Lp::kThere)->Apply(RepeatTen);

}  // namespace
}  // namespace kalvo
