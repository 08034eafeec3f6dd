#include "entry/section_form/section_fields.h"

#include <array>

#include "entry/sections/sheet_columns.h"

namespace kalvo {
namespace {

constexpr std::array<FieldWord, 15> kWords = {{
    {"Ονομασία Τμήματος", "αρχή"},
    {"Ονομασία Τμήματος", "τέλος"},
    {"Μήκος Τμήματος Σωλήνος, σε [m]", "μήκος"},
    {"Πλήθος Γωνιών, σε [τεμ.] ", "γωνίες"},
    {"Πλήθος Καμπυλών 90°, σε [τεμ.] ", "καμπύλες"},
    {"Πλήθος Βαννών, οποιουδήποτε τύπου, σε [τεμ.] ", "βάννες"},
    {"Πλήθος Ευθέων Ρυθμιστικών Διακοπτών, σε [τεμ.] ", "ευθείς διακόπτες"},
    {"Πλήθος Γωνιακών Ρυθμιστικών Διακοπτών, σε [τεμ.] ", "γωνιακοί διακόπτες"},
    {"Πλήθος Διακλαδώσεων σε < ΤΑΥ > (< ΤΑΥ > σε Διακλάδωση) ", "< ΤΑΥ > σε διακλάδωση"},
    {"Πλήθος Διελεύσεων από < ΤΑΥ > (< ΤΑΥ > σε Διέλευση), [τεμ.] ", "< ΤΑΥ > σε διέλευση"},
    {"Πλήθος Αντιρροών σε < ΤΑΥ > (< ΤΑΥ > σε Αντιρροή), σε [τεμ.] ", "< ΤΑΥ > σε αντιρροή"},
    {"Πλήθος Συμβολών σε < ΤΑΥ > (< ΤΑΥ > σε Συμβολή), σε [τεμ.] ", "< ΤΑΥ > σε συμβολή"},
    {"Πλήθος Βαλβίδων Αντεπιστροφής, σε [τεμ.] ", "αντεπίστροφα"},
    {"Άλλη Πτώση Πίεσης, σε [mm w.g.] ", "άλλη πτώση"},
    {"Άλλη Πτώση Πίεσης, σε Ισοδύναμα [m] Σωλήνος ", "άλλη πτώση, σε m"},
}};

constexpr const char* kKeys = " Enter: επόμενο πεδίο. Ctrl+L: επιλογή όλου του κειμένου.";

const char* HowTyped(int column, bool open) {
  const bool left = column == sheet_column::kLeft;
  if (left) return open ? "Ο α/α του τμήματος, που δεν αλλάζει." : "Αριθμός κόμβου, ως 3 ψηφία.";
  if (column == sheet_column::kRight) {
    return open ? "Ο α/α του τμήματος που τροφοδοτεί αυτό, ή A για το ANT."
                : "Αριθμός κόμβου, ως 3 ψηφία, ή A για το ANT.";
  }
  if (column == sheet_column::kLength) return "Ψηφία και μία υποδιαστολή, πάνω από 0.";
  const bool decimal = SheetColumns()[static_cast<std::size_t>(column)].typing.family ==
                           KeyFamily::kUnsignedDecimal &&
                       column < sheet_column::kDiaTee;
  return decimal ? "Ψηφία και μία υποδιαστολή." : "Μόνο ψηφία.";
}

}  // namespace

std::span<const FieldWord> FieldWords() { return kWords; }

std::string HintOf(int column, bool open) { return std::string(HowTyped(column, open)) + kKeys; }

}  // namespace kalvo
