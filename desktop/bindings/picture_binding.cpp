// Parts that are painted as pictures.

#include <algorithm>
#include <optional>

#include "desktop/bindings/binding.h"
#include "desktop/widgets/pictures/pipe_picture.h"
#include "desktop/widgets/results/branch_chain.h"
#include "desktop/widgets/results/drop_shares.h"
#include "desktop/widgets/results/section_steps.h"
#include "desktop/widgets/road/study_road.h"
#include "form/pictures.h"

namespace kalvo {
namespace {

StationState StateOf(RoadMark mark) {
  switch (mark) {
    case RoadMark::kDone:
      return StationState::kDone;
    case RoadMark::kNext:
      return StationState::kNext;
    case RoadMark::kStale:
      return StationState::kStale;
    case RoadMark::kLater:
      break;
  }
  return StationState::kLater;
}

void Show(const Road& road, StudyRoad& widget) {
  std::array<StationView, StudyRoad::kStations> views;
  const std::size_t count = std::min(views.size(), road.stations.size());
  for (std::size_t i = 0; i < count; ++i) {
    const RoadStation& station = road.stations[i];
    views[i] = {ToQt(station.caption),
                ToQt(station.state),
                StateOf(station.mark),
                {},
                station.command != nullptr,
                station.command == nullptr ? QString() : ToQt(station.command->Hint())};
  }
  widget.SetStations(views);
}

void Show(const Steps& steps, SectionSteps& widget) {
  QList<SectionStep> lines;
  for (const StepLine& line : steps.lines) {
    lines.push_back({ToQt(line.symbol), ToQt(line.what), ToQt(line.formula), ToQt(line.value),
                     ToQt(line.unit)});
  }
  widget.SetSteps(lines);
}

void Show(const Shares& shares, DropShares& widget) {
  std::array<ShareView, DropShares::kShares> views;
  const std::size_t count = std::min(views.size(), shares.parts.size());
  for (std::size_t i = 0; i < count; ++i) {
    const Share& part = shares.parts[i];
    views[i] = {ToQt(part.what), ToQt(part.value), part.fraction};
  }
  widget.SetShares(ToQt(shares.caption), views);
}

void Show(const Chain& chain, BranchChain& widget) {
  QStringList nodes;
  for (const std::string& node : chain.nodes) {
    nodes.push_back(ToQt(node));
  }
  widget.SetBranch({ToQt(chain.caption), ToQt(chain.total), nodes, chain.current});
}

void Show(const PipeDrawing& pipe, PipePicture& widget) {
  widget.SetPipe({ToQt(pipe.from), ToQt(pipe.to), ToQt(pipe.from_note), ToQt(pipe.to_note),
                  ToQt(pipe.caption)});
}

// Paints a part anew only when it holds other values than those shown.
template <typename Part, typename Widget>
class PictureBinding : public Binding {
 public:
  PictureBinding(Part& part, Widget& widget) : part_(part), widget_(widget) { Paint(); }

  void Paint() override {
    if (widget_.isVisibleTo(widget_.parentWidget()) != part_.visible) {
      widget_.setVisible(part_.visible);
    }
    if (shown_ == part_.Content()) return;
    shown_ = part_.Content();
    Show(part_, widget_);
  }
  [[nodiscard]] QWidget* widget() const override { return &widget_; }

 private:
  Part& part_;
  Widget& widget_;
  std::optional<typename Part::ContentType> shown_;
};

template <typename Part, typename Widget>
std::unique_ptr<Binding> Join(Control& control, QWidget& shown) {
  auto* part = dynamic_cast<Part*>(&control);
  auto* widget = qobject_cast<Widget*>(&shown);
  if (part == nullptr || widget == nullptr) return nullptr;
  return std::make_unique<PictureBinding<Part, Widget>>(*part, *widget);
}

}  // namespace

std::unique_ptr<Binding> MakePictureBinding(Control& part, QWidget& widget) {
  if (auto road = Join<Road, StudyRoad>(part, widget)) return road;
  if (auto steps = Join<Steps, SectionSteps>(part, widget)) return steps;
  if (auto shares = Join<Shares, DropShares>(part, widget)) return shares;
  if (auto chain = Join<Chain, BranchChain>(part, widget)) return chain;
  return Join<PipeDrawing, PipePicture>(part, widget);
}

}  // namespace kalvo
