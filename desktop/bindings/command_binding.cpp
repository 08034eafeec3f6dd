#include "desktop/bindings/command_binding.h"

#include "desktop/bindings/control_look.h"
#include "desktop/qt_text.h"
#include "desktop/style_property.h"

namespace kalvo {

CommandBinding::CommandBinding(Form& form, Command& command, QAbstractButton& button,
                               const Act& act)
    : command_(command), button_(button) {
  connect(&button, &QAbstractButton::clicked, this,
          [&form, &command, act] { act([&] { form.Run(command); }); });
}

void CommandBinding::Paint() {
  PaintPresence(button_, command_);
  const QString caption = ToQt(command_.caption);
  if (button_.text() != caption) {
    button_.setText(caption);
    button_.setAccessibleName(caption.trimmed());
  }
  const QString spoken = ToQt(command_.spoken);
  if (!spoken.isEmpty() && button_.accessibleName() != spoken) button_.setAccessibleName(spoken);
  const QString described = ToQt(command_.described);
  if (!described.isEmpty() && button_.accessibleDescription() != described) {
    button_.setAccessibleDescription(described);
  }
  const QString hint = ToQt(command_.Hint());
  if (button_.property("hint").toString() != hint) button_.setProperty("hint", hint);
  const QString icon = ToQt(command_.icon);
  if (!icon.isEmpty() && button_.property("iconName").toString() != icon) {
    button_.setProperty("iconName", icon);
  }
  SetStyleProperty(button_, "tone", ToneName(command_.tone));
}

}  // namespace kalvo
