#include "desktop/manual/manual_document.h"

#include <QFileInfo>
#include <QImageReader>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextFrame>
#include <QTextList>
#include <QTextTable>

#include "desktop/qt_text.h"
#include "shell/manual/markdown_html.h"
#include "study/path_text.h"

namespace kalvo {
namespace {

constexpr double kCellPadding = 5;
// A table of more columns has smaller letters and less room around them.
constexpr int kRoomyColumns = 7;
constexpr double kDenseLetters = 0.8;
constexpr double kDenseHeads = 0.66;
constexpr double kDensePadding = 2;
constexpr double kHairline = 1;
constexpr double kQuoteMargin = 12;
constexpr double kRoomUnderTable = 12;

QString StyleOf(const ManualLook& look) {
  const Theme& theme = *look.theme;
  const auto points = [&](double share) {
    return QString::number(look.body_points * share, 'f', 2);
  };
  return QStringLiteral(
             "body { color: %1; }"
             "h1 { font-size: %2pt; font-weight: bold; color: %6; margin: 0 0 14px 0; }"
             "h2 { font-size: %3pt; font-weight: bold; margin: 26px 0 8px 0; }"
             "h3 { font-size: %4pt; font-weight: bold; margin: 18px 0 6px 0; }"
             "h4 { font-size: %5pt; font-weight: bold; margin: 14px 0 4px 0; }"
             "p { margin: 0 0 9px 0; }"
             "p.picture { margin: 10px 0 14px 0; }"
             "li { margin: 0 0 4px 0; }"
             "a { color: %6; text-decoration: none; }"
             ".caption { color: %7; font-size: %8pt; }"
             ".key { background-color: %9; }")
             .arg(theme.ink.name(), points(1.9), points(1.35), points(1.1), points(1.0),
                  theme.primary.name(), theme.ink3.name(), points(0.88), theme.header.name()) +
         QStringLiteral(
             "pre { background-color: %1; font-family: 'Noto Sans Mono', 'DejaVu Sans "
             "Mono', monospace; font-size: %2pt; margin: 6px 0 12px 0; }")
             .arg(theme.header.name(), points(0.86));
}

// The picture's tag, with the size that it is shown in; one that is not there leaves its caption.
class PictureTags {
 public:
  PictureTags(const std::filesystem::path& folder, const ManualLook& look)
      : folder_(folder), look_(look) {}

  std::string operator()(std::string_view target, std::string_view caption) const {
    const QString file = FileOf(target);
    const QSize size = QImageReader(file).size();
    const std::string words = HtmlText(caption);
    if (size.isEmpty()) return "<i>" + words + "</i>";
    const int wanted = qRound(size.width() * look_.picture_scale);
    const int width = std::min(wanted, look_.widest_picture);
    const int height = qRound(static_cast<double>(size.height()) * width / size.width());
    return "<img src=\"" + HtmlText(file.toStdString()) + "\" width=\"" + std::to_string(width) +
           "\" height=\"" + std::to_string(height) + "\"/><br/><span class=\"caption\">" + words +
           "</span>";
  }

 private:
  [[nodiscard]] QString FileOf(std::string_view target) const {
    const QString file =
        QString::fromStdString((folder_ / PathFromText(std::string(target))).lexically_normal());
    const QFileInfo info(file);
    const QString dark =
        info.path() + '/' + info.completeBaseName() + QStringLiteral("-dark.") + info.suffix();
    return look_.dark && QFileInfo::exists(dark) ? dark : file;
  }

