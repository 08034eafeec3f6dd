#include "desktop/pages/border_painter.h"

#include "desktop/pages/page_fonts.h"
#include "desktop/pages/paper.h"

namespace kalvo {
namespace {

struct Stroke {
  double points = 0;
  QList<double> dashes{};  // of the stroke's thickness, drawn and left out by turns
};

// In the order of LineStyle.
const Stroke& StrokeOf(LineStyle style) {
  static const Stroke kStrokes[] = {{0},                        // none
                                    {0.5},                      // thin
                                    {1},                        // medium
                                    {0.5, {6, 4}},              // dashed
                                    {0.5, {2, 2}},              // dotted
                                    {2},                        // thick
                                    {0.5},                      // double: two of them
                                    {0.25},                     // hair
                                    {1, {6, 3}},                // medium dashed
                                    {0.5, {8, 3, 2, 3}},        // dash, dot
                                    {1, {6, 2, 2, 2}},          // medium dash, dot
                                    {0.5, {8, 3, 2, 3, 2, 3}},  // dash, dot, dot
                                    {1, {6, 2, 2, 2, 2, 2}},
                                    {1, {7, 2, 3, 2}}};  // slanted
  const auto place = static_cast<std::size_t>(style);
  return kStrokes[place < std::size(kStrokes) ? place : 0];
}

// A line that is thinner than a dot of the device takes a whole one, which a pen of width 0 does.
QPen PenOf(const BorderLine& line, double dots_of_twip) {
  const Stroke& stroke = StrokeOf(line.style);
  const double width = stroke.points * kTwipsOfPoint;
  QPen pen(ColourOf(line.colour), width * dots_of_twip < 1 ? 0 : width);
  pen.setCapStyle(stroke.dashes.empty() ? Qt::SquareCap : Qt::FlatCap);
  if (!stroke.dashes.empty()) pen.setDashPattern(stroke.dashes);
  return pen;
}

// From the middle of a double line to each of its two.
double HalfGap() { return StrokeOf(LineStyle::kDouble).points * kTwipsOfPoint; }

}  // namespace

void BorderPainter::AddHorizontal(const BorderLine& line, double at, double from, double to) {
  Add({line, true, at, from, to});
}

void BorderPainter::AddVertical(const BorderLine& line, double at, double from, double to) {
  Add({line, false, at, from, to});
}

void BorderPainter::Add(Line line) {
  if (line.look.style == LineStyle::kNone || line.to <= line.from) return;
  if (!lines_.empty()) {
    Line& last = lines_.back();
    if (last.across == line.across && last.at == line.at && last.to == line.from &&
        last.look == line.look) {
      last.to = line.to;
      return;
    }
  }
  lines_.push_back(line);
}

void BorderPainter::DrawLine(QPainter& painter, const Line& line, double shift) {
  const double at = line.at + shift;
  if (line.across) {
    painter.drawLine(QLineF(line.from, at, line.to, at));
  } else {
    painter.drawLine(QLineF(at, line.from, at, line.to));
  }
}

void BorderPainter::Draw(QPainter& painter) const {
  const double dots_of_twip = painter.deviceTransform().m11();
  painter.setRenderHint(QPainter::Antialiasing, false);
  for (const Line& line : lines_) {
    painter.setPen(PenOf(line.look, dots_of_twip));
    if (line.look.style == LineStyle::kDouble) {
      DrawLine(painter, line, -HalfGap());
      DrawLine(painter, line, HalfGap());
    } else {
      DrawLine(painter, line, 0);
    }
  }
}

}  // namespace kalvo
