#include "entry/sections/sheet_columns.h"

#include <array>

namespace kalvo {
namespace {

constexpr CellTyping kName{KeyFamily::kUnsignedWhole, kLongestName, -1, false};
constexpr CellTyping kSlash{KeyFamily::kText, 0, -1, true};
constexpr CellTyping kMetres{KeyFamily::kUnsignedDecimal, 0, 2, false};
constexpr CellTyping kNumber{KeyFamily::kUnsignedDecimal, 0, -1, false};
constexpr CellTyping kCount{KeyFamily::kUnsignedWhole, 0, -1, false};

constexpr std::array<SheetColumn, kSheetColumns> kColumns = {{
    {"ΑΡΧ. ΚΟΜ-ΒΟΣ", "ΤΡΕ-  ΧΟΝ   ΤΜΗ- ΜΑ",
     "Αρχικός κόμβος : αριθμός, ή ANT για τον κόμβο της πηγής.", 4, kName, false,
     "Ο α/α του τμήματος."},
    {"/", "/", "", 1, kSlash},
    {"ΤΕΛ. ΚΟΜ-ΒΟΣ", "ΤΜΗ- ΜΑ  ΤΡΟ- ΦΟ- ΔΟ- ΤΗΣ",
     "Τελικός κόμβος : αριθμός, ή ANT για τον κόμβο της πηγής.", 4, kName, true,
     "Ο α/α του τμήματος που το τροφοδοτεί, ή ANT για τροφοδότηση από την πηγή."},
    {"ΜΗΚΟΣ [m]", nullptr, "Μήκος του τμήματος σε μέτρα.", 6, kMetres, true},
    {"ΓΩΝ. [τεμ.]", nullptr, "Πλήθος γωνιών.", 5, kNumber},
    {"ΚΑΜΠ.90° [τεμ.]", nullptr, "Πλήθος καμπυλών 90°.", 7, kNumber},
    {"ΒΑΝ- ΝΕΣ [τεμ.]", nullptr, "Πλήθος βαννών, οποιουδήποτε τύπου.", 5, kCount},
    {"ΕΥΘ. ΡΥΘΜ. ΔΙΑΚ. [τεμ.]", nullptr, "Πλήθος ευθέων ρυθμιστικών διακοπτών.", 5, kCount},
    {"ΓΩΝ. ΡΥΘΜ. ΔΙΑΚ. [τεμ.]", nullptr, "Πλήθος γωνιακών ρυθμιστικών διακοπτών.", 5, kCount, true},
    {"<ΤΑΥ> ΣΕ ΔΙΑ- ΚΛΑ- ΔΩΣΗ [τεμ.]", nullptr, "Πλήθος < ΤΑΥ > σε διακλάδωση.", 6, kCount},
    {"<ΤΑΥ>  ΣΕ ΔΙΕ- ΛΕΥ- ΣΗ [τεμ.]", nullptr, "Πλήθος < ΤΑΥ > σε διέλευση.", 6, kCount},
    {"<ΤΑΥ>   ΣΕ  ΑΝΤΙΡ-ΡΟΗ [τεμ.]", nullptr, "Πλήθος < ΤΑΥ > σε αντιρροή.", 6, kCount},
    {"<ΤΑΥ>  ΣΕ ΣΥΜ- ΒΟΛΗ [τεμ.]", nullptr, "Πλήθος < ΤΑΥ > σε συμβολή.", 6, kCount, true},
    {"ΒΑΛΒΙ-ΔΕΣ  ΑΝΤΕ- ΠΙΣΤΡ. [τεμ.]", nullptr, "Πλήθος βαλβίδων αντεπιστροφής.", 6, kCount, true},
    {"ΑΛΛΗ ΠΤΩΣΗ [mm Υ.Σ]", nullptr, "Άλλη πτώση πίεσης, σε mm υδάτινης στήλης.", 7, kNumber},
    {"ΑΛΛΗ ΠΤΩΣΗ [Ισοδ. m]", nullptr, "Άλλη πτώση πίεσης, σε ισοδύναμα μέτρα σωλήνα.", 7, kNumber},
}};

}  // namespace

std::span<const SheetColumn> SheetColumns() { return kColumns; }

std::string HeadInWords(int column, SystemKind kind) {
  std::string words;
  bool parted = false;
  for (const char* at = kColumns.at(static_cast<std::size_t>(column)).Head(kind); *at != 0; ++at) {
    if (*at == ' ') {
      parted = parted || !words.empty();
      continue;
    }
    if (*at == '-') {  // a word that goes on in the next line
      while (at[1] == ' ') ++at;
      continue;
    }
    if (parted) words += ' ';
    parted = false;
    words += *at;
  }
  return words;
}

std::vector<GridColumn> SheetGridColumns(SystemKind kind) {
  std::vector<GridColumn> columns;
  for (const SheetColumn& column : kColumns) {
    GridColumn& made = columns.emplace_back();
    made.header = column.Head(kind);
    made.width = column.width;
    made.closes_family = column.closes_family;
  }
  columns[sheet_column::kRight].number = false;
  return columns;
}

std::vector<CellTyping> SheetTyping() {
  std::vector<CellTyping> typing;
  typing.reserve(kColumns.size());
  for (const SheetColumn& column : kColumns) {
    typing.push_back(column.typing);
  }
  return typing;
}

const NumberField& FieldOfColumn(int column) {
  return kEntryNumbers.at(static_cast<std::size_t>(column - sheet_column::kLength)).field;
}

}  // namespace kalvo
