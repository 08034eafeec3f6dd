#include "desktop/bindings/toggle_binding.h"

#include "desktop/bindings/control_look.h"
#include "desktop/qt_text.h"
#include "desktop/widgets/kind/kind_card.h"

namespace kalvo {

ToggleBinding::ToggleBinding(Toggle& toggle, QAbstractButton& button, const Act& act)
    : toggle_(toggle), button_(button) {
  button.setText(ToQt(toggle.caption).trimmed());
  button.setAccessibleName(button.text().remove(QLatin1Char('&')));
  connect(&button, &QAbstractButton::toggled, this, [this, act](bool on) {
    if (!painting_) act([&] { toggle_.Set(on); });
  });
  if (auto* card = qobject_cast<KindCard*>(button.parentWidget())) {
    connect(card, &KindCard::Chosen, this, [&toggle, act] {
      if (toggle.on_double_click) act(toggle.on_double_click);
    });
  }
}

void ToggleBinding::Paint() {
  painting_ = true;
  PaintPresence(button_, toggle_);
  if (button_.isChecked() != toggle_.on) {
    // One of a group of options cannot be switched off while the group excludes the others.
    const bool exclusive = button_.autoExclusive();
    button_.setAutoExclusive(false);
    button_.setChecked(toggle_.on);
    button_.setAutoExclusive(exclusive);
  }
  painting_ = false;
}

}  // namespace kalvo
