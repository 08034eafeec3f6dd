#pragma once

#include <QWidget>

namespace kalvo {

/// The program's icon beside its name and one line that says what it is for.
class TitleArt : public QWidget {
  Q_OBJECT

 public:
  /// `icon_size` in px: 96 on the title screen, with the name in 24 pt; 48 with 16 pt elsewhere.
  TitleArt(const QString& name, const QString& line, int icon_size, double name_points,
           QWidget* parent = nullptr);
};

}  // namespace kalvo
