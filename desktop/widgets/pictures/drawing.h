#pragma once

#include <QColor>
#include <QPointF>

class QPainter;
class QRectF;

namespace kalvo {

/// A horizontal arrow of flow with a filled head; it may point either way.
void DrawArrow(QPainter& painter, const QPointF& from, const QPointF& to, const QColor& color);

/// A horizontal pipe with open ends: filled softly between its two walls.
void DrawPipe(QPainter& painter, const QRectF& pipe);

}  // namespace kalvo
