#pragma once

#include <QHash>
#include <QList>
#include <QStaticText>
#include <QStyledItemDelegate>
#include <QTableView>

namespace kalvo {

/// Cells of a sheet: rows of the critical branch tinted with their name (column 0) in bold, the
/// selection over the tint, a ring around the current cell, strong lines between families of
/// columns. A text "label : value" has its label at the left in grey and its value at the right. A
/// share is a bar below the text. A cell with kMarksLook has a bar at its left where the row is
/// selected, and the icon of the branch.
/// Wants a model with the roles of cell_roles.h, whose texts and alignments are all it takes beside
/// them.
class SheetDelegate : public QStyledItemDelegate {
  Q_OBJECT

 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  /// Columns after which a strong line closes a family of columns.
  void SetFamilyEnds(const QList<int>& columns) { family_ends_ = columns; }
  /// The row of the current cell is tinted as the selection is.
  void SetTintsCurrentRow(bool tints) { tints_current_row_ = tints; }

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;

 protected:
  /// A cell as it is to be painted.
  struct Cell {
    QRect rect;
    QString text;
    Qt::Alignment alignment;
    QFont font;  ///< of the table
    int look = 0;
    int column = 0;
  };

  /// Between ground and ring.
  virtual void DrawContent(QPainter& painter, const Cell& cell, const QModelIndex& index) const;

 private:
  struct Line {
    QStaticText text;
    QSizeF size;
  };
  // Texts laid out in one font: a sheet shows the same few again and again.
  struct LaidOut {
    QFont font;
    QHash<QString, Line> lines;

    void UseFont(const QFont& wanted);
    const Line& Of(const QString& text);
  };

  static void DrawMarks(QPainter& painter, const Cell& cell, bool selected);
  static void DrawShare(QPainter& painter, const QRect& rect, const QVariant& share);
  static void DrawLine(QPainter& painter, const QRect& rect, Qt::Alignment alignment,
                       const QString& text, LaidOut& laid_out);

  QList<int> family_ends_;
  bool tints_current_row_ = false;
  mutable LaidOut plain_;
  mutable LaidOut bold_;
};

/// Paints the rows of two cells anew where they are not the same: the view does so with the cells
/// alone, and the tint is the whole row's.
void RepaintTintedRows(const QTableView& view, const QModelIndex& now, const QModelIndex& before);

/// A diameter as a chip in the cell's BackgroundRole; with kImposedLook bold, with a dark edge and
/// a pencil, with kWaitingLook bold, with the word for it.
class DiameterDelegate : public SheetDelegate {
  Q_OBJECT

 public:
  using SheetDelegate::SheetDelegate;

 protected:
  void DrawContent(QPainter& painter, const Cell& cell, const QModelIndex& index) const override;

 private:
  static void DrawWaiting(QPainter& painter, const QRectF& chip, const QString& text);
};

}  // namespace kalvo
