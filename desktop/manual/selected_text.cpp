#include "desktop/manual/selected_text.h"

#include <QTextBlock>
#include <QTextDocument>
#include <QTextTable>

namespace kalvo {
namespace {

// The part of a paragraph that is selected.
QString SelectedOf(const QTextBlock& block, const QTextCursor& selection) {
  const int first = qMax(selection.selectionStart(), block.position());
  const int end = qMin(selection.selectionEnd(), block.position() + block.length() - 1);
  return block.text().mid(first - block.position(), qMax(end - first, 0));
}

QString CellText(const QTextTableCell& cell) {
  QTextCursor inside = cell.firstCursorPosition();
  inside.setPosition(cell.lastCursorPosition().position(), QTextCursor::KeepAnchor);
  return inside.selectedText();
}

// Cells that were selected as a rectangle.
QString SelectedCells(const QTextCursor& selection) {
  int row = 0;
  int rows = 0;
  int column = 0;
  int columns = 0;
  selection.selectedTableCells(&row, &rows, &column, &columns);
  QStringList lines;
  for (int at = row; at < row + rows; ++at) {
    QStringList cells;
    for (int in = column; in < column + columns; ++in) {
      cells << CellText(selection.currentTable()->cellAt(at, in));
    }
    lines << cells.join('\t');
  }
  return lines.join('\n');
}

}  // namespace

QString SelectedText(const QTextCursor& selection) {
  if (selection.hasComplexSelection() && selection.currentTable() != nullptr) {
    return SelectedCells(selection);
  }
  QString text;
  QTextTableCell before;
  const QTextDocument* document = selection.document();
  QTextBlock block = document->findBlock(selection.selectionStart());
  for (bool first = true; block.isValid() && block.position() <= selection.selectionEnd();
       block = block.next(), first = false) {
    const QTextCursor at(block);
    const QTextTable* table = at.currentTable();
    const QTextTableCell cell = table == nullptr ? QTextTableCell() : table->cellAt(at);
    const bool same_row = cell.isValid() && before.isValid() && cell.row() == before.row();
    if (!first) text += same_row ? '\t' : '\n';
    text += SelectedOf(block, selection);
    before = cell;
  }
  return text;
}

}  // namespace kalvo
