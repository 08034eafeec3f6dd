#pragma once

#include <QWidget>
#include <functional>

namespace kalvo {

/// Hears the keys for help in the dialogs of the toolkit: files, printers. It is installed on the
/// application; screens and message boxes hear theirs themselves.
class DialogHelp : public QObject {
 public:
  explicit DialogHelp(std::function<void(QWidget& dialog)> help);

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  std::function<void(QWidget&)> help_;
};

}  // namespace kalvo
