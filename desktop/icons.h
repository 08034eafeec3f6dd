#pragma once

#include <QColor>
#include <QIcon>
#include <QPixmap>
#include <QString>

namespace kalvo {

inline constexpr int kButtonIconSize = 18;

/// The icon :/icons/<name>.svg in the colours of the active theme, sharp at every size and screen.
/// Its lines are ink2, or `line` when that is valid; ink3 when disabled.
QIcon ThemeIcon(const QString& name, const QColor& line = {});

/// The same as a square picture of `size` px, for painting at a screen's `ratio`.
QPixmap IconPixmap(const QString& name, int size, double ratio, const QColor& line = {});

}  // namespace kalvo
