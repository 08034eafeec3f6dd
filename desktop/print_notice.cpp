#include "desktop/print_notice.h"

#include <QApplication>
#include <QLabel>
#include <QVBoxLayout>

#include "desktop/qt_text.h"
#include "desktop/widgets/boxes/thin_bar.h"
#include "desktop/widgets/buttons/hint_button.h"

namespace kalvo {
namespace {

constexpr int kNarrowest = 360;
constexpr int kSpace = 16;

}  // namespace

PrintNotice::PrintNotice(std::string_view text, int steps)
    : QDialog(QApplication::activeWindow()), bar_(new ThinBar) {
  setWindowTitle(QStringLiteral("Εκτύπωση"));
  setWindowModality(Qt::ApplicationModal);
  setMinimumWidth(kNarrowest);
  bar_->setRange(0, steps);
  auto* label = new QLabel(ToQt(text));
  label->setProperty("role", "bold");
  setAccessibleName(label->text());
  auto* cancel = new HintButton;
  cancel->setText(QStringLiteral("Ά&κυρο (Cancel)"));
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(kSpace, kSpace, kSpace, kSpace);
  column->setSpacing(kSpace);
  column->addWidget(label);
  column->addWidget(bar_);
  column->addWidget(cancel, 0, Qt::AlignRight);
  show();
  GoOn(0);
}

bool PrintNotice::GoOn(int done) {
  bar_->setValue(done);
  QApplication::processEvents();  // the button is heard
  return !cancelled_;
}

}  // namespace kalvo
