#pragma once

#include <string>

#include "entry/tees/tee_counters.h"

namespace kalvo {

/// The counters of a section in memory, with a comma for decimals.
class TeeCountersInMemory : public TeeCounters {
 public:
  [[nodiscard]] TeeTable Table() const override { return table; }
  [[nodiscard]] std::string SectionText() const override { return section; }
  [[nodiscard]] TeeTexts Counts() const override { return counts; }
  bool Press(char letter) override {
    pressed += letter;
    const auto after = ApplyTeeCase(*FindTeeCase(static_cast<char32_t>(letter)), table, counts,
                                    Separators{',', '.'});
    if (after) counts = *after;
    return after.has_value();
  }
  void Shown() override { ++shown; }
  void BringToFront() override { ++brought; }

  TeeTable table = TeeTable::kSheet;
  std::string section = "Τμήμα 13 : 6 / 7";
  TeeTexts counts;
  std::string pressed;  ///< the letters so far
  int shown = 0;        ///< how often the window has come to the front
  int brought = 0;      ///< how often its screen was to come to the front
};

}  // namespace kalvo
