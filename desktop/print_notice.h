#pragma once

#include <QDialog>
#include <string_view>

namespace kalvo {

class ThinBar;

/// Says that something is printed for as long as it lives, over all windows; its button cancels, as
/// Esc does.
class PrintNotice : public QDialog {
  Q_OBJECT

 public:
  /// Of so many steps; 0: nobody knows how many.
  PrintNotice(std::string_view text, int steps);

  /// So many steps are done. False: the user has cancelled.
  bool GoOn(int done);

  void reject() override { cancelled_ = true; }

 private:
  ThinBar* bar_;
  bool cancelled_ = false;
};

}  // namespace kalvo
