#include "results/drop_panel.h"

#include <cmath>

#include "results/explanation_lines.h"

namespace kalvo {
namespace {

constexpr double kMmInMetre = 1000.0;

std::string OutletLine(const SectionRow& row, double spare, Separators separators) {
  return "Υποδοχέας : πίεση ροής " +
         FormatPattern(row.SomaDrop, pattern::kTwoDecimals, separators) + " m w.g., ύψος " +
         FormatPattern(row.HeightDiff, pattern::kTwoDecimals, separators) + " m, " +
         (spare < 0 ? "λείπουν " : "περισσεύουν ") +
         FormatPattern(std::fabs(spare) / kMmInMetre, pattern::kTwoDecimals, separators) +
         " m w.g.";
}

std::string SpacedName(const std::string& name) {
  const std::size_t slash = name.find('/');
  return slash == std::string::npos ? name
                                    : std::string(Trim(name.substr(0, slash))) + " / " +
                                          std::string(Trim(name.substr(slash + 1)));
}

}  // namespace

DropPanel::DropPanel(Form& form)
    : LblSection(form, "LblSection"),
      LblSectionName(form, "LblSectionName"),
      StepsDrop(form, "StepsDrop"),
      SharesDrop(form, "SharesDrop"),
      LblOutlet(form, "LblOutlet"),
      LblRemark(form, "LblRemark") {
  SharesDrop.caption = "Από τι αποτελείται, σε mm w.g.";
  Clear();
}

void DropPanel::Clear() {
  for (Label* label : {&LblSection, &LblSectionName, &LblOutlet, &LblRemark}) label->text.clear();
  StepsDrop.lines.clear();
  SharesDrop.parts.clear();
  SharesDrop.visible = LblOutlet.visible = LblRemark.visible = false;
}

void DropPanel::Show(const SectionRow& row, const std::optional<DropExplanation>& explanation,
                     std::optional<double> outlet_spare, Separators separators) {
  Clear();
  LblSection.text = "Τμήμα " + std::to_string(row.RecordNumber);
  LblSectionName.text = SpacedName(row.Name.Utf8());
  if (outlet_spare) LblOutlet.text = OutletLine(row, *outlet_spare, separators);
  if (!explanation) {
    LblRemark.text = "Οι τιμές του τμήματος δεν οδηγούν σε πτώση πίεσης.";
  } else {
    StepsDrop.lines = ShortSteps(*explanation, row, separators);
    SharesDrop.parts = ShortShares(*explanation, separators);
    LblRemark.text = ShortRemark(*explanation, separators);
  }
  SharesDrop.visible = !SharesDrop.parts.empty();
  LblOutlet.visible = !LblOutlet.text.empty();
  LblRemark.visible = !LblRemark.text.empty();
}

}  // namespace kalvo
