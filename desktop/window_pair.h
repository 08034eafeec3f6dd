#pragma once

#include <QRect>
#include <optional>

namespace kalvo {

/// Where two windows go that are used together.
struct PairPlaces {
  std::optional<QPoint> first;  ///< nothing: it stays where it is
  QPoint second;
};

/// The pair in the middle of the free area; where both have no room in it side by side, the second
/// one at its right edge.
PairPlaces PlacesOfPair(QSize first, QSize second, const QRect& free_area);

/// Where a window of that width goes beside another one's frame, which stays: at its right, else at
/// its left, else over its right edge, always with both tops level.
QPoint PlaceLevel(int width, const QRect& other, const QRect& free_area);

}  // namespace kalvo
