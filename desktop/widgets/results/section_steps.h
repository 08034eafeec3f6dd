#pragma once

#include <QList>
#include <QWidget>

namespace kalvo {

/// One step of a section's calculation, all as text: "λ", "Συντελεστής τριβής", "0,0339".
struct SectionStep {
  QString symbol;
  QString name;
  QString formula;
  QString value;
  QString unit;
};

/// How a section's drop comes about: the steps under each other, the last one with its tile filled
/// as the result of the others.
class SectionSteps : public QWidget {
  Q_OBJECT

 public:
  explicit SectionSteps(QWidget* parent = nullptr);

  void SetSteps(const QList<SectionStep>& steps);

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void DrawStep(QPainter& painter, const SectionStep& step, const QRect& row, bool is_last) const;
  [[nodiscard]] int UnitWidth() const;

  QList<SectionStep> steps_;
};

}  // namespace kalvo
