#pragma once

#include <QWidget>

namespace kalvo {

/// What the colours of a sheet of results say: diameter calculated, diameter changed, critical
/// branch. With `ofChange` those of the sections that are to change: diameter that waits, critical
/// branch.
class SheetLegend : public QWidget {
  Q_OBJECT
  Q_PROPERTY(bool ofChange READ OfChange WRITE SetOfChange)

 public:
  explicit SheetLegend(QWidget* parent = nullptr);

  [[nodiscard]] bool OfChange() const { return of_change_; }
  void SetOfChange(bool of_change);
  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  bool of_change_ = false;
};

}  // namespace kalvo
