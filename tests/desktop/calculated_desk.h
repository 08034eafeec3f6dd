#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "desktop/windows.h"
#include "engine/calculation_command.h"
#include "tests/support/calculated_case.h"
#include "tests/support/test_desk.h"

namespace kalvo {

/// The program's windows over a study file that is calculated anew.
struct CalculatedDesk {
  explicit CalculatedDesk(const std::filesystem::path& file) : study(file, KALVO_LIBRARY_DIR) {
    EXPECT_EQ(Calculate(study.bench, Method::kFlowOnly), CommandEnd::kCalculated);
    desk.volumes = &volumes;
    windows.SetDesk(desk);
    desk.screens.results_begin = true;
  }

  CalculatedCase study;
  CountedSound sound;
  NotedViewer viewer;
  MemoryClipboard clipboard;
  NotedPrinter printer;
  SetVolumes volumes;
  Windows windows{QString()};
  Desk desk{study.bench, windows, sound, viewer, clipboard, printer, Separators{',', '.'}};

  /// In that size, whatever the screen's.
  QWidget& Open(std::string_view screen, QSize size) {
    windows.Show(screen);
    QWidget& window = *windows.WindowOf(screen);
    window.resize(size);
    QApplication::processEvents();
    return window;
  }
};

/// No label is narrower or lower than its text, no field or button lower than it must be.
inline void ExpectNothingClipped(const QWidget& window) {
  for (const QLabel* label : window.findChildren<QLabel*>()) {
    if (!label->isVisible() || label->wordWrap()) continue;
    EXPECT_GE(label->width(), label->minimumSizeHint().width()) << label->text().toStdString();
    EXPECT_GE(label->height(), label->minimumSizeHint().height()) << label->text().toStdString();
  }
  for (const QWidget* widget : window.findChildren<QWidget*>()) {
    const bool operable = qobject_cast<const QLineEdit*>(widget) != nullptr ||
                          qobject_cast<const QPushButton*>(widget) != nullptr;
    if (!operable || !widget->isVisible()) continue;
    EXPECT_GE(widget->height(), widget->minimumSizeHint().height())
        << widget->objectName().toStdString();
    EXPECT_GE(widget->width(), widget->minimumSizeHint().width())
        << widget->objectName().toStdString();
  }
}

}  // namespace kalvo
