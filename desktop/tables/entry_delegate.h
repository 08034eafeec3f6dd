#pragma once

#include <QStyledItemDelegate>

namespace kalvo {

struct EntryLine;

/// Paints the lines of an EntryModel: a box to tick or an icon, the name, what is said of it, and
/// its detail at the right edge.
class EntryDelegate : public QStyledItemDelegate {
 public:
  EntryDelegate(int row_height, QObject* parent)
      : QStyledItemDelegate(parent), row_height_(row_height) {}

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
  [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                               const QModelIndex& index) const override;

 private:
  static int DrawMark(QPainter& painter, const QStyleOptionViewItem& option, const EntryLine& line,
                      bool ticks, bool ticked);
  static void DrawTexts(QPainter& painter, const QRect& place, const EntryLine& line, bool bold);

  int row_height_;
};

}  // namespace kalvo
