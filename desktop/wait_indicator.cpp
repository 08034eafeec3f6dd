#include "desktop/wait_indicator.h"

#include <QApplication>

#include "desktop/print_notice.h"
#include "desktop/widgets/boxes/wait_card.h"

namespace kalvo {
namespace {

// Work shorter than this shows no card.
constexpr int kDelayMs = 150;
// Painting each step would take longer than the work.
constexpr int kProgressMs = 40;
// The card stands over the bar at the foot of a window.
constexpr int kAboveBottomBar = 66;
constexpr int kLeastMargin = 8;

}  // namespace

WaitIndicator::WaitIndicator() {
  delay_.setSingleShot(true);
  delay_.setInterval(kDelayMs);
  connect(&delay_, &QTimer::timeout, this, [this] { ShowCard(); });
}

void WaitIndicator::Begin(const QString& text) {
  waits_.push_back({text, 0});
  Follow();
}

void WaitIndicator::End() {
  if (!waits_.empty()) waits_.pop_back();
  Follow();
}

void WaitIndicator::Hold(bool hold) {
  if (waits_.empty()) return;
  waits_.back().holds += hold ? 1 : -1;
  Follow();
}

void WaitIndicator::Follow() {
  const bool works = !waits_.empty() && waits_.back().holds <= 0;
  delay_.stop();
  delete card_;
  if (works) delay_.start();
  if (works) since_.start();
  if (works && !has_cursor_) QApplication::setOverrideCursor(Qt::WaitCursor);
  if (!works && has_cursor_) QApplication::restoreOverrideCursor();
  has_cursor_ = works;
}

void WaitIndicator::ShowProgress(const QString& text, int done, int total) {
  const bool works = !waits_.empty() && waits_.back().holds <= 0;
  if (!works || since_.elapsed() < kDelayMs) return;
  if (painted_.isValid() && painted_.elapsed() < kProgressMs && done < total) return;
  painted_.start();
  if (card_ == nullptr) ShowCard();
  if (card_ == nullptr) return;
  card_->SetProgress(text, done, total);
  QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void WaitIndicator::ShowCard() {
  QWidget* front = QApplication::activeWindow();
  if (front == nullptr || qobject_cast<PrintNotice*>(front) != nullptr)
    return;       // that says so itself
  delay_.stop();  // progress may show it before the delay is over
  delete card_;
  card_ = new WaitCard(front);
  card_->Begin(waits_.back().text);
  card_->adjustSize();
  const int wide = qMax(front->width() * 2 / 3, card_->width());
  card_->resize(qMin(wide, front->width() - 2 * kLeastMargin), card_->height());
  card_->move((front->width() - card_->width()) / 2,
              front->height() - card_->height() - kAboveBottomBar);
  card_->show();
}

}  // namespace kalvo
