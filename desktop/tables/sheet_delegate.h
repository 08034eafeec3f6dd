#pragma once

#include <QList>
#include <QStyledItemDelegate>

namespace kalvo {

/// Cells of a sheet: rows of the critical branch tinted with their name (column 0) in bold, the
/// selection over the tint, a ring around the current cell, strong lines between families of
/// columns. A text "label : value" has its label at the left in grey and its value at the right.
/// Wants a model with the roles of cell_roles.h; sets no text itself.
class SheetDelegate : public QStyledItemDelegate {
  Q_OBJECT

 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  /// Columns after which a strong line closes a family of columns.
  void SetFamilyEnds(const QList<int>& columns) { family_ends_ = columns; }

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;

 protected:
  /// Between ground and ring; the painter is saved and restored around it.
  virtual void DrawContent(QPainter& painter, const QStyleOptionViewItem& option,
                           const QModelIndex& index) const;

 private:
  QList<int> family_ends_;
};

/// A diameter as a chip in the cell's BackgroundRole; with kImposedRole bold, with a dark edge and
/// a pencil.
class DiameterDelegate : public SheetDelegate {
  Q_OBJECT

 public:
  using SheetDelegate::SheetDelegate;

 protected:
  void DrawContent(QPainter& painter, const QStyleOptionViewItem& option,
                   const QModelIndex& index) const override;
};

}  // namespace kalvo
