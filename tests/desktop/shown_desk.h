#pragma once

#include <QCoreApplication>
#include <QKeyEvent>

#include "desktop/windows.h"
#include "tests/support/test_desk.h"

namespace kalvo {

/// The program's windows over a study in memory.
struct ShownDesk : TestDesk {
  ShownDesk() {
    shown.volumes = &volumes;
    windows.SetDesk(shown);
  }
  Windows windows{QString()};
  Desk shown{test.bench, windows, sound, viewer, clipboard, printer, Separators{',', '.'}};

  template <typename Widget>
  Widget& Part(std::string_view screen, const char* name) {
    return *windows.WindowOf(screen)->findChild<Widget*>(QString::fromLatin1(name));
  }
};

/// The user types; QTest::keyClick() cannot type Greek letters.
inline void TypeText(QWidget& widget, const QString& text) {
  for (const QChar letter : text) {
    QKeyEvent press(QEvent::KeyPress, letter.toUpper().unicode(), Qt::NoModifier, QString(letter));
    QCoreApplication::sendEvent(&widget, &press);
  }
}

}  // namespace kalvo
