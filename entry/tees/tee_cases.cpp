#include "entry/tees/tee_cases.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

#include "study/fault.h"
#include "study/numeric_text.h"

namespace kalvo {
namespace {

constexpr TeeAmounts Adds(TeeCounter counter, int amount) {
  TeeAmounts amounts{};
  amounts[static_cast<std::size_t>(counter)] = amount;
  return amounts;
}
constexpr TeeAmounts Dia(int amount) { return Adds(TeeCounter::kDiaTee, amount); }
constexpr TeeAmounts Die(int amount) { return Adds(TeeCounter::kDieTee, amount); }
constexpr TeeAmounts Anti(int amount) { return Adds(TeeCounter::kAntiTee, amount); }
constexpr TeeAmounts Symbo(int amount) { return Adds(TeeCounter::kSymboTee, amount); }

constexpr TeeAmounts DiaAndSymbo() {
  TeeAmounts amounts = Dia(1);
  amounts[static_cast<std::size_t>(TeeCounter::kSymboTee)] = 1;
  return amounts;
}

// A cross counts as two tees in the row of its through leg.
constexpr auto MakeCases() {
  using enum TeePicture;
  using enum JunctionLeg;
  constexpr bool kIn = true;
  constexpr bool kOut = false;
  constexpr TeeAmounts kNone{};
  constexpr TeeAmounts kBoth = DiaAndSymbo();
  return std::array{
      TeeCase{'A', kT1, kLeft, kIn, Die(1), Die(1)},
      TeeCase{'B', kT1, kRight, kOut, kNone, kNone},
      TeeCase{'C', kT1, kDown, kOut, Dia(1), Dia(1)},
      TeeCase{'D', kT3, kLeft, kIn, Symbo(0), Symbo(1)},
      TeeCase{'E', kT3, kRight, kOut, Symbo(1), Symbo(1)},
      TeeCase{'F', kT3, kDown, kIn, kNone, kNone},
      TeeCase{'G', kT2, kLeft, kOut, Anti(1), Anti(1)},
      TeeCase{'H', kT2, kRight, kOut, Anti(1), Anti(1)},
      TeeCase{'I', kT2, kDown, kIn, kNone, kNone},
      TeeCase{'J', kT4, kLeft, kIn, Die(1), Die(1)},
      TeeCase{'K', kT4, kRight, kIn, Die(1), Die(1)},
      TeeCase{'L', kT4, kDown, kOut, Dia(1), Dia(1)},
      TeeCase{'M', kX1, kLeft, kIn, Die(2), Die(2)},
      TeeCase{'N', kX1, kUp, kOut, Dia(1), Dia(1)},
      TeeCase{'O', kX1, kRight, kOut, kNone, kNone},
      TeeCase{'P', kX1, kDown, kOut, Dia(1), Dia(1)},
      TeeCase{'Q', kX2, kLeft, kIn, kBoth, kBoth},
      TeeCase{'R', kX2, kUp, kIn, Die(2), Die(1)},
      TeeCase{'S', kX2, kRight, kIn, kBoth, kBoth},
      TeeCase{'T', kX2, kDown, kOut, kNone, kNone},
  };
}
constexpr auto kTeeCases = MakeCases();

constexpr std::array<std::string_view, kTeeCounters> kCounterNouns = {"Διακλάδωση", "Διέλευση",
                                                                      "Αντιρροή", "Συμβολή"};
constexpr std::array<std::string_view, kTeePictures.size()> kPictureNames = {"T1", "T2", "T3",
                                                                             "T4", "X1", "X2"};
// By JunctionLeg.
constexpr std::array<std::string_view, 4> kLegNames = {"αριστερό σκέλος", "δεξιό σκέλος",
                                                       "κάτω σκέλος", "άνω σκέλος"};

std::string LegText(const TeeCase& tee) {
  const std::string leg(kLegNames[static_cast<std::size_t>(tee.leg)]);
  return leg + (tee.in ? ", ροή προς τον κόμβο" : ", ροή από τον κόμβο");
}

// The count after adding; nothing outside 16 bits, which the conversion never sees.
std::optional<std::string> Added(std::string_view text, int amount, Separators separators) {
  const double sum = ParseNumber(text, separators) + amount;
  const double whole = std::nearbyint(sum);
  using Limits = std::numeric_limits<std::int16_t>;
  if (whole < Limits::min() || whole > Limits::max()) return std::nullopt;
  return FormatNumber(NumberText(int{ToInt16(sum)}), separators);
}

}  // namespace

std::span<const TeeCase> TeeCases() { return kTeeCases; }

const TeeCase* FindTeeCase(char32_t letter) {
  const auto* found = std::ranges::find_if(kTeeCases, [letter](const TeeCase& tee) {
    return static_cast<char32_t>(tee.letter) == letter;
  });
  return found == kTeeCases.end() ? nullptr : found;
}

std::string_view NameOf(TeePicture picture) {
  return kPictureNames[static_cast<std::size_t>(picture)];
}

bool IsCross(TeePicture picture) {
  return picture == TeePicture::kX1 || picture == TeePicture::kX2;
}

JunctionContent ContentOf(TeePicture picture) {
  JunctionContent content;
  content.caption = IsCross(picture) ? "Σταυρός" : "Ταυ";
  for (const TeeCase& tee : kTeeCases) {
    if (tee.picture != picture) continue;
    content.legs.push_back({tee.leg, tee.in});
    content.told += (content.told.empty() ? "" : "; ") + LegText(tee);
  }
  return content;
}

std::string EffectText(const TeeCase& tee, TeeTable table, std::string_view between) {
  std::string text;
  const TeeAmounts& amounts = tee.Amounts(table);
  for (std::size_t counter = 0; counter < kTeeCounters; ++counter) {
    if (!amounts[counter]) continue;
    text += text.empty() ? "" : between;
    text += kCounterNouns[counter];
    text += " +" + std::to_string(*amounts[counter]);
  }
  return text.empty() ? "χωρίς μεταβολή" : text;
}

std::string SpokenText(const TeeCase& tee, TeeTable table) {
  return std::string(1, tee.letter) + ": " + LegText(tee) + ", " + EffectText(tee, table);
}

std::string HelpLine(const TeeCase& tee) {
  const std::string letter(1, tee.letter);
  return "  ... < Shift+" + letter + " > -------> Καταχώρηση < ΤΑΥ > περίπτωσης <" + letter +
         "> ...";
}

std::optional<TeeTexts> ApplyTeeCase(const TeeCase& tee, TeeTable table, TeeTexts counts,
                                     Separators separators) {
  const TeeAmounts& amounts = tee.Amounts(table);
  for (std::size_t counter = 0; counter < kTeeCounters; ++counter) {
    if (!amounts[counter]) continue;
    const auto added = Added(counts[counter], *amounts[counter], separators);
    if (!added) return std::nullopt;
    counts[counter] = *added;
  }
  return counts;
}

}  // namespace kalvo
