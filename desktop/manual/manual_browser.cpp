#include "desktop/manual/manual_browser.h"

#include <QAbstractTextDocumentLayout>
#include <QMimeData>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextDocument>
#include <algorithm>

#include "desktop/manual/manual_document.h"
#include "desktop/manual/selected_text.h"
#include "desktop/qt_text.h"
#include "shell/manual/manual_search.h"
#include "shell/search_text.h"

namespace kalvo {
namespace {

constexpr int kMargin = 24;
constexpr int kWidestPicture = 860;
constexpr int kRounding = 2;  // of the width that the text has
constexpr int kResizeMs = 120;
constexpr int kTopLine = 8;  // a height within the first line on show

// The stretches of a text between blanks and signs.
std::vector<std::pair<int, int>> WordsIn(const QString& text) {
  std::vector<std::pair<int, int>> words;
  int begin = -1;
  for (int i = 0; i <= text.size(); ++i) {
    const bool of_word = i < text.size() && (text[i].isLetterOrNumber() || text[i].isMark());
    if (of_word && begin < 0) begin = i;
    if (!of_word && begin >= 0) words.emplace_back(std::exchange(begin, -1), i);
  }
  return words;
}

}  // namespace

ManualBrowser::ManualBrowser(QWidget* parent) : QTextBrowser(parent) {
  setOpenLinks(false);
  // The width of the text is not the text's own doing.
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
  document()->setDocumentMargin(kMargin);
  resized_.setSingleShot(true);
  resized_.setInterval(kResizeMs);
  connect(&resized_, &QTimer::timeout, this, [this] { SetAnewAtItsPlace(); });
  connect(verticalScrollBar(), &QScrollBar::valueChanged, this, [this](int place) {
    if (!setting_ && !resized_.isActive()) NoteTop();
    Q_EMIT Scrolled(place);
  });
}

int ManualBrowser::PictureRoom() const {
  return std::min(viewport()->width() - 2 * kMargin - kRounding, kWidestPicture);
}

void ManualBrowser::ShowText(const std::string& markdown, const std::filesystem::path& folder) {
  markdown_ = markdown;
  folder_ = folder;
  SetText();
}

void ManualBrowser::SetText() {
  room_ = PictureRoom();
  setting_ = true;  // scroll bars come and go meanwhile
  // With a device the layout would read every picture to scale its size by it.
  document()->documentLayout()->setPaintDevice(nullptr);
  const bool dark = &ActiveTheme() == &kDarkTheme;
  SetManualText(*document(), markdown_, folder_,
                {.theme = &ActiveTheme(), .widest_picture = std::max(room_, 1), .dark = dark});
  document()->setDocumentMargin(kMargin);
  setting_ = false;
  MarkWords(marked_);
}

void ManualBrowser::TurnTo(const QString& anchor) {
  if (anchor.isEmpty()) {
    verticalScrollBar()->setValue(0);
  } else {
    scrollToAnchor(anchor);
  }
  BringMarkInSight();
  NoteTop();
}

// In a long part the words that were looked for may be far below its heading.
void ManualBrowser::BringMarkInSight() {
  const int top = cursorForPosition({kMargin, kTopLine}).position();
  for (const QTextEdit::ExtraSelection& mark : extraSelections()) {
    if (mark.cursor.selectionEnd() <= top) continue;
    const int below = cursorRect(mark.cursor).bottom() - viewport()->height();
    if (below > 0) {
      verticalScrollBar()->setValue(verticalScrollBar()->value() + below +
                                    viewport()->height() / 2);
    }
    return;
  }
}

void ManualBrowser::ScrollTo(int place) {
  verticalScrollBar()->setValue(place);
  NoteTop();
}

void ManualBrowser::NoteTop() { top_ = cursorForPosition({kMargin, kTopLine}).position(); }

void ManualBrowser::MarkWords(const std::string& typed) {
  marked_ = typed;
  const std::vector<std::string> wanted = SearchWords(typed);
  QList<QTextEdit::ExtraSelection> marks;
  for (QTextBlock block = document()->begin(); !wanted.empty() && block.isValid();
       block = block.next()) {
    const QString text = block.text();
    for (const auto& [begin, end] : WordsIn(text)) {
      const std::string key = SearchKey(text.mid(begin, end - begin).toStdString());
      const bool found = std::ranges::any_of(
          wanted, [&](const std::string& word) { return key.find(word) != std::string::npos; });
      if (!found) continue;
      QTextEdit::ExtraSelection mark;
      mark.cursor = QTextCursor(block);
      mark.cursor.setPosition(block.position() + begin);
      mark.cursor.setPosition(block.position() + end, QTextCursor::KeepAnchor);
      mark.format.setBackground(ActiveTheme().warnbg);
      mark.format.setForeground(ActiveTheme().warn);
      marks.push_back(mark);
    }
  }
  setExtraSelections(marks);
}

QVariant ManualBrowser::loadResource(int type, const QUrl& name) {
  if (type != QTextDocument::ImageResource) return {};
  QImage picture = ManualPicture(name.toString(), room_, devicePixelRatioF());
  picture.setDevicePixelRatio(std::max(1.0, static_cast<double>(picture.width()) / room_));
  return picture;
}

QMimeData* ManualBrowser::createMimeDataFromSelection() const {
  auto* copied = new QMimeData;
  copied->setText(SelectedText(textCursor()));
  return copied;
}

void ManualBrowser::resizeEvent(QResizeEvent* event) {
  // The place is kept by what is at the top, since heights change.
  if (!markdown_.empty() && !setting_) resized_.start();
  QTextBrowser::resizeEvent(event);
}

void ManualBrowser::SetAnewAtItsPlace() {
  if (PictureRoom() != room_) SetText();
  QTextCursor cursor(document());
  cursor.setPosition(std::min(top_, document()->characterCount() - 1));
  const QRect place = cursorRect(cursor);
  verticalScrollBar()->setValue(verticalScrollBar()->value() + place.top() - 1);
}

}  // namespace kalvo
