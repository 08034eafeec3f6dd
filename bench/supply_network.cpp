#include "bench/supply_network.h"

#include <algorithm>
#include <string>
#include <utility>

#include "study/system_kind.h"

namespace kalvo {

namespace {

constexpr int kSupplyFloors = 12;
constexpr int kRiserRows = 2 * kSupplyFloors + 1;
constexpr float kFloorHeight = 3.1F;

class SupplyBuilder {
 public:
  std::vector<SectionRow> Rows(int sections) {
    Lay("ANT", 12);
    for (int rest = sections - 1; rest > 0; rest -= kRiserRows) {
      LayRiser(std::min(rest, kRiserRows));
    }
    Frame();
    return std::move(rows_);
  }

 private:
  int Lay(const std::string& feeder, float metres) {
    SectionRow& row = rows_.emplace_back();
    row.Name = MakeName(std::to_string(rows_.size()), feeder);
    row.Length = metres;
    row.AnglePOP = 2;
    row.DieTee = 1;
    return static_cast<int>(rows_.size());
  }

  // 60 to 180 l/h at 5 to 9 m w.g.
  void Draw(int feeder, int floor) {
    const int number = Lay(std::to_string(feeder), 3.5F);
    SectionRow& row = rows_.back();
    row.WaterFlow = static_cast<float>(60 + 30 * (number * 7 % 5));
    row.SomaDrop = static_cast<float>(5 + number * 3 % 5);
    row.HeightDiff = kFloorHeight * static_cast<float>(floor);
  }

  // A pipe and an outlet for each floor and one outlet more at the top; a row that is left over is
  // an outlet at the foot.
  void LayRiser(int rows) {
    if (rows % 2 == 0) {
      Draw(1, 0);
      --rows;
    }
    int at = 1;
    int floor = 0;
    for (; rows > 1; rows -= 2) {
      at = Lay(std::to_string(at), kFloorHeight);
      Draw(at, ++floor);
    }
    Draw(at, floor);
  }

  void Frame() {
    const auto count = static_cast<std::int16_t>(rows_.size());
    const auto outlets = static_cast<std::int16_t>(std::count_if(
        rows_.begin(), rows_.end(), [](const SectionRow& row) { return row.HasEmitter(); }));
    std::int16_t number = 0;
    for (SectionRow& row : rows_) {
      row.RecordNumber = row.SectionNo = ++number;
      row.MeanTemp = 15;
      row.MeanVel = 1.5F;
      row.FileNumber = 1;
      SetKind(row, SystemKind::kOpen);
      row.TOT = count;
      row.Outlets = outlets;
    }
  }

  std::vector<SectionRow> rows_;
};

}  // namespace

std::vector<SectionRow> SupplyStudy(int sections) { return SupplyBuilder().Rows(sections); }

}  // namespace kalvo
