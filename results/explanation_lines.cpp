#include "results/explanation_lines.h"

#include <algorithm>
#include <cmath>

namespace kalvo {
namespace {

// How a value is shown.
struct Shown {
  const char* unit;
  int decimals;
};

constexpr Shown kShownFlow = {"Lit/h", 1};
constexpr Shown kShownBore = {"mm", 2};
constexpr Shown kShownVelocity = {"m/sec", 2};
constexpr Shown kShownViscosity = {"cSt", 4};
constexpr Shown kShownReynolds = {"", 0};
constexpr Shown kShownRoughness = {"mm", 4};
constexpr Shown kShownLamda = {"", 5};
constexpr Shown kShownDensity = {"kg/m³", 1};
constexpr Shown kShownRate = {"mm w.g./m", 3};
constexpr Shown kShownLength = {"m", 3};
constexpr Shown kShownZeta = {"", 2};
constexpr Shown kShownDrop = {"mm w.g.", 2};

bool IsOpen(const DropExplanation& from) { return from.kind == SystemKind::kOpen; }

std::string FlowOrigin(const DropExplanation& from) {
  return IsOpen(from) ? "από τους Υποδοχείς που εξυπηρετεί" : "από τα Σώματα που εξυπηρετεί";
}

std::string EmitterWord(const DropExplanation& from) { return IsOpen(from) ? "Υποδοχέας" : "Σώμα"; }

// The plant's place in the lengths; in a section that was taken down the method's mark fills it.
std::string PlantTerm(const DropExplanation& from) {
  return from.stepped_down ? "Όρος μείωσης διαμέτρου" : "Λέβητας ή Chiller";
}

class LongWriter {
 public:
  LongWriter(const DropExplanation& from, Separators separators)
      : from_(from), separators_(separators) {}

  LongExplanation Write() {
    AddFlow();
    AddLengths();
    AddDrop();
    AddFittings();
    AddShares();
    if (!from_.Agrees()) {
      result_.remark = "Η αποθηκευμένη πτώση είναι " + Alone(from_.stored_drop, kShownDrop) +
                       " mm w.g. : τα δεδομένα άλλαξαν μετά τον υπολογισμό";
    }
    return std::move(result_);
  }

 private:
  // A value that stands alone, and one below others.
  [[nodiscard]] std::string Alone(double value, const Shown& shown) const {
    return WithEnoughDecimals(static_cast<float>(value), shown.decimals, separators_);
  }
  [[nodiscard]] std::string InLine(double value, int decimals) const {
    return WithDecimals(static_cast<float>(value), decimals, separators_);
  }

  void Step(std::string what, double value, const Shown& shown, std::string formula) {
    result_.steps.push_back({std::move(what), Alone(value, shown), shown.unit, std::move(formula)});
  }

  void AddFlow() {
    Step("Παροχή Q", from_.flow_lh, kShownFlow, FlowOrigin(from_));
    Step("Εσωτερική διάμετρος D", from_.bore_mm, kShownBore, "από το Σύστημα Σωλήνων");
    Step("Ταχύτητα v", from_.velocity, kShownVelocity, "4 Q / (3,6 π D²), 2 δεκαδικά");
    Step("Κινηματικό ιξώδες ν", from_.viscosity_cst, kShownViscosity, "στη Μέση Θερμοκρασία");
    Step("Reynolds Re", from_.reynolds, kShownReynolds, "D v / (1000 ν), ακέραιο μέρος");
    Step("Τραχύτητα k", from_.roughness_mm, kShownRoughness, "από το Σύστημα Σωλήνων");
    Step("Συντελεστής τριβής λ", from_.lamda, kShownLamda,
         "1/√λ = -2 log(k/(3,71 D) + 2,51/(Re √λ))");
    Step("Πυκνότητα ρ", from_.density, kShownDensity, "του Ρέοντος Μέσου");
    Step("Τριβή R", from_.friction_rate, kShownRate, "1000 λ ρ v² / (2 D 9,81), 3 δεκαδικά");
  }

