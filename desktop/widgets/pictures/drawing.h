#pragma once

#include <QColor>
#include <QPointF>

class QPainter;
class QRectF;
class QString;

namespace kalvo {

/// A horizontal arrow of flow with a filled head; it may point either way.
void DrawArrow(QPainter& painter, const QPointF& from, const QPointF& to, const QColor& color);

/// A horizontal pipe with open ends: filled softly between its two walls.
void DrawPipe(QPainter& painter, const QRectF& pipe);

/// Half the width of a node of that radius, which is wider where its name is long.
double NodeHalfWidth(const QString& name, double radius);

/// A node with its name in it.
void DrawNode(QPainter& painter, const QPointF& centre, double radius, const QString& name);

}  // namespace kalvo
