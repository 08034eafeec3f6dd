#pragma once

#include <array>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "form/pictures.h"
#include "study/separators.h"

namespace kalvo {

/// What a section counts of its junctions, in the order in which a case adds to them.
enum class TeeCounter { kDiaTee, kDieTee, kAntiTee, kSymboTee };
inline constexpr std::size_t kTeeCounters = 4;

/// Something for each counter, by TeeCounter: the texts that show them; what is added to them,
/// where nothing leaves the counter as it is and 0 writes it anew.
using TeeTexts = std::array<std::string, kTeeCounters>;
using TeeAmounts = std::array<std::optional<int>, kTeeCounters>;

/// Whose amounts apply. The section form and the sheet differ in the cases D and R, and are meant
/// to: studies are entered with either.
enum class TeeTable { kForm, kSheet };

/// Three-legged and four-legged junctions that differ in their flows.
enum class TeePicture { kT1, kT2, kT3, kT4, kX1, kX2 };
inline constexpr std::array kTeePictures = {TeePicture::kT1, TeePicture::kT2, TeePicture::kT3,
                                            TeePicture::kT4, TeePicture::kX1, TeePicture::kX2};

/// One leg of a picture as the section that is entered: its letter, and what it counts.
struct TeeCase {
  char letter;  ///< 'A' to 'T'
  TeePicture picture;
  JunctionLeg leg;
  bool in;  ///< the flow of the leg
  TeeAmounts form;
  TeeAmounts sheet;

  [[nodiscard]] const TeeAmounts& Amounts(TeeTable table) const {
    return table == TeeTable::kForm ? form : sheet;
  }
  /// True when it touches a counter.
  [[nodiscard]] bool Counts(TeeTable table) const { return Amounts(table) != TeeAmounts{}; }
};

/// All twenty, by their letters.
std::span<const TeeCase> TeeCases();
/// The case of a letter, nullptr when it has none.
const TeeCase* FindTeeCase(char32_t letter);

/// "T1".
std::string_view NameOf(TeePicture picture);
bool IsCross(TeePicture picture);
/// The picture with the flows of its legs.
JunctionContent ContentOf(TeePicture picture);

/// What the case does to each counter, "Διέλευση +1", or "χωρίς μεταβολή".
std::string EffectText(const TeeCase& tee, TeeTable table, std::string_view between = ", ");
/// "A: αριστερό σκέλος, ροή προς τον κόμβο, Διέλευση +1".
std::string SpokenText(const TeeCase& tee, TeeTable table);
/// The line of the sheet's help on the key of the case.
std::string HelpLine(const TeeCase& tee);

/// The counters after the case; those that it does not touch keep their text. Nothing when one
/// would leave the range of 16 bits: then none may change.
std::optional<TeeTexts> ApplyTeeCase(const TeeCase& tee, TeeTable table, TeeTexts counts,
                                     Separators separators);

}  // namespace kalvo
