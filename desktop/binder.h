#pragma once

#include <QPoint>
#include <QStringList>
#include <QWidget>
#include <exception>
#include <memory>
#include <vector>

#include "desktop/bindings/binding.h"
#include "desktop/key_chord.h"
#include "form/form.h"

class QAction;
class QMenu;

namespace kalvo {

/// Joins a form to the window that shows it, part by part by their names, and hands what the user
/// does to the form. The names on both sides must be partners; missing() tells those that are not.
class Binder : public QObject {
 public:
  /// What a binder asks of the windows as a whole.
  struct Hooks {
    std::function<void()> paint_all;     ///< after an action, of whichever form
    std::function<void()> close_window;  ///< the form agreed to be closed
    std::function<void()> show_help{};   ///< the manual at the window's chapter
  };

  Binder(Form& form, QWidget& window, Hooks hooks);

  /// Brings the window up to date. What a part throws keeps no other from being painted; it is told
  /// to the user once, until all can be painted again.
  void Paint();
  /// The focus of the desktop has come to `widget`.
  void FocusCame(QWidget* widget);
  /// Runs an action of the form. What it throws is told to the user.
  void Do(const std::function<void()>& action);

  /// The same for what no user asked for: windows are painted when it says that something shown
  /// has changed.
  void DoQuietly(const std::function<bool()>& action);

  /// Parts without a widget and operable widgets without a part.
  [[nodiscard]] QStringList missing() const;

  /// True while an action of the form is under way.
  [[nodiscard]] bool Busy() const { return depth_ > 0; }

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void BindParts();
  void BindMenus();
  void BindSelfRunner();
  QMenu* MakeMenu(const Menu& menu);
  void ShowPopup(const QPoint& at);
  bool KeyPressed(QObject* watched, const QKeyEvent& event);
  void KeyReleased(QObject* watched, const QKeyEvent& event);
  [[nodiscard]] bool HasKeys(const QObject* watched) const;
  [[nodiscard]] Binding* BindingOf(const QWidget* widget) const;
  [[nodiscard]] Control* PartOf(const QWidget* widget) const;
  void PaintMenus();
  void FollowFocus();
  void NoteUnpainted(const std::exception_ptr& cause);
  [[nodiscard]] bool HasFace(const Control& part) const;

  struct Bound {
    Control* part;
    std::unique_ptr<Binding> binding;
  };

  Form& form_;
  QWidget& window_;
  Hooks hooks_;
  std::vector<Bound> bound_;
  std::vector<std::pair<const Command*, QAction*>> actions_;
  QStringList stray_widgets_;
  KeyChord chord_;
  int focus_moves_ = 0;
  int depth_ = 0;           ///< actions under way
  bool unpainted_ = false;  ///< the last painting failed
};

}  // namespace kalvo
