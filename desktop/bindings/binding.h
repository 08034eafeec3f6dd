#pragma once

#include <QObject>
#include <functional>
#include <memory>

class QWidget;

namespace kalvo {

class Control;
class Form;

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

/// Joins a part to a widget of a kind that can show it; nothing when it cannot.
std::unique_ptr<Binding> MakeBinding(Form& form, Control& part, QWidget& widget, const Act& act);

}  // namespace kalvo
