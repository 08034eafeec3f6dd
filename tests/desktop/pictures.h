#pragma once

#include <QString>
#include <QWidget>

namespace kalvo {

/// Saves the widget as <folder>/<name>.png when the environment variable KALVO_PICTURES names a
/// folder: for looking at, and for comparing two states of the look.
void KeepPicture(QWidget& widget, const QString& name);

}  // namespace kalvo
