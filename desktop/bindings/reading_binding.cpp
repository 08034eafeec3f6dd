#include "desktop/bindings/reading_binding.h"

#include <QScrollBar>
#include <utility>

#include "desktop/qt_text.h"

namespace kalvo {

ReadingBinding::ReadingBinding(Reading& reading, ManualBrowser& browser, const Act& act)
    : reading_(reading), browser_(browser) {
  connect(&browser, &QTextBrowser::anchorClicked, this, [&reading, act](const QUrl& target) {
    act([&] { reading.on_follow(target.toString(QUrl::None).toStdString()); });
  });
  connect(&browser, &ManualBrowser::Scrolled, this, [this](int place) {
    if (turns_ == reading_.turns()) reading_.scrolled = place;
  });
}

void ReadingBinding::Paint() {
  if (std::exchange(markings_, reading_.markings()) != reading_.markings()) {
    browser_.MarkWords(reading_.marked());
  }
  if (turns_ == reading_.turns()) return;
  const int wanted = reading_.scrolled;
  if (std::exchange(shown_, reading_.text()) != reading_.text()) {
    browser_.ShowText(reading_.text(), reading_.folder);
  }
  reading_.anchor().empty() ? browser_.ScrollTo(wanted) : browser_.TurnTo(ToQt(reading_.anchor()));
  turns_ = reading_.turns();
  reading_.scrolled = browser_.verticalScrollBar()->value();
}

}  // namespace kalvo
