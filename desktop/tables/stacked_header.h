#pragma once

#include <QHeaderView>
#include <QList>

namespace kalvo {

/// A column's head as it is painted.
struct HeadLines {
  QStringList words;
  QString unit;  ///< pinned to the last line; may be empty
};

/// One word a line: breaks at blanks and after hyphens, or only at line feeds when there are any.
/// "<ΤΑΥ> ΣΕ" stays together. What is in [ ], or a line that ends in ], is the unit.
HeadLines StackedLines(const QString& head);

/// Heads of columns with their words under each other and the unit on the last line. The tooltip
/// has the whole text; a double click fits the column to its content.
class StackedHeader : public QHeaderView {
  Q_OBJECT

 public:
  explicit StackedHeader(QWidget* parent = nullptr);

  /// Columns after which a strong line closes a family of columns.
  void SetFamilyEnds(const QList<int>& columns);

  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintSection(QPainter* painter, const QRect& rect, int column) const override;
  [[nodiscard]] QSize sectionSizeFromContents(int column) const override;
  bool viewportEvent(QEvent* event) override;

 private:
  [[nodiscard]] HeadLines LinesOf(int column) const;
  void DrawSortMark(QPainter& painter, const QRect& rect) const;
  void FitColumn(int column);

  QList<int> family_ends_;
};

}  // namespace kalvo
