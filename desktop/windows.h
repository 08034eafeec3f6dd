#pragma once

#include <QElapsedTimer>
#include <QEventLoop>
#include <QPointer>
#include <QTimer>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "desktop/binder.h"
#include "desktop/manual/dialog_help.h"
#include "desktop/screens.h"
#include "desktop/wait_indicator.h"

class QSettings;

namespace kalvo {

/// The windows of the program: opens a screen's form and window, joins them, and closes both.
class Windows : public QObject, public Navigator {
 public:
  /// Sizes of windows are kept in the file `geometry`; none are when it is empty.
  explicit Windows(const QString& geometry);
  ~Windows() override;

  /// The desk that forms are made with. It must be set before the first screen and outlive this.
  void SetDesk(Desk& desk) { desk_ = &desk; }

  void Show(std::string_view screen) override;
  void ShowModal(std::string_view screen) override;
  void ShowManual(std::string_view screen) override;
  void Close(std::string_view screen) override;
  void Hide(std::string_view screen) override;
  [[nodiscard]] bool IsOpen(std::string_view screen) const override;
  void ShowWait(std::string_view text) override;
  void HideWait() override;
  void ShowProgress(std::string_view text, int done, int total) override;
  void LetBreathe() override;
  void EndProgram() override;

  /// Shows the manual as a window of the one that asked: it stays in front of that, can be used
  /// while it waits for an answer, and closes with it. There is one at a time.
  void ShowManualFor(QWidget& asking, ManualPlace place);

  /// Form and window of an open screen, nullptr when it is not open.
  [[nodiscard]] Form* FormOf(std::string_view screen) const;
  [[nodiscard]] QWidget* WindowOf(std::string_view screen) const;

  /// Brings the windows that are visible before those of other programs.
  void BringToFront();
  [[nodiscard]] bool IsVisible(std::string_view screen) const;
  /// True while an action is under way, or a question waits for the user.
  [[nodiscard]] bool Busy() const;
  /// The same as Show(), as an action of its own: what it throws is shown to the user.
  void ComeBack(std::string_view screen);
  /// Called with a file that was dropped on the main menu.
  void OnDrop(std::function<void(const std::filesystem::path&)> take) { take_ = std::move(take); }
  /// Brings every window up to date.
  void PaintAll();
  /// Called after every action, when all windows have been painted.
  void AfterAction(std::function<void()> done) { after_action_ = std::move(done); }
  /// The wait indicator stays away while the user is asked something.
  void HoldWait(bool hold) { wait_.Hold(hold); }

 private:
  struct Open {
    std::string name;
    std::unique_ptr<Form> form;
    std::unique_ptr<QWidget> window;
    std::unique_ptr<Binder> binder;
    QEventLoop* waiting = nullptr;  ///< of a modal screen
    QPointer<QWidget> moved;        ///< the window that made room for this one
    QPoint moved_from;
  };

  Open* Find(std::string_view screen) const;
  const Screen* Known(std::string_view screen) const;
  Open& OpenScreen(const Screen& screen, bool modal);
  void Front(Open& open);
  void CloseManualOf(const QObject* window);
  /// The screen from which a dialog came: the one in front of which it is.
  [[nodiscard]] std::string_view ScreenBehind(const QWidget& dialog) const;
  void Remember(const QWidget& window);
  void Restore(QWidget& window);
  /// Puts a window that opens beside another one in its place.
  void PlaceWindow(const Screen& screen, Open& open) const;
  static void PlaceBeside(Open& open, QWidget& partner);
  void FocusChanged(QWidget* now);
  void LetFormsIdle();
  void LeftForOthers();
  void Bury();
  bool eventFilter(QObject* watched, QEvent* event) override;

  Desk* desk_ = nullptr;
  std::unique_ptr<QSettings> settings_;
  std::vector<std::unique_ptr<Open>> open_;
  std::vector<std::unique_ptr<Open>> closed_;  ///< until the action that closed them has ended
  std::function<void()> after_action_;
  std::function<void(const std::filesystem::path&)> take_;
  QTimer burial_;
  QTimer idle_;
  DialogHelp dialog_help_;
  QPointer<QWidget> manual_of_;  ///< the window that asked for the manual
  QElapsedTimer quiet_;          ///< since the last action
  QElapsedTimer breathed_;       ///< since long work let the windows be painted
  WaitIndicator wait_;
};

}  // namespace kalvo
