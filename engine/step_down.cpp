#include "engine/step_down.h"

#include <algorithm>
#include <cmath>

#include "engine/first_row_index.h"
#include "engine/pipe_stats.h"
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

// The walk from a branch's last section back; what a kind of network does in its own way is left to
// the classes below.
class StepDown {
 public:
  StepDown(const BalanceContext& context, Branch chain, float branch_avail)
      : context_(context),
        chain_(std::move(chain)),
        available_(branch_avail),
        largest_(LargestPipe(context.pass.library)) {}
  StepDown(const StepDown&) = delete;
  StepDown& operator=(const StepDown&) = delete;
  virtual ~StepDown() = default;

  void Run() {
    // Sections left in the chain when its drop is too high are not touched.
    while (chain_.empty() || drop_ <= available_) {
      if (chain_.empty()) {
        Finish();
        return;
      }
      TakeLast();
      if (IsLargest()) {
        drop_ += row_.TotalDrop;
        old_name_ = row_.NomiDiam;
      } else if (MayStep() && !StepRow()) {
        return;
      }
    }
  }

  [[nodiscard]] int row_in_hand() const { return number_; }

 protected:
  void TakeInHand(int number) {
    number_ = number;
    row_ = context_.rows.At(number);
  }

  // The row in hand has just been taken from the chain.
  virtual void Visit() {}
  [[nodiscard]] virtual bool MayStep() const { return true; }
  // A step is about to be tried, or the chain is used up within bounds.
  virtual void Mark() {}
  virtual void Unmark() {}
  // Whether the row in hand, on its new pipe, leaves enough to the others.
  [[nodiscard]] virtual bool Accepts(double new_drop) const = 0;

  const BalanceContext& context_;
  Branch chain_;
  double available_;
  double drop_ = 0;  // of the branch's sections
  int number_ = 0;   // of the row in hand, 0 before the first
  SectionRow row_;   // in hand

 private:
  void TakeLast() {
    TakeInHand(chain_.back());
    chain_.pop_back();
    Visit();
  }

  bool IsLargest() const {
    return row_.NomiDiam.Trimmed() == largest_.nominal_diameter.Trimmed() &&
           std::fabs(row_.InDiameter) == largest_.inner_diameter;
  }

  void UpdateStats() { MoveInPipeStats(context_.study, old_name_.bytes(), row_); }

  void Finish() {
    double surplus = 0;
    AtRow(number_, [&] { surplus = Divide(drop_ - available_, available_); });
    if (number_ == 0) {
      return;
    }
    if (surplus <= 0.15 && drop_ <= available_) {
      Unmark();
      context_.rows.At(number_) = row_;
    }
    UpdateStats();
  }

  bool StepRow() {
    bool stands = false;
    AtRow(number_, [&] { stands = TryStep(); });
    return stands;
  }

  // One step of the row in hand. False when the library has nothing smaller: the branch ends there
  // with the row unwritten.
  bool TryStep() {
    Mark();
    length_ += row_.Length;
    const double target =
        Divide(available_, 1.5 * length_ + row_.OtherDrop_mm / 10.0 + row_.OtherDrop_m);
    const OldValues old(row_);
    old_name_ = row_.NomiDiam;
    const PipeRow* pipe = SmallerPipe(context_.pass.library, row_.NomiDiam.Trimmed());
    if (pipe == nullptr) {
      return false;
    }
    TakePipe(*pipe);
    const double new_drop = drop_ + row_.TotalDrop - old.total_drop;
    if (row_.FrictionRate > target || !Accepts(new_drop)) {
      old.RestoreTo(row_);
      return true;
    }
    drop_ = new_drop;
    context_.rows.At(number_) = row_;
    UpdateStats();
    old_name_ = {};
    return true;
  }

