#pragma once

#include <QWidget>

namespace kalvo {

struct BranchView {
  QString caption;    ///< "Δυσμενέστερος κλάδος"
  QString total;      ///< its drop, with its unit
  QStringList nodes;  ///< in the direction of flow; section i lies between nodes i and i + 1
  int current = -1;   ///< the section to draw thick
};

/// A branch drawn node by node. Where there is no room for every name, those of the ends and of the
/// current section come first; the tooltip names the node under the mouse.
class BranchChain : public QWidget {
  Q_OBJECT

 public:
  explicit BranchChain(QWidget* parent = nullptr);

  void SetBranch(const BranchView& branch);

  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool event(QEvent* event) override;

 private:
  [[nodiscard]] double NodeX(qsizetype node) const;
  void DrawSections(QPainter& painter) const;
  void DrawNodes(QPainter& painter) const;
  void DrawNames(QPainter& painter) const;

  BranchView branch_;
};

}  // namespace kalvo
