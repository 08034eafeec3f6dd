#include "desktop/bindings/choice_binding.h"

#include <QEvent>

#include "desktop/bindings/control_look.h"
#include "desktop/icons.h"
#include "desktop/qt_text.h"

namespace kalvo {

ChoiceBinding::ChoiceBinding(Choice& choice, QComboBox& box, const Act& act)
    : choice_(choice), box_(box) {
  connect(&box, &QComboBox::activated, this,
          [&choice, act](int position) { act([&] { choice.Select(position); }); });
  box.installEventFilter(this);
}

// The wheel scrolls what is around; a choice is made by opening the list or by keys.
bool ChoiceBinding::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::Wheel) return Binding::eventFilter(watched, event);
  event->ignore();
  return true;
}

void ChoiceBinding::Paint() {
  PaintPresence(box_, choice_);
  if (shown_ != choice_.entries) {
    shown_ = choice_.entries;
    box_.clear();
    for (std::size_t i = 0; i < shown_.size(); ++i) {
      box_.addItem(ToQt(shown_[i]).trimmed());
      if (i < choice_.icons.size()) {
        box_.setItemIcon(static_cast<int>(i), ThemeIcon(ToQt(choice_.icons[i])));
      }
    }
    box_.setCurrentIndex(-1);
  }
  if (box_.currentIndex() != choice_.selected) box_.setCurrentIndex(choice_.selected);
  if (box_.toolTip() != box_.currentText()) box_.setToolTip(box_.currentText());
}

}  // namespace kalvo
