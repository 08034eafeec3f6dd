#include "desktop/window_pair.h"

#include <algorithm>

namespace kalvo {
namespace {

constexpr int kGapOfPair = 8;

int MiddleY(QSize window, const QRect& free_area) {
  return free_area.top() + (free_area.height() - window.height()) / 2;
}

}  // namespace

PairPlaces PlacesOfPair(QSize first, QSize second, const QRect& free_area) {
  const int left_over = free_area.width() - first.width() - kGapOfPair - second.width();
  const int y = MiddleY(second, free_area);
  if (left_over < 0) return {{}, {free_area.left() + free_area.width() - second.width(), y}};
  const int left = free_area.left() + left_over / 2;
  return {QPoint(left, MiddleY(first, free_area)), {left + first.width() + kGapOfPair, y}};
}

QPoint PlaceLevel(int width, const QRect& other, const QRect& free_area) {
  const int right = other.right() + 1 + kGapOfPair;
  if (right + width <= free_area.right() + 1) return {right, other.top()};
  const int left = other.left() - kGapOfPair - width;
  if (left >= free_area.left()) return {left, other.top()};
  return {std::min(other.right(), free_area.right()) + 1 - width, other.top()};
}

}  // namespace kalvo
