#include "engine/step_down.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "engine/first_row_index.h"
#include "engine/pipe_stats.h"
#include "engine/row_store.h"
#include "study/rounding.h"

namespace kalvo {

namespace {

// Results of a row as they were before a step, kept as text as all old values are.
struct OldValues {
  explicit OldValues(const SectionRow& row)
      : velocity(ThroughText(row.Velocity)),
        area(ThroughText(row.Area)),
        diameter(ThroughText(row.InDiameter)),
        reynolds(ThroughText(row.Reynolds)),
        lamda(ThroughText(row.Lamda)),
        friction_rate(ThroughText(row.FrictionRate)),
        total_drop(ThroughText(row.TotalDrop)),
        name(row.NomiDiam) {}

  void RestoreTo(SectionRow& row) const {
    row.Velocity = ToSingle(velocity);
    row.Area = ToSingle(area);
    row.InDiameter = ToSingle(diameter);
    row.Reynolds = ToSingle(reynolds);
    row.Lamda = ToSingle(lamda);
    row.FrictionRate = ToSingle(friction_rate);
    row.TotalDrop = ToSingle(total_drop);
    row.NomiDiam = name;
  }

  double velocity;
  double area;
  double diameter;
  double reynolds;
  double lamda;
  double friction_rate;
  double total_drop;
  FixedText<15> name;
};

const PipeRow& LargestPipe(const std::vector<PipeRow>& library) {
  return *std::max_element(library.begin(), library.end(), [](const PipeRow& a, const PipeRow& b) {
    return a.inner_diameter < b.inner_diameter;
  });
}

// The row before the library's row of that name whose code is at least 2; none without such a row.
const PipeRow* SmallerPipe(const std::vector<PipeRow>& library, std::string_view name) {
  for (std::size_t i = 0; i < library.size(); ++i) {
    if (library[i].nominal_diameter.Trimmed() == name && library[i].pipe_id >= 2) {
      if (i == 0) {
        throw Fault(FaultCode::kBadRecordNumber, "no library row before the first");
      }
      return &library[i - 1];
    }
  }
  return nullptr;
}

// The walk from a branch's last section back. In a closed network a row that was stepped through is
// marked, and no branch may become critical; in an open one heights count, and the outlet keeps the
// pressure that it needs.
struct StepDownWalk {
  const BalanceContext& context;
  bool open;
  Branch chain;
  double available;
  double drop = 0;            // of the branch's sections
  int number = 0;             // of the row in hand, 0 before the first
  SectionRow row{};           // in hand
  std::int16_t own_mark = 0;  // what the row bore that was marked last
  double length = 0;          // of the sections stepped through
  FixedText<15> old_name{};
};

void TakeInHand(StepDownWalk& walk, int number) {
  walk.number = number;
  walk.row = walk.context.rows.At(number);
}

void TakeLast(StepDownWalk& walk) {
  TakeInHand(walk, walk.chain.back());
  walk.chain.pop_back();
  if (walk.open) {
    const int next = walk.context.first_fed[static_cast<std::size_t>(walk.number)];
    const double next_height = next == 0 ? 0.0 : walk.context.rows.At(next).HeightDiff * 1000.0;
    walk.drop += walk.row.TotalDrop + walk.row.HeightDiff * 1000.0 - next_height;
  }
}

void MoveQuantities(const StepDownWalk& walk) {
  MoveInPipeStats(walk.context.study, walk.old_name.bytes(), walk.row);
}

// The chain is used up within bounds.
void FinishWalk(StepDownWalk& walk) {
  double surplus = 0;
  AtRow(walk.number, [&] { surplus = Divide(walk.drop - walk.available, walk.available); });
  if (walk.number == 0) {
    return;
  }
  if (surplus <= 0.15 && walk.drop <= walk.available) {
    if (!walk.open && walk.row.Auxi == kSteppedDown) {
      walk.row.Auxi = walk.own_mark;
    }
    walk.context.rows.At(walk.number) = walk.row;
  }
  MoveQuantities(walk);
}

// Hydraulics of the row on its new pipe. The equivalent lengths are taken before the new friction
// rate and with the plant marker as it stands, a mark included: that is how the method is defined.
void TakePipe(SectionRow& row, const PipeRow& pipe, const FlowConditions& flow) {
  const double diameter = pipe.inner_diameter;
  const double old_rate = row.FrictionRate;
  row.NomiDiam = FixedText<15>::FromBytes(pipe.nominal_diameter.Trimmed());
  row.Area = static_cast<float>(AreaM2(pipe));
  row.InDiameter = pipe.inner_diameter;
  row.Velocity = VelocityOf(row.WaterFlow, diameter);
  row.Reynolds = ReynoldsOf(diameter, row.Velocity, flow.viscosity);
  row.Lamda = FrictionFactor(flow.roughness, diameter, row.Reynolds);
  const EquivalentLengths lengths =
      LengthsOf(row, ClassOf(pipe.material.Trimmed()), diameter, old_rate);
  row.FrictionRate = FrictionRateOf(row.Lamda, flow.density, row.Velocity, diameter);
  row.TotalDrop = TotalDropOf(row.FrictionRate, lengths, row.SomaDrop);
}

// Whether a branch that holds the row would rise above the critical drop. Only section 10 is taken
// with its new drop: that is how the method is defined.
bool RaisesCritical(const StepDownWalk& walk) {
  constexpr int kSectionInHand = 10;
  const BalanceContext& context = walk.context;
  for (const Branch* branch : context.branches_through[static_cast<std::size_t>(walk.number)]) {
    double sum = 0;
    for (const int cell : *branch) {
      sum += cell == kSectionInHand ? walk.row.TotalDrop : context.rows.At(cell).TotalDrop;
      if (ToSingle(sum) > context.critical.drop) {
        return true;
      }
    }
  }
  return false;
}

// Whether the row in hand, on its new pipe, leaves enough to the others.
bool LeavesEnough(const StepDownWalk& walk, double new_drop) {
  if (walk.open) {
    return new_drop <= walk.available && walk.row.SomaDrop * 1000.0 <= walk.row.AvaiPres - new_drop;
  }
  return !RaisesCritical(walk) && new_drop <= walk.available;
}

// One step of the row in hand. False when the library has nothing smaller: the branch ends there
// with the row unwritten.
bool TryStep(StepDownWalk& walk) {
  SectionRow& row = walk.row;
  if (!walk.open) {
    walk.own_mark = std::exchange(row.Auxi, kSteppedDown);
  }
  walk.length += row.Length;
  const double target =
      Divide(walk.available, 1.5 * walk.length + row.OtherDrop_mm / 10.0 + row.OtherDrop_m);
  const OldValues old(row);
  walk.old_name = row.NomiDiam;
  const PipeRow* pipe = SmallerPipe(walk.context.pass.library, row.NomiDiam.Trimmed());
  if (pipe == nullptr) {
    return false;
  }
  TakePipe(row, *pipe, walk.context.pass.flow);
  const double new_drop = walk.drop + row.TotalDrop - old.total_drop;
  if (row.FrictionRate > target || !LeavesEnough(walk, new_drop)) {
    old.RestoreTo(row);
    return true;
  }
  walk.drop = new_drop;
  walk.context.rows.At(walk.number) = row;
  MoveQuantities(walk);
  walk.old_name = {};
  return true;
}

void WalkBack(StepDownWalk& walk) {
  const PipeRow& largest = LargestPipe(walk.context.pass.library);
  // Sections left in the chain when its drop is too high are not touched.
  while (!walk.chain.empty() && walk.drop <= walk.available) {
    TakeLast(walk);
    const SectionRow& row = walk.row;
    if (row.NomiDiam.Trimmed() == largest.nominal_diameter.Trimmed() &&
        std::fabs(row.InDiameter) == largest.inner_diameter) {
      walk.drop += row.TotalDrop;
      walk.old_name = row.NomiDiam;
    } else if (walk.open || row.Auxi != kSteppedDown) {
      bool goes_on = false;
      AtRow(walk.number, [&] { goes_on = TryStep(walk); });
      if (!goes_on) {
        return;
      }
    }
  }
  if (walk.chain.empty()) {
    FinishWalk(walk);
  }
}

std::vector<int> FirstFed(const std::vector<int>& feeders) {
  std::vector<int> first(feeders.size() + 1);
  for (std::size_t i = feeders.size(); i > 0; --i) {
    first[static_cast<std::size_t>(feeders[i - 1])] = static_cast<int>(i);
  }
  return first;
}

}  // namespace

BalanceContext MakeBalanceContext(Study& study, RowTable& rows, const PassConditions& pass,
                                  const CriticalBranch& critical) {
  BalanceContext context{study, rows, pass, critical, {}, {}};
  context.branches_through.resize(static_cast<std::size_t>(rows.count()) + 1);
  for (const Branch& branch : critical.branches) {
    for (const int cell : branch) {
      auto& through = context.branches_through[static_cast<std::size_t>(cell)];
      if (through.empty() || through.back() != &branch) {
        through.push_back(&branch);
      }
    }
  }
  if (study.SystemOpen()) {
    context.first_fed = FirstFed(LinkFeeders(study.SectionTable));
  }
  return context;
}

void StepDownBranch(const BalanceContext& context, Branch chain, float branch_avail) {
  StepDownWalk walk{context, false, std::move(chain), branch_avail};
  for (const int number : walk.chain) {
    walk.drop += context.rows.At(number).TotalDrop;
  }
  WalkBack(walk);
}

int StepDownOpenBranch(const BalanceContext& context, Branch chain, int fork, float branch_avail) {
  StepDownWalk walk{context, true, std::move(chain), branch_avail};
  if (fork != 0) {
    TakeInHand(walk, fork);
    walk.available = ToSingle(walk.available - walk.row.SomaDrop * 1000.0);
  }
  WalkBack(walk);
  return walk.number;
}

}  // namespace kalvo