  const std::filesystem::path& folder_;
  const ManualLook& look_;
};

void SetCell(QTextTable& table, int row, int column, const ManualLook& look) {
  const Theme& theme = *look.theme;
  const bool dense = table.columns() > kRoomyColumns;
  QTextTableCell cell = table.cellAt(row, column);
  QTextTableCellFormat format = cell.format().toTableCellFormat();
  format.setPadding(dense ? kDensePadding : kCellPadding);
  format.setTopPadding(kCellPadding / 2);
  format.setBottomPadding(kCellPadding / 2);
  format.setBottomBorder(kHairline);
  format.setBottomBorderStyle(QTextFrameFormat::BorderStyle_Solid);
  format.setBottomBorderBrush(row == 0 ? theme.border : theme.line);
  format.setVerticalAlignment(QTextCharFormat::AlignTop);
  if (row == 0) format.setBackground(theme.header);
  cell.setFormat(format);
  if (!dense) return;
  QTextCharFormat letters;
  letters.setFontPointSize(look.body_points * (row == 0 ? kDenseHeads : kDenseLetters));
  QTextCursor text = cell.firstCursorPosition();
  text.setPosition(cell.lastCursorPosition().position(), QTextCursor::KeepAnchor);
  text.mergeCharFormat(letters);
}

// How much of the table's width a column wants, in letters: its longest word is not broken, a cell
// of many words has several lines.
double WishOf(const QTextTable& table, int column) {
  constexpr qsizetype kLongLine = 46;
  constexpr double kRoom = 2;
  qsizetype wish = 1;
  for (int row = 0; row < table.rows(); ++row) {
    const QTextTableCell cell = table.cellAt(row, column);
    QTextCursor text = cell.firstCursorPosition();
    text.setPosition(cell.lastCursorPosition().position(), QTextCursor::KeepAnchor);
    const QString words = text.selectedText();
    // Where there are many columns single words are what counts.
    if (table.columns() <= kRoomyColumns) wish = std::max(wish, std::min(words.size(), kLongLine));
    for (const QString& word : words.split(QLatin1Char(' '))) wish = std::max(wish, word.size());
  }
  return static_cast<double>(wish) + kRoom;
}

QList<QTextLength> WidthsOf(const QTextTable& table) {
  QList<double> wishes;
  double all = 0;
  for (int column = 0; column < table.columns(); ++column) {
    wishes.push_back(WishOf(table, column));
    all += wishes.back();
  }
  QList<QTextLength> widths;
  constexpr double kWhole = 100;
  for (const double wish : wishes) {
    widths.push_back(QTextLength(QTextLength::PercentageLength, kWhole * wish / all));
  }
  return widths;
}

void SetTable(QTextTable& table, const ManualLook& look) {
  QTextTableFormat format = table.format();
  format.setBorder(0);
  format.setCellSpacing(0);
  format.setCellPadding(0);
  format.setHeaderRowCount(1);
  format.setColumnWidthConstraints(WidthsOf(table));
  format.setTopMargin(6);
  format.setBottomMargin(0);  // heads are painted once more on a page that room alone reaches
  table.setFormat(format);
  for (int row = 0; row < table.rows(); ++row) {
    for (int column = 0; column < table.columns(); ++column) {
      SetCell(table, row, column, look);
    }
  }
}

void SetTables(QTextDocument& document, const ManualLook& look) {
  for (QTextFrame* frame : document.rootFrame()->childFrames()) {
    if (auto* table = qobject_cast<QTextTable*>(frame)) SetTable(*table, look);
  }
}

bool IsPicture(const QTextBlock& block) {
  const auto first = block.begin();
  return !first.atEnd() && first.fragment().charFormat().isImageFormat();
}

bool IsInTable(const QTextBlock& block) {
  return block.isValid() && QTextCursor(block).currentTable() != nullptr;
}

// An empty block that no page shows ends a table.
bool FollowsTable(const QTextBlock& block) {
  QTextBlock before = block.previous();
  if (before.isValid() && before.text().isEmpty()) before = before.previous();
  return !IsInTable(block) && !block.text().isEmpty() && IsInTable(before);
}

// Lines a little apart read more easily; code and pictures keep their own.
void SetLines(QTextDocument& document, const ManualLook& look) {
  constexpr double kLineHeight = 118;
  for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
    QTextBlockFormat format = block.blockFormat();
    const bool code = format.nonBreakableLines();
    if (!code && !IsPicture(block))
      format.setLineHeight(kLineHeight, QTextBlockFormat::ProportionalHeight);
    if (IsQuote(block)) {
      format.setLeftMargin(kQuoteMargin);
      format.setRightMargin(0);
      format.setBackground(look.theme->zebra);
      if (IsQuote(block.next())) format.setBottomMargin(0);  // one ground for all of it
    }
    if (FollowsTable(block)) {
      format.setTopMargin(std::max(format.topMargin(), kRoomUnderTable));
    }
    QTextCursor(block).setBlockFormat(format);
  }
}

}  // namespace

// What the program itself says is quoted; a list is indented otherwise.
bool IsQuote(const QTextBlock& block) {
  return block.isValid() && block.blockFormat().leftMargin() > 0 && block.textList() == nullptr &&
         !IsInTable(block);
}

void SetManualText(QTextDocument& document, const std::string& markdown,
                   const std::filesystem::path& folder, const ManualLook& look) {
  document.setUndoRedoEnabled(false);
  document.setDefaultFont(ThemeFont(look.body_points));
  document.setDefaultStyleSheet(StyleOf(look));
  document.setHtml("<body>" + ToQt(MarkdownToHtml(markdown, PictureTags(folder, look))) +
                   "</body>");
  QTextCursor all(&document);
  all.beginEditBlock();  // a document on show is laid out once, at the end
  SetTables(document, look);
  SetLines(document, look);
  all.endEditBlock();
}

QImage ManualPicture(const QString& file, int width, double ratio) {
  QImage picture(file);
  if (picture.isNull()) return picture;
  const int dots = qRound(width * ratio);
  if (dots > 0 && dots < picture.width()) {
    picture = picture.scaledToWidth(dots, Qt::SmoothTransformation);
  }
  return picture;
}

}  // namespace kalvo
