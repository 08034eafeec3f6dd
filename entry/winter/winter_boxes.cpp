#include "entry/winter/winter_boxes.h"

#include "study/numeric_text.h"
#include "study/rounding.h"

namespace kalvo {

namespace {

constexpr const char* kAttention = "  !!  ΠΡΟΣΟΧΗ  !! ";

std::string RemarkOn(int section) {
  return "ΠΡΟΣΟΧΗ : Παρατήρηση για το Τμήμα, με α/α < " + std::to_string(section) + " > ...";
}

const char* ZeroText(WinterValue value) {
  switch (value) {
    case WinterValue::kLength:
      return "... Το Μήκος του Τμήματος Σωλήνος, ΔΕΝ μπορεί να είναι μηδενικό ...";
    case WinterValue::kFlow:
      return "... Η Παροχή του Νερού στο Σώμα, ΔΕΝ μπορεί να είναι μηδενική ...";
    case WinterValue::kDrop:
      break;
  }
  return "... Η Πτώση Πίεσης στο Σώμα, ΔΕΝ μπορεί να είναι μηδενική ...";
}

}  // namespace

Box WinterZeroBox(int section, WinterValue value) {
  return {kAttention, {RemarkOn(section), ZeroText(value)}, box_style::kStop};
}

Box WinterFlowBox(const WinterLine& line, float summer_flow_lh) {
  const char* what = line.flow_lh > summer_flow_lh
                         ? "... Η Παροχή νερού τον Χειμώνα, είναι μεγαλύτερη εκείνης του Θέρους ..."
                         : "... Η Παροχή νερού τον Χειμώνα, είναι ίση με εκείνη του Θέρους ...";
  return {kAttention,
          {RemarkOn(line.section), what,
           "                     ... Είναι < εντάξει > κάτι τέτοιο ?? ...          "},
          box_style::kYesNo};
}

Box KeepWinterBox(bool with_sections) {
  Box box{"  ! !   ΠΡΟΣΟΧΗ   ! ! ",
          {"        !! Αν ΔΕΝ σώσετε τα Δεδομένα για τον Χειμώνα, αυτά θα χαθούν !!        "},
          box_style::kYesNoCancel};
  if (with_sections) {
    box.lines.emplace_back("        (Μαζί τους σώζονται και τα Δεδομένα των Τμημάτων)        ");
  }
  box.lines.emplace_back(
      "                          Θέλετε να < σωθούν > τα Δεδομένα ??                 ");
  return box;
}

Box WinterPumpBox(const SectionRow& first_row, Separators separators) {
  const auto text = [&](float value) {
    return FormatPattern(value, pattern::kOneDecimal, separators);
  };
  return {"... ΧΑΡΑΚΤΗΡΙΣΤΙΚΑ ΑΝΤΛΙΑΣ ΧΕΙΜΩΝΑ ...",
          {"Παροχή Νερού.................." + text(first_row.PAR) + "  [m3/h]",
           "Μανομετρικό Ύψος.........." + text(ToSingle(first_row.DP / 1000.0)) + "  [m w.g.]"},
          box_style::kInformation};
}

}  // namespace kalvo
