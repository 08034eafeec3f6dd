#pragma once

#include <algorithm>
#include <functional>

#include "form/control.h"
#include "form/previewed_pages.h"

namespace kalvo {

/// A page as large as the user wants it. The form says which one and how large; the front-end shows
/// it, scrolls it, and says how much room it has.
class PageView : public Control {
 public:
  using Control::Control;

  PreviewedPages* pages = nullptr;
  int page = 0;               ///< from 0
  bool whole = true;          ///< as large as the room allows
  int percent = 100;          ///< when it is not whole
  int revision = 0;           ///< grows when the page is to be shown from its top
  bool from_the_end = false;  ///< then from its foot
  int scrolls = 0;            ///< grows, or falls, with each screenful that the form wants

  std::function<void(int steps)> on_zoom;  ///< the user turns the wheel with Ctrl
  /// The user scrolls past the end of the page, or (false) past its beginning.
  std::function<void(bool forward)> on_past_end;

  /// So much room is there, in points.
  void TakeRoom(double width, double height) { room_ = {width, height}; }

  /// Of the true size.
  [[nodiscard]] int ShownPercent() const {
    if (!whole || pages == nullptr) return percent;
    const PageSize size = pages->size();
    const double part = std::min(room_.width / size.width, room_.height / size.height);
    return std::clamp(static_cast<int>(100 * part), kLeastWhole, kMostWhole);
  }

 private:
  static constexpr int kLeastWhole = 10;
  static constexpr int kMostWhole = 400;

  PageSize room_{595, 842};
};

/// All pages as small pictures; a click on one turns to it.
struct PageTilesContent {
  PreviewedPages* pages = nullptr;
  int current = 0;  ///< from 0

  bool operator==(const PageTilesContent&) const = default;
};

}  // namespace kalvo