  // Hydraulics on the new pipe. The equivalent lengths are taken before the new friction rate and
  // with the plant marker as it stands, a mark included: that is how the method is defined.
  void TakePipe(const PipeRow& pipe) {
    const FlowConditions& flow = context_.pass.flow;
    const double diameter = pipe.inner_diameter;
    const double old_rate = row_.FrictionRate;
    row_.NomiDiam = FixedText<15>::FromBytes(pipe.nominal_diameter.Trimmed());
    row_.Area = static_cast<float>(AreaM2(pipe));
    row_.InDiameter = pipe.inner_diameter;
    row_.Velocity = VelocityOf(row_.WaterFlow, diameter);
    row_.Reynolds = ReynoldsOf(diameter, row_.Velocity, flow.viscosity);
    row_.Lamda = FrictionFactor(flow.roughness, diameter, row_.Reynolds);
    const EquivalentLengths lengths =
        LengthsOf(row_, ClassOf(pipe.material.Trimmed()), diameter, old_rate);
    row_.FrictionRate = FrictionRateOf(row_.Lamda, flow.density, row_.Velocity, diameter);
    row_.TotalDrop = TotalDropOf(row_.FrictionRate, lengths, row_.SomaDrop);
  }

  const PipeRow& largest_;
  double length_ = 0;  // of the sections stepped through
  FixedText<15> old_name_;
};

// A closed network: a row that was stepped through is marked, and no branch may become critical.
class ClosedStepDown : public StepDown {
 public:
  ClosedStepDown(const BalanceContext& context, Branch chain, float branch_avail)
      : StepDown(context, std::move(chain), branch_avail) {
    for (const int number : chain_) {
      drop_ += context_.rows.At(number).TotalDrop;
    }
  }

 private:
  [[nodiscard]] bool MayStep() const override { return row_.Auxi != kSteppedDown; }

  void Mark() override {
    auxi_ = row_.Auxi;
    row_.Auxi = kSteppedDown;
  }

  void Unmark() override {
    if (row_.Auxi == kSteppedDown) {
      row_.Auxi = auxi_;
    }
  }

  [[nodiscard]] bool Accepts(double new_drop) const override {
    return !RaisesCritical() && new_drop <= available_;
  }

  // Whether a branch that holds the row would rise above the critical drop. Only section 10 is
  // taken with its new drop: that is how the method is defined.
  [[nodiscard]] bool RaisesCritical() const {
    constexpr int kSectionInHand = 10;
    for (const Branch* branch : context_.branches_through[static_cast<std::size_t>(number_)]) {
      double sum = 0;
      for (const int cell : *branch) {
        sum += cell == kSectionInHand ? row_.TotalDrop : context_.rows.At(cell).TotalDrop;
        if (ToSingle(sum) > context_.critical.drop) {
          return true;
        }
      }
    }
    return false;
  }

  std::int16_t auxi_ = 0;
};

// An open network: heights count, and the outlet keeps the pressure that it needs.
class OpenStepDown : public StepDown {
 public:
  OpenStepDown(const BalanceContext& context, Branch chain, int fork, float branch_avail)
      : StepDown(context, std::move(chain), branch_avail) {
    if (fork != 0) {
      TakeInHand(fork);
      available_ = ToSingle(available_ - row_.SomaDrop * 1000.0);
    }
  }

 private:
  void Visit() override {
    const int next = context_.first_fed[static_cast<std::size_t>(number_)];
    const double next_height = next == 0 ? 0.0 : context_.rows.At(next).HeightDiff * 1000.0;
    drop_ += row_.TotalDrop + row_.HeightDiff * 1000.0 - next_height;
  }

  [[nodiscard]] bool Accepts(double new_drop) const override {
    return new_drop <= available_ && row_.SomaDrop * 1000.0 <= row_.AvaiPres - new_drop;
  }
};

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
  ClosedStepDown(context, std::move(chain), branch_avail).Run();
}

int StepDownOpenBranch(const BalanceContext& context, Branch chain, int fork, float branch_avail) {
  OpenStepDown step_down(context, std::move(chain), fork, branch_avail);
  step_down.Run();
  return step_down.row_in_hand();
}

}  // namespace kalvo
