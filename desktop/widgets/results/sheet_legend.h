#pragma once

#include <QWidget>

namespace kalvo {

/// What the colours of a sheet of results say: diameter calculated, diameter changed, critical
/// branch.
class SheetLegend : public QWidget {
  Q_OBJECT

 public:
  explicit SheetLegend(QWidget* parent = nullptr);

  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace kalvo
