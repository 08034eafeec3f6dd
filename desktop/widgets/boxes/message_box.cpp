#include "desktop/widgets/boxes/message_box.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QRegularExpression>
#include <QScreen>
#include <QTableWidget>
#include <QVBoxLayout>

#include "desktop/icons.h"
#include "desktop/key_event.h"
#include "desktop/theme.h"
#include "desktop/widgets/buttons/hint_button.h"
#include "desktop/widgets/labels/long_words.h"
#include "form/key.h"
#include "shell/message_style.h"

namespace kalvo {
namespace {

constexpr int kNarrowestBox = 520;
constexpr int kWidest = 640;
constexpr int kWidestFact = 400;
constexpr int kButtonWidth = 104;
constexpr int kDisc = 52;
constexpr int kDiscIcon = 30;

struct IconLook {
  const char* name;
  QColor Theme::*line;
  QColor Theme::*ground;
};

IconLook LookOf(BoxIcon icon) {
  switch (icon) {
    case BoxIcon::kStop:
      return {"stop", &Theme::err, &Theme::errbg};
    case BoxIcon::kExclamation:
      return {"exclamation", &Theme::warn, &Theme::warnbg};
    case BoxIcon::kQuestion:
      return {"question", &Theme::primary, &Theme::soft};
    case BoxIcon::kInformation:
    case BoxIcon::kNone:
      break;
  }
  return {"information", &Theme::info, &Theme::infobg};
}

QPixmap IconDisc(BoxIcon icon, double ratio) {
  const IconLook look = LookOf(icon);
  QPixmap disc(QSize(kDisc, kDisc) * ratio);
  disc.setDevicePixelRatio(ratio);
  disc.fill(Qt::transparent);
  QPainter painter(&disc);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(ActiveTheme().*look.ground);
  painter.drawEllipse(0, 0, kDisc, kDisc);
  constexpr int kInset = (kDisc - kDiscIcon) / 2;
  painter.drawPixmap(QPoint(kInset, kInset), IconPixmap(look.name, kDiscIcon, ratio));
  return disc;
}

// A chain of sections has no blank to break at, nor has a long name of a file.
QString Breakable(QString text) {
  static const QRegularExpression link("(?<=\\d)-(?=\\d)");
  return WithBreaks(text.replace(link, QStringLiteral("-\u200B")));
}

// The blanks around a line centred it once; empty lines at the ends only kept it off the edges.
QStringList PaintedLines(const Box& box) {
  QStringList lines;
  for (const std::string& line : box.lines) {
    lines << Breakable(QString::fromStdString(line).trimmed());
  }
  while (!lines.isEmpty() && lines.first().isEmpty()) lines.removeFirst();
  while (!lines.isEmpty() && lines.last().isEmpty()) lines.removeLast();
  return lines;
}

bool SpeaksOfYesAndNo(const QStringList& lines) {
  static const QRegularExpression words("\\b(yes|no)\\b",
                                        QRegularExpression::CaseInsensitiveOption);
  return lines.join('\n').contains(words);
}

QTableWidget* MakeTable(const MessageFacts& facts) {
  constexpr int kTableHeight = 230;
  const auto columns = static_cast<int>(facts.heads.size());
  auto* table = new QTableWidget(static_cast<int>(facts.rows.size()), columns);
  for (int column = 0; column < columns; ++column) {
    const auto at = static_cast<std::size_t>(column);
    table->setHorizontalHeaderItem(column,
                                   new QTableWidgetItem(QString::fromStdString(facts.heads[at])));
    for (int row = 0; row < table->rowCount(); ++row) {
      const auto& cells = facts.rows[static_cast<std::size_t>(row)];
      auto* item = new QTableWidgetItem(QString::fromStdString(cells[at]));
      item->setTextAlignment(Qt::AlignVCenter | (column == 1 ? Qt::AlignLeft : Qt::AlignRight));
      table->setItem(row, column, item);
    }
  }
  table->setEditTriggers(QAbstractItemView::NoEditTriggers);
  table->setTabKeyNavigation(false);
  table->verticalHeader()->hide();
  table->resizeColumnsToContents();
  table->setFixedHeight(kTableHeight);
  table->setAccessibleName(QString::fromStdString(facts.table_caption));
  table->hide();
  return table;
}

QString CaptionOf(Answer answer, bool with_english) {
  switch (answer) {
    case Answer::kYes:
      return with_english ? "&Ναι (Yes)" : "&Ναι";
    case Answer::kNo:
      return with_english ? "Ό&χι (No)" : "Ό&χι";
    case Answer::kCancel:
      return "Ά&κυρο";
    case Answer::kNone:
      break;
  }
  return "&Εντάξει";
}

}  // namespace

MessageBox::MessageBox(const Box& box, QWidget* parent)
    : QDialog(parent),
      // The last button is cancel, no, or OK.
      escape_answer_(box.may_stay_open ? Answer::kNone : StyleOf(box.style).buttons.back()),
      answer_(escape_answer_) {
  const QString title = QString::fromStdString(box.title).trimmed();
  setWindowTitle(title);
  setAccessibleName(title);
  QStringList spoken = {title};
  for (const auto& [caption, value] : box.facts.lines) {
    spoken << QString::fromStdString(caption + ' ' + value);
  }
  setAccessibleDescription((spoken + PaintedLines(box)).join('\n'));
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->setSizeConstraint(QLayout::SetFixedSize);
  if (!box.facts.lines.empty()) column->addWidget(MakeFacts(box.facts));
  column->addWidget(MakeBody(box), 1);
  column->addWidget(MakeBar(box));
}

QWidget* MessageBox::MakeBody(const Box& box) {
  constexpr int kMargin = 24;
  constexpr int kIconGap = 18;
  const int narrowest_text = kNarrowestBox - 2 * kMargin - kDisc - kIconGap;
  const int widest_text = kWidest - 2 * kMargin - kDisc - kIconGap;

  auto* body = new QWidget;
  auto* row = new QHBoxLayout(body);
  row->setContentsMargins(kMargin, 22, kMargin, 28);
  row->setSpacing(kIconGap);
  auto* icon = new QLabel;
  icon->setPixmap(IconDisc(StyleOf(box.style).icon, devicePixelRatioF()));
  row->addWidget(icon, 0, Qt::AlignTop);
  auto* lines = new QVBoxLayout;
  lines->setSpacing(6);
  for (const QString& line : PaintedLines(box)) {
    auto* label = new QLabel(line);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    if (lines->count() == 0) label->setProperty("role", "section");
    label->ensurePolished();
    const int width = label->fontMetrics().horizontalAdvance(line) + 2;
    label->setFixedWidth(qBound(narrowest_text, width, widest_text));
    lines->addWidget(label, 0, Qt::AlignLeft);
  }
  lines->addStretch();
  row->addLayout(lines, 1);
  body->setMinimumHeight(kDisc + 78);
  return body;
}

QWidget* MessageBox::MakeFacts(const MessageFacts& facts) {
  auto* card = new QFrame;
  card->setProperty("role", "card");
  auto* column = new QVBoxLayout(card);
  column->setContentsMargins(16, 12, 16, 12);
  column->setSpacing(6);
  auto* lines = new QGridLayout;
  lines->setHorizontalSpacing(24);
  for (const auto& [caption, value] : facts.lines) {
    auto* name = new QLabel(QString::fromStdString(caption));
    name->setProperty("role", "unit");
    auto* text = new QLabel(Breakable(QString::fromStdString(value)));
    text->setProperty("role", "bold");
    text->setTextFormat(Qt::PlainText);
    text->setWordWrap(true);
    text->ensurePolished();
    text->setFixedWidth(qMin(text->fontMetrics().horizontalAdvance(text->text()) + 2, kWidestFact));
    name->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    text->setAccessibleName(name->text() + ' ' + text->text());
    const int row = lines->rowCount();
    lines->addWidget(name, row, 0);
    lines->addWidget(text, row, 1);
  }
  lines->setColumnStretch(1, 1);
  column->addLayout(lines);
  if (!facts.rows.empty()) {
    QTableWidget* table = MakeTable(facts);
    auto* unfold = new QPushButton(QString::fromStdString(facts.table_caption));
    unfold->setCheckable(true);
    unfold->setAutoDefault(false);
    connect(unfold, &QPushButton::toggled, table, &QWidget::setVisible);
    connect(unfold, &QPushButton::toggled, this, [this] { KeepOnScreen(); });
    column->addWidget(unfold, 0, Qt::AlignLeft);
    column->addWidget(table);
  }
  auto* body = new QWidget;
  auto* around = new QVBoxLayout(body);
  around->setContentsMargins(24, 20, 24, 0);
  around->addWidget(card);
  return body;
}

void MessageBox::KeepOnScreen() {
  layout()->activate();  // it has its new height then
  const QRect free = screen()->availableGeometry();
  const int lowest = free.bottom() - frameGeometry().height() + 1;
  if (y() > lowest) move(x(), qMax(free.top(), lowest));
}

QWidget* MessageBox::MakeBar(const Box& box) {
  const BoxStyle box_style = StyleOf(box.style);
  const bool with_english = SpeaksOfYesAndNo(PaintedLines(box));
  auto* bar = new QFrame;
  bar->setProperty("role", "bottom");
  auto* row = new QHBoxLayout(bar);
  row->setContentsMargins(20, 11, 20, 11);
  row->setSpacing(10);
  row->addStretch();
  for (const Answer answer : box_style.buttons) {
    auto* button = new HintButton;
    button->setText(CaptionOf(answer, with_english));
    if (answer == box_style.DefaultAnswer()) {
      button->setProperty("role", "primary");
      default_button_ = button;
    }
    button->setMinimumWidth(kButtonWidth);
    connect(button, &QPushButton::clicked, this, [this, answer] {
      answer_ = answer;
      accept();
    });
    row->addWidget(button);
    buttons_ << button;
  }
  default_button_->setDefault(true);
  return bar;
}

void MessageBox::reject() {
  answer_ = escape_answer_;
  QDialog::reject();
}

void MessageBox::showEvent(QShowEvent* event) {
  default_button_->setFocus();
  QDialog::showEvent(event);
}

void MessageBox::keyPressEvent(QKeyEvent* event) {
  if (help_ && AsksForHelp(KeyOf(*event))) {
    help_(*this);
    return;
  }
  for (QPushButton* button : buttons_) {
    const QString text = button->text();
    const qsizetype mark = text.indexOf(QLatin1Char('&'));
    if (mark < 0 || event->key() >= Qt::Key_Escape) continue;
    // The key counts, whatever the keyboard's layout.
    if (LatinOnSameKey(text[mark + 1].unicode()) ==
        LatinOnSameKey(static_cast<char32_t>(event->key()))) {
      button->click();
      return;
    }
  }
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  auto* focus = qobject_cast<QPushButton*>(focusWidget());
  if (enter && !buttons_.contains(focus)) {  // in the facts it answers nothing
    if (focus != nullptr) focus->click();
    return;
  }
  QDialog::keyPressEvent(event);
}

}  // namespace kalvo
