#pragma once

#include <QObject>
#include <QWidget>
#include <functional>
#include <memory>

#include "form/form.h"

namespace kalvo {

/// Runs what the user did to a form; what has changed is painted afterwards.
using Act = std::function<void(const std::function<void()>&)>;

/// One part of a form joined to the widget that shows it.
class Binding : public QObject {
 public:
  /// Brings the widget up to date.
  virtual void Paint() = 0;
  /// The user copies what is selected. False: the widget sees to that itself.
  virtual bool Copy() { return false; }
  /// The widget that takes the focus for the part.
  [[nodiscard]] virtual QWidget* widget() const = 0;
};

/// A widget's place among the tones of a text.
QString ToneName(Tone tone);

/// Lets the style sheet look at the widget again.
void StyleAnew(QWidget& widget);

/// Sets a property that the style sheet looks at; the widget is styled anew when it has changed.
void SetStyleProperty(QWidget& widget, const char* name, const QVariant& value);

inline QString ToQt(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// Joins a part to a widget of a kind that can show it; nothing when it cannot.
std::unique_ptr<Binding> MakeBinding(Form& form, Control& part, QWidget& widget, const Act& act);

/// The same for the parts that are painted pictures.
std::unique_ptr<Binding> MakePictureBinding(Control& part, QWidget& widget);

/// The same for tables and lists of lines.
std::unique_ptr<Binding> MakeTableBinding(Control& part, QWidget& widget, const Act& act);

}  // namespace kalvo
