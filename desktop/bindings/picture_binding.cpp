#include "desktop/bindings/picture_binding.h"

#include <optional>

#include "desktop/widgets/pictures/junction_picture.h"
#include "desktop/widgets/pictures/outlet_bars.h"
#include "desktop/widgets/pictures/pipe_picture.h"
#include "desktop/widgets/pictures/room_bar.h"
#include "desktop/widgets/pictures/section_picture.h"
#include "desktop/widgets/pictures/winter_bars.h"
#include "desktop/widgets/preview/page_list.h"
#include "desktop/widgets/results/bar_pair.h"
#include "desktop/widgets/results/branch_chain.h"
#include "desktop/widgets/results/drop_shares.h"
#include "desktop/widgets/results/section_steps.h"
#include "desktop/widgets/road/station_road.h"
#include "form/pictures.h"

namespace kalvo {
namespace {

// Hands the widget its content anew only when that is another one than is shown.
template <typename Content, typename Widget>
class PictureBinding : public Binding {
 public:
  PictureBinding(Picture<Content>& part, Widget& widget, const Act& act)
      : part_(part), widget_(widget) {
    if (part.on_pick) {
      connect(&widget, &PaintedPicture::Picked, this,
              [&part, act](int place) { act([&] { part.on_pick(place); }); });
    }
    Paint();
  }

  void Paint() override {
    if (widget_.isVisibleTo(widget_.parentWidget()) != part_.visible) {
      widget_.setVisible(part_.visible);
    }
    if (shown_ == part_.content()) return;
    shown_ = part_.content();
    widget_.SetContent(part_.content());
  }
  [[nodiscard]] QWidget* widget() const override { return &widget_; }

 private:
  Picture<Content>& part_;
  Widget& widget_;
  std::optional<Content> shown_;
};

template <typename Content, typename Widget>
std::unique_ptr<Binding> Join(Control& control, QWidget& shown, const Act& act) {
  auto* part = dynamic_cast<Picture<Content>*>(&control);
  auto* widget = qobject_cast<Widget*>(&shown);
  if (part == nullptr || widget == nullptr) return nullptr;
  return std::make_unique<PictureBinding<Content, Widget>>(*part, *widget, act);
}

}  // namespace

std::unique_ptr<Binding> MakePictureBinding(Control& part, QWidget& widget, const Act& act) {
  if (auto road = Join<RoadContent, StationRoad>(part, widget, act)) return road;
  if (auto steps = Join<StepsContent, SectionSteps>(part, widget, act)) return steps;
  if (auto shares = Join<SharesContent, DropShares>(part, widget, act)) return shares;
  if (auto chain = Join<ChainContent, BranchChain>(part, widget, act)) return chain;
  if (auto junction = Join<JunctionContent, JunctionPicture>(part, widget, act)) return junction;
  if (auto bars = Join<OutletChartContent, OutletBars>(part, widget, act)) return bars;
  if (auto bars = Join<WinterChartContent, WinterBars>(part, widget, act)) return bars;
  if (auto tiles = Join<PageTilesContent, PageList>(part, widget, act)) return tiles;
  if (auto bars = Join<BarPairContent, BarPairPicture>(part, widget, act)) return bars;
  if (auto room = Join<RoomContent, RoomBar>(part, widget, act)) return room;
  if (auto sketch = Join<SectionSketchContent, SectionPicture>(part, widget, act)) return sketch;
  return Join<PipeContent, PipePicture>(part, widget, act);
}

}  // namespace kalvo
