#pragma once

#include <QPainter>
#include <optional>
#include <vector>

#include "platform/xls/cell_format.h"

namespace kalvo {

/// Gathers the edges of cells into lines as long as they go on alike, and draws them. Places are
/// twips.
class BorderPainter {
 public:
  /// An edge at `at`, from one cell's corner to the next; edges of one line come in their order.
  void AddHorizontal(const BorderLine& line, double at, double from, double to);
  void AddVertical(const BorderLine& line, double at, double from, double to);

  void Draw(QPainter& painter) const;

 private:
  struct Line {
    BorderLine look;
    bool across;
    double at;
    double from;
    double to;
  };

  void Add(Line line);
  static void DrawLine(QPainter& painter, const Line& line, double shift);

  std::vector<Line> lines_;
};

}  // namespace kalvo
