#include "results/drop_panel.h"

#include <algorithm>
#include <cmath>

namespace kalvo {
namespace {

constexpr double kMmInMetre = 1000.0;

const ExplainStep& StepOf(const DropExplanation& explanation, std::string_view symbol) {
  return *std::ranges::find(explanation.steps, symbol, &ExplainStep::symbol);
}

// Writes the steps of one explanation as lines.
class StepWriter {
 public:
  StepWriter(const DropExplanation& explanation, Separators separators)
      : explanation_(explanation), separators_(separators) {}

  [[nodiscard]] std::vector<StepLine> Lines(const SectionRow& row) const {
    return {Line("Q", "Παροχή", StepOf(explanation_, "Q").formula),
            Line("D", "Εσωτερική διάμετρος", row.NomiDiam.Utf8() + " από το Σύστημα Σωλήνων"),
            Line("v", "Ταχύτητα", "4 Q / (" + OneDecimal(3.6) + " π D²)"),
            Line("Re", "Αριθμός Reynolds", "D v / (1000 ν),  ν = " + ValueAndUnit("ν")),
            Line("λ", "Συντελεστής τριβής", "Colebrook-White,  k = " + ValueAndUnit("k")),
            Line("R", "Πτώση ανά μέτρο", "1000 λ ρ v² / (2 D g),  ρ = " + ValueAndUnit("ρ")),
            LengthLine(),
            DropLine(row)};
  }

 private:
  [[nodiscard]] std::string Value(const ExplainStep& step) const {
    return FormatPattern(step.value, pattern::Decimals(step.decimals), separators_);
  }

  [[nodiscard]] std::string ValueAndUnit(std::string_view symbol) const {
    const ExplainStep& step = StepOf(explanation_, symbol);
    return Value(step) + " " + step.unit;
  }

  [[nodiscard]] StepLine Line(const char* symbol, const char* what, std::string formula) const {
    const ExplainStep& step = StepOf(explanation_, symbol);
    return {symbol, what, std::move(formula), Value(step), step.unit};
  }

  [[nodiscard]] StepLine LengthLine() const {
    const double pipe = StepOf(explanation_, "l").value;
    const double fittings = StepOf(explanation_, "L1").value - pipe;
    const double others = StepOf(explanation_, "L2").value + StepOf(explanation_, "L3").value +
                          StepOf(explanation_, "L4").value;
    const auto text = [this](double metres) {
      return FormatPattern(metres, pattern::kTwoDecimals, separators_);
    };
    std::string formula =
        text(pipe) + " σωλήνας + " + text(fittings) + " για Σζ " +
        FormatPattern(StepOf(explanation_, "Σζ").value, pattern::kOneDecimal, separators_);
    if (others != 0) formula += (others < 0 ? " - " : " + ") + text(std::fabs(others)) + " άλλα";
    return {"L", "Ισοδύναμα μήκη", std::move(formula), text(pipe + fittings + others), "m"};
  }

  [[nodiscard]] std::string OneDecimal(double value) const {
    return FormatPattern(value, pattern::kOneDecimal, separators_);
  }

  [[nodiscard]] StepLine DropLine(const SectionRow& row) const {
    std::string formula = OneDecimal(1.1) + " R L";
    if (row.HasEmitter()) {
      formula += " + " + explanation_.shares.back().what + " " +
                 FormatPattern(row.SomaDrop, pattern::kTwoDecimals, separators_);
    }
    return {"Δp", "Πτώση πίεσης", std::move(formula),
            FormatPattern(row.TotalDrop, pattern::kTwoDecimals, separators_), "mm w.g."};
  }

  const DropExplanation& explanation_;
  Separators separators_;
};

// The explanation's six shares as the four that are drawn: what is neither pipe nor margin nor
// emitter goes with the fittings.
std::vector<Share> FourShares(const DropExplanation& explanation, Separators separators) {
  const std::vector<DropShare>& shares = explanation.shares;
  const double others = shares[2].drop + shares[3].drop;
  const auto share = [&](std::string what, double drop) {
    const double whole = explanation.computed_drop;
    return Share{std::move(what), FormatPattern(drop, pattern::kOneDecimal, separators),
                 whole > 0 ? std::max(drop / whole, 0.0) : 0.0};
  };
  return {share(shares[0].what, shares[0].drop),
          share(others == 0 ? shares[1].what : shares[1].what + " κ.ά.", shares[1].drop + others),
          share(shares[4].what + " 10%", shares[4].drop), share(shares[5].what, shares[5].drop)};
}

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
    StepsDrop.lines = StepWriter(*explanation, separators).Lines(row);
    SharesDrop.parts = FourShares(*explanation, separators);
    if (!explanation->Agrees()) {
      LblRemark.text =
          "Από τις τιμές του τμήματος προκύπτει " +
          FormatPattern(explanation->computed_drop, pattern::kTwoDecimals, separators) +
          " mm w.g. : τα δεδομένα άλλαξαν μετά τον υπολογισμό.";
    } else if (explanation->stepped_down) {
      LblRemark.text =
          "Η διάμετρος μειώθηκε από τον 2ο τρόπο, που βάζει στα άλλα μήκη έναν δικό "
          "του όρο.";
    }
  }
  SharesDrop.visible = !SharesDrop.parts.empty();
  LblOutlet.visible = !LblOutlet.text.empty();
  LblRemark.visible = !LblRemark.text.empty();
}

}  // namespace kalvo
