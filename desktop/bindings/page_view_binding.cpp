#include "desktop/bindings/page_view_binding.h"

#include <utility>

namespace kalvo {

PageViewBinding::PageViewBinding(PageView& view, PageSheet& sheet, const Act& act)
    : view_(view), sheet_(sheet) {
  connect(&sheet, &PageSheet::RoomCame, this, [&view, act](double width, double height) {
    act([&] { view.TakeRoom(width, height); });
  });
  connect(&sheet, &PageSheet::Zoomed, this,
          [&view, act](int steps) { act([&] { view.on_zoom(steps); }); });
  connect(&sheet, &PageSheet::WentPast, this,
          [&view, act](bool forward) { act([&] { view.on_past_end(forward); }); });
}

void PageViewBinding::Paint() {
  sheet_.SetPage(view_.pages, view_.page, view_.ShownPercent());
  if (std::exchange(revision_, view_.revision) != view_.revision) {
    sheet_.GoToEnd(view_.from_the_end);
  }
  const int screens = view_.scrolls - std::exchange(scrolls_, view_.scrolls);
  sheet_.ScrollBy(screens);
}

}  // namespace kalvo
