#pragma once

#include <QWidget>
#include <array>

class QBrush;

namespace kalvo {

struct ShareView {
  QString name;       ///< "Σωλήνας"
  QString figure;     ///< the amount as it is shown
  double amount = 0;  ///< all in one unit; what is below 0 takes no room
};

/// What a section's drop is made of, as one bar in four colours and hatches with a key below:
/// pipe, fittings, margin, emitter.
class DropShares : public QWidget {
  Q_OBJECT

 public:
  static constexpr std::size_t kShares = 4;

  explicit DropShares(QWidget* parent = nullptr);

  /// `caption` stands above the bar.
  void SetShares(const QString& caption, const std::array<ShareView, kShares>& shares);

  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void DrawBar(QPainter& painter, const QRectF& bar) const;
  void DrawKey(QPainter& painter, std::size_t i, const QRect& cell) const;

  QString caption_;
  std::array<ShareView, kShares> shares_;
};

}  // namespace kalvo
