#include "tests/support/random_network.h"

#include <algorithm>
#include <cstdlib>
#include <random>
#include <span>
#include <string>

namespace kalvo {
namespace {

// Numbers by remainder: the standard's distributions differ between libraries.
class Dice {
 public:
  explicit Dice(std::uint32_t seed) : engine_(seed) {}

  int Upto(int most) { return static_cast<int>(engine_() % static_cast<std::uint32_t>(most + 1)); }
  int Between(int least, int most) { return least + Upto(most - least); }
  bool OneIn(int count) { return Upto(count - 1) == 0; }

  template <typename Value>
  void Shuffle(std::vector<Value>& values) {
    for (int i = static_cast<int>(values.size()) - 1; i > 0; --i) {
      std::swap(values[static_cast<std::size_t>(i)], values[static_cast<std::size_t>(Upto(i))]);
    }
  }

 private:
  std::mt19937 engine_;
};

struct Emitter {
  int from = 0;  // nodes
  int to = 0;
};

class Builder {
 public:
  explicit Builder(std::uint32_t seed) : dice_(seed) {}

  std::vector<SectionRow> Closed() {
    std::vector<Emitter> emitters(static_cast<std::size_t>(dice_.Between(2, 14)));
    Lay("ANT", std::to_string(next_node_));
    Branch(emitters, next_node_++, &Emitter::from, false);
    next_node_ = kFirstReturn;
    Lay(std::to_string(next_node_), "ANT");
    if (dice_.OneIn(2)) dice_.Shuffle(emitters);  // the return collects them in another order
    Branch(emitters, next_node_++, &Emitter::to, true);
    for (const Emitter& emitter : emitters) {
      Fit(Lay(std::to_string(emitter.from), std::to_string(emitter.to)), 1.0F);
    }
    if (dice_.OneIn(2)) dice_.Shuffle(rows_);
    if (!dice_.OneIn(5)) MarkPlant(dice_.Between(1, static_cast<int>(rows_.size())));
    return Framed(SystemKind::kClosed);
  }

  std::vector<SectionRow> Open() {
    Lay("1", "ANT");
    Feed(1, dice_.Between(0, 3));
    return Framed(SystemKind::kOpen);
  }

 private:
  static constexpr int kFirstReturn = 501;

  SectionRow& Lay(const std::string& left, const std::string& right) {
    SectionRow& row = rows_.emplace_back();
    row.Name = MakeName(left, right);
    row.Length = static_cast<float>(dice_.Between(5, 300)) / 10.0F;
    row.AnglePOP = static_cast<float>(dice_.Upto(4));
    row.GateValve = static_cast<std::int16_t>(dice_.Upto(2));
    row.DiaTee = static_cast<std::int16_t>(dice_.Upto(1));
    row.DieTee = static_cast<std::int16_t>(dice_.Upto(1));
    if (dice_.OneIn(6)) row.OtherDrop_mm = static_cast<float>(dice_.Between(10, 400));
    if (dice_.OneIn(8)) row.OtherDrop_m = static_cast<float>(dice_.Between(1, 5));
    return row;
  }

  // An emitter, or an outlet when its drop is one in metres.
  void Fit(SectionRow& row, float drop_scale) {
    row.WaterFlow = static_cast<float>(dice_.Between(10, 120) * 10);
    row.SomaDrop = static_cast<float>(dice_.Between(20, 250) * 10) * drop_scale;
  }

  // Pipes from `node` to a node for each part of the emitters, until every emitter has its own.
  void Branch(std::span<Emitter> emitters, int node, int Emitter::*end, bool is_return) {
    while (!emitters.empty()) {
      const int left = static_cast<int>(emitters.size());
      const int taken = left == 1 ? 1 : dice_.Between(1, left - 1);
      const auto part = emitters.first(static_cast<std::size_t>(taken));
      emitters = emitters.subspan(part.size());
      if (part.size() == 1 && !dice_.OneIn(4)) {
        part.front().*end = node;
        continue;
      }
      const int next = next_node_++;
      Lay(std::to_string(is_return ? next : node), std::to_string(is_return ? node : next));
      if (part.size() == 1) {
        part.front().*end = next;
      } else {
        Branch(part, next, end, is_return);
      }
    }
  }

  // Sections fed by row `feeder`: an outlet of its own, or two and more of them.
  void Feed(int feeder, int depth) {
    const int count = depth == 0 ? 0 : dice_.Between(2, 3);
    if (count == 0) {
      SectionRow& row = rows_[static_cast<std::size_t>(feeder - 1)];
      Fit(row, 0.01F);
      row.HeightDiff = static_cast<float>(dice_.Upto(120)) / 10.0F;
    }
    for (int i = 0; i < count; ++i) {
      const auto number = static_cast<int>(rows_.size()) + 1;
      Lay(std::to_string(number), std::to_string(feeder));
      Feed(number, dice_.OneIn(2) ? 0 : depth - 1);
    }
  }

  void MarkPlant(int number) {
    rows_[static_cast<std::size_t>(number - 1)].Auxi = PlantMark(number);
    plant_ = number;
  }

  // What every row has in common.
  std::vector<SectionRow> Framed(SystemKind kind) {
    double flow = 0;
    for (const SectionRow& row : rows_) flow += row.WaterFlow;
    // The largest copper pipe carries no more without a question.
    const int pipe_system = flow > 4000 ? 1 : dice_.Between(1, 2);
    const auto velocity = static_cast<float>(dice_.Between(6, 12)) / 10.0F;
    const auto temperature = static_cast<float>(dice_.Between(7, 80));
    const auto emitters = std::ranges::count_if(rows_, &SectionRow::HasEmitter);
    for (std::size_t i = 0; i < rows_.size(); ++i) {
      SectionRow& row = rows_[i];
      row.RecordNumber = row.SectionNo = static_cast<std::int16_t>(i + 1);
      row.TOT = static_cast<std::int16_t>(rows_.size());
      row.Outlets = static_cast<std::int16_t>(emitters);
      row.BurChil = static_cast<std::int16_t>(plant_);
      row.Thema = FixedText<78>::FromUtf8("Τυχαίο Δίκτυο");
      row.Material = FixedText<78>::FromUtf8(pipe_system == 1 ? "STEEL" : "COPPER");
      row.FileNumber = static_cast<std::int16_t>(pipe_system);
      row.MeanTemp = temperature;
      row.MeanVel = velocity;
      SetKind(row, kind);
    }
    return rows_;
  }

  Dice dice_;
  std::vector<SectionRow> rows_;
  int next_node_ = 1;
  int plant_ = 0;
};

}  // namespace

std::vector<SectionRow> RandomNetwork(std::uint32_t seed, SystemKind kind) {
  Builder builder(seed);
  return kind == SystemKind::kOpen ? builder.Open() : builder.Closed();
}

std::uint32_t CountOfRandomStudies() {
  constexpr std::uint32_t kEachTime = 50;
  const char* more = std::getenv("KALVO_RANDOM_STUDIES");
  return more == nullptr ? kEachTime : static_cast<std::uint32_t>(std::strtoul(more, nullptr, 10));
}

}  // namespace kalvo
