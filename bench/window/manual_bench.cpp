// The manual: from the key to the chapter on the screen.

#include "bench/window/session.h"
#include "shell/manual/manual_chapters.h"

namespace kalvo {
namespace {

// The chapter of the screen that is asked from, the window drawn with it.
void KeyToChapter(benchmark::State& state) {
  const Home home;
  Session session(home);
  session.StartToMenu();
  QElapsedTimer watch;
  for (auto _ : state) {
    watch.start();
    session.Press(screen::kMain, Qt::Key_F1, {}, Qt::ShiftModifier);
    session.Draw(screen::kManual);
    Note(state, watch, 0);
    session.Press(screen::kManual, Qt::Key_Escape);
  }
}
BENCHMARK(KeyToChapter)->Apply(RepeatTen);

// The longest chapters in a window that is open: a table of many rows, and many pictures; the whole
// of the messages.
void TurnToChapter(benchmark::State& state, const char* chapter) {
  const Home home;
  Session session(home);
  session.StartToMenu();
  auto& windows = dynamic_cast<Windows&>(session.desk().navigator);
  QElapsedTimer watch;
  for (auto _ : state) {
    watch.start();
    windows.ShowManualFor(*windows.WindowOf(screen::kMain), {chapter});
    session.Draw(screen::kManual);
    Note(state, watch, 0);
    windows.Close(screen::kManual);
    session.Repaint();
  }
}
BENCHMARK_CAPTURE(TurnToChapter, Fancoil, "02-fancoil")->Apply(RepeatTen);
BENCHMARK_CAPTURE(TurnToChapter, Keys, "14-keys")->Apply(RepeatTen);
BENCHMARK_CAPTURE(TurnToChapter, Messages, "15-messages")->Apply(RepeatTen);

}  // namespace
}  // namespace kalvo
