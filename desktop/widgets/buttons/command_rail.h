#pragma once

#include <QFrame>

namespace kalvo {

/// The card of commands at the left of a window: HintButtons under headings (QLabels with the role
/// "heading"). In a narrow window only the icons are left; what has the role "wide" goes too.
class CommandRail : public QFrame {
  Q_OBJECT

 public:
  static constexpr int kNarrowWindow = 1180;  ///< px; below it there are icons only

  explicit CommandRail(QWidget* parent = nullptr);

  void SetIconsOnly(bool icons_only);
  [[nodiscard]] bool IconsOnly() const { return icons_only_; }

 protected:
  void showEvent(QShowEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Dress();

  bool icons_only_ = false;
};

}  // namespace kalvo