  void AddLengths() {
    const bool stepped = from_.stepped_down;
    Step("Μήκος σωλήνα", from_.pipe_length_m, kShownLength, "όπως καταχωρήθηκε");
    Step("Σύνολο ζ εξαρτημάτων", from_.sum_of_zeta, kShownZeta, "Σ πλήθος × ζ");
    Step("L1 σωλήνας και εξαρτήματα", from_.lengths.pipe_and_fittings, kShownLength,
         "Μήκος + Σζ D / (1000 λ)");
    Step("L2 άλλη πτώση", from_.lengths.other_drop, kShownLength,
         stepped ? "Άλλη πτώση / R της προηγούμενης διαμέτρου" : "Άλλη πτώση / R");
    Step("L3 άλλο ισοδύναμο μήκος", from_.lengths.other_length, kShownLength, "όπως καταχωρήθηκε");
    Step("L4 " + PlantTerm(from_), from_.lengths.plant, kShownLength,
         stepped ? "-2500 D / (1000 λ), μετά από μείωση διαμέτρου" : "2,5 × δείκτης D / (1000 λ)");
  }

  void AddDrop() {
    const bool open = IsOpen(from_);
    Step("Πτώση τριβής", from_.own_drop, kShownDrop, "R (L1 + L2 + L3 + L4)");
    Step("Προσαύξηση ασφαλείας", from_.shares.margin, kShownDrop, "10 %");
    Step(open ? "Πίεση ροής Υποδοχέα" : "Πτώση Σώματος", from_.shares.emitter, kShownDrop,
         open ? "τα m w.g. όπως καταχωρήθηκαν, ως mm w.g." : "όπως καταχωρήθηκε");
    Step("Συνολική πτώση", from_.computed_drop, kShownDrop,
         "1,1 R (L1 + L2 + L3 + L4) + " + EmitterWord(from_) + ", 2 δεκαδικά");
  }

  void AddFittings() {
    for (const FittingShare& fitting : from_.fittings) {
      result_.fittings.push_back({fitting.kind->name,
                                  FormatNumber(static_cast<float>(fitting.count), separators_),
                                  InLine(fitting.zeta, kShownZeta.decimals),
                                  InLine(fitting.length_m, kShownLength.decimals)});
    }
  }

  void AddShares() {
    const DropParts& shares = from_.shares;
    AddShare("Σωλήνας", shares.pipe);
    AddShare("Εξαρτήματα", shares.fittings);
    AddShare("Άλλες πτώσεις", shares.others);
    AddShare(PlantTerm(from_), shares.plant);
    AddShare("Προσαύξηση", shares.margin);
    AddShare(EmitterWord(from_), shares.emitter);
  }

  void AddShare(std::string what, double drop) {
    const std::optional<double> fraction = from_.FractionOf(drop);
    result_.shares.push_back({std::move(what), InLine(drop, kShownDrop.decimals),
                              fraction ? InLine(*fraction * 100.0, 1) : "---"});
  }

  const DropExplanation& from_;
  Separators separators_;
  LongExplanation result_;
};

class ShortWriter {
 public:
  ShortWriter(const DropExplanation& from, Separators separators)
      : from_(from), separators_(separators) {}

  [[nodiscard]] std::vector<StepLine> Lines(const SectionRow& row) const {
    return {Line("Q", "Παροχή", FlowOrigin(from_), from_.flow_lh, kShownFlow),
            Line("D", "Εσωτερική διάμετρος", row.NomiDiam.Utf8() + " από το Σύστημα Σωλήνων",
                 from_.bore_mm, kShownBore),
            Line("v", "Ταχύτητα", "4 Q / (" + OneDecimal(3.6) + " π D²)", from_.velocity,
                 kShownVelocity),
            Line("Re", "Αριθμός Reynolds",
                 "D v / (1000 ν),  ν = " + WithUnit(from_.viscosity_cst, kShownViscosity),
                 from_.reynolds, kShownReynolds),
            Line("λ", "Συντελεστής τριβής",
                 "Colebrook-White,  k = " + WithUnit(from_.roughness_mm, kShownRoughness),
                 from_.lamda, kShownLamda),
            Line("R", "Πτώση ανά μέτρο",
                 "1000 λ ρ v² / (2 D g),  ρ = " + WithUnit(from_.density, kShownDensity),
                 from_.friction_rate, kShownRate),
            LengthLine(),
            DropLine(row)};
  }

