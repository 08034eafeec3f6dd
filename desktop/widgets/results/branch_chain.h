#pragma once

#include "desktop/widgets/pictures/painted_picture.h"
#include "form/pictures.h"

namespace kalvo {

/// A branch drawn node by node. Where there is no room for every name, those of the ends and of the
/// current section come first; the tooltip names the node under the mouse.
class BranchChain : public PaintedPicture {
  Q_OBJECT

 public:
  explicit BranchChain(QWidget* parent = nullptr);

  void SetContent(const ChainContent& branch);

  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool event(QEvent* event) override;
  [[nodiscard]] int PlaceAt(const QPoint& point) const override;

 private:
  [[nodiscard]] qsizetype NodeCount() const { return std::ssize(branch_.nodes); }
  [[nodiscard]] QString NodeName(qsizetype node) const;
  [[nodiscard]] double NodeX(qsizetype node) const;
  /// How many stretches a point is from the first node.
  [[nodiscard]] double StretchesTo(const QPoint& point) const;
  void DrawSections(QPainter& painter) const;
  void DrawNodes(QPainter& painter) const;
  void DrawNames(QPainter& painter) const;

  ChainContent branch_;
};

}  // namespace kalvo
