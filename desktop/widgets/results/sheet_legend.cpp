#include "desktop/widgets/results/sheet_legend.h"

#include <QPainter>
#include <span>

#include "desktop/icons.h"
#include "desktop/theme.h"

namespace kalvo {
namespace {

struct Entry {
  const char* text;
  QColor Theme::*ground;
  QColor Theme::*edge;
  const char* icon;  // may be empty
};

constexpr Entry kBranch = {"δυσμενέστερος κλάδος", &Theme::critbg, &Theme::crit, "critical"};
constexpr Entry kOfResults[] = {
    {"υπολογισμένη διάμετρος", &Theme::calculated, &Theme::calculated, ""},
    {"διάμετρος που αλλάξατε", &Theme::imposed, &Theme::onimposed, "edit"},
    kBranch,
};
constexpr Entry kOfChange[] = {
    {"νέα διάμετρος, αναμένει υπολογισμό", &Theme::wait, &Theme::waitedge, ""},
    kBranch,
};

std::span<const Entry> EntriesOf(const SheetLegend& legend) {
  if (legend.OfChange()) return kOfChange;
  return kOfResults;
}

constexpr QSize kChip(26, 16);
constexpr int kIcon = 14;
constexpr int kTextGap = 6;
constexpr int kEntryGap = 16;

int WidthOf(const Entry& entry) {
  const QFontMetrics metrics(ThemeFont(kHintPoints));
  return kChip.width() + kTextGap + metrics.horizontalAdvance(entry.text);
}

}  // namespace

SheetLegend::SheetLegend(QWidget* parent) : QWidget(parent) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  setAccessibleName("Υπόμνημα");
  SetOfChange(false);
}

void SheetLegend::SetOfChange(bool of_change) {
  of_change_ = of_change;
  QStringList spoken;
  for (const Entry& entry : EntriesOf(*this)) spoken << entry.text;
  setAccessibleDescription(spoken.join(", "));
  updateGeometry();
  update();
}

QSize SheetLegend::sizeHint() const {
  int width = 0;
  for (const Entry& entry : EntriesOf(*this)) width += WidthOf(entry) + kEntryGap;
  return {width - kEntryGap, 20};
}

void SheetLegend::paintEvent(QPaintEvent*) {
  const Theme& theme = ActiveTheme();
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setFont(ThemeFont(kHintPoints));
  int left = 0;
  for (const Entry& entry : EntriesOf(*this)) {
    const QRectF chip(left + 0.5, (height() - kChip.height()) / 2.0 + 0.5, kChip.width() - 1,
                      kChip.height() - 1);
    painter.setPen(theme.*entry.edge);
    painter.setBrush(theme.*entry.ground);
    painter.drawRoundedRect(chip, 4, 4);
    if (*entry.icon != '\0') {
      painter.drawPixmap(chip.center() - QPointF(kIcon, kIcon) / 2,
                         IconPixmap(entry.icon, kIcon, devicePixelRatioF(), theme.*entry.edge));
    }
    painter.setPen(theme.ink2);
    painter.drawText(QRect(left + kChip.width() + kTextGap, 0, width(), height()),
                     Qt::AlignLeft | Qt::AlignVCenter, entry.text);
    left += WidthOf(entry) + kEntryGap;
  }
}

}  // namespace kalvo