  [[nodiscard]] std::vector<Share> FourShares() const {
    const DropParts& shares = from_.shares;
    const double others = shares.others + shares.plant;
    return {PartOf("Σωλήνας", shares.pipe),
            PartOf(others == 0 ? "Εξαρτήματα" : "Εξαρτήματα κ.ά.", shares.fittings + others),
            PartOf("Προσαύξηση 10%", shares.margin), PartOf(EmitterWord(from_), shares.emitter)};
  }

 private:
  [[nodiscard]] std::string Value(double value, const Shown& shown) const {
    return WithDecimals(value, shown.decimals, separators_);
  }
  [[nodiscard]] std::string WithUnit(double value, const Shown& shown) const {
    return Value(value, shown) + " " + shown.unit;
  }
  [[nodiscard]] std::string OneDecimal(double value) const {
    return FormatPattern(value, pattern::kOneDecimal, separators_);
  }
  [[nodiscard]] std::string TwoDecimals(double value) const {
    return FormatPattern(value, pattern::kTwoDecimals, separators_);
  }

  [[nodiscard]] StepLine Line(const char* symbol, const char* what, std::string formula,
                              double value, const Shown& shown) const {
    return {symbol, what, std::move(formula), Value(value, shown), shown.unit};
  }

  [[nodiscard]] StepLine LengthLine() const {
    const EquivalentLengths& lengths = from_.lengths;
    const double pipe = from_.pipe_length_m;
    const double fittings = lengths.pipe_and_fittings - pipe;
    const double others = lengths.other_drop + lengths.other_length + lengths.plant;
    std::string formula = TwoDecimals(pipe) + " σωλήνας + " + TwoDecimals(fittings) + " για Σζ " +
                          OneDecimal(from_.sum_of_zeta);
    if (others != 0) {
      formula += (others < 0 ? " - " : " + ") + TwoDecimals(std::fabs(others)) + " άλλα";
    }
    return {"L", "Ισοδύναμα μήκη", std::move(formula), TwoDecimals(pipe + fittings + others), "m"};
  }

  [[nodiscard]] StepLine DropLine(const SectionRow& row) const {
    std::string formula = OneDecimal(1.1) + " R L";
    if (row.HasEmitter()) {
      formula += " + " + EmitterWord(from_) + " " +
                 FormatPattern(row.SomaDrop, pattern::kTwoDecimals, separators_);
    }
    return {"Δp", "Πτώση πίεσης", std::move(formula),
            FormatPattern(row.TotalDrop, pattern::kTwoDecimals, separators_), kShownDrop.unit};
  }

  [[nodiscard]] Share PartOf(std::string what, double drop) const {
    return {std::move(what), OneDecimal(drop), std::max(from_.FractionOf(drop).value_or(0.0), 0.0)};
  }

  const DropExplanation& from_;
  Separators separators_;
};

}  // namespace

LongExplanation ExplainAtLength(const DropExplanation& explanation, Separators separators) {
  return LongWriter(explanation, separators).Write();
}

std::vector<StepLine> ShortSteps(const DropExplanation& explanation, const SectionRow& row,
                                 Separators separators) {
  return ShortWriter(explanation, separators).Lines(row);
}

std::vector<Share> ShortShares(const DropExplanation& explanation, Separators separators) {
  return ShortWriter(explanation, separators).FourShares();
}

std::string ShortRemark(const DropExplanation& explanation, Separators separators) {
  if (!explanation.Agrees()) {
    return "Από τις τιμές του τμήματος προκύπτει " +
           FormatPattern(explanation.computed_drop, pattern::kTwoDecimals, separators) +
           " mm w.g. : τα δεδομένα άλλαξαν μετά τον υπολογισμό.";
  }
  if (explanation.stepped_down) {
    return "Η διάμετρος μειώθηκε από τον 2ο τρόπο, που βάζει στα άλλα μήκη έναν δικό του όρο.";
  }
  return {};
}

}  // namespace kalvo
