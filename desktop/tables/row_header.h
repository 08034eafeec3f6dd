#pragma once

#include <QHeaderView>

namespace kalvo {

/// Row numbers: the current one bold on the colour of the selection, those of the critical branch
/// with a bar and an icon.
class RowHeader : public QHeaderView {
  Q_OBJECT

 public:
  explicit RowHeader(QWidget* parent = nullptr);

  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintSection(QPainter* painter, const QRect& rect, int row) const override;
  [[nodiscard]] QSize sectionSizeFromContents(int row) const override;
};

}  // namespace kalvo
