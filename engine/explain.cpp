#include "engine/explain.h"

#include <array>
#include <cmath>

#include "engine/step_down.h"
#include "study/fault.h"

namespace kalvo {

namespace {

struct FittingKind {
  const char* what;
  double (*count)(const SectionRow&);
  double (*zeta)(const FittingCoefficients&);
};

constexpr std::array<FittingKind, 10> kFittings = {{
    {"Γωνίες", [](const SectionRow& r) { return double{r.AnglePOP}; },
     [](const FittingCoefficients& z) { return z.AnglePOP; }},
    {"Καμπύλες 90°", [](const SectionRow& r) { return double{r.Elbow90}; },
     [](const FittingCoefficients& z) { return z.Elbow90; }},
    {"Βάννες", [](const SectionRow& r) { return double(r.GateValve); },
     [](const FittingCoefficients& z) { return z.GateValve; }},
    {"Ευθείς διακόπτες", [](const SectionRow& r) { return double(r.StrSwitch); },
     [](const FittingCoefficients& z) { return z.StrSwitch; }},
    {"Γωνιακοί διακόπτες", [](const SectionRow& r) { return double(r.AngSwitch); },
     [](const FittingCoefficients& z) { return z.AngSwitch; }},
    {"Ταυ, διακλάδωση", [](const SectionRow& r) { return double(r.DiaTee); },
     [](const FittingCoefficients&) { return kZetaDiaTee; }},
    {"Ταυ, διέλευση", [](const SectionRow& r) { return double(r.DieTee); },
     [](const FittingCoefficients&) { return kZetaDieTee; }},
    {"Ταυ, αντιρροή", [](const SectionRow& r) { return double(r.AntiTee); },
     [](const FittingCoefficients&) { return kZetaAntiTee; }},
    {"Ταυ, συμβολή", [](const SectionRow& r) { return double(r.SymboTee); },
     [](const FittingCoefficients&) { return kZetaSymboTee; }},
    {"Βαλβίδες αντεπιστροφής", [](const SectionRow& r) { return double(r.CheckValve); },
     [](const FittingCoefficients&) { return kZetaCheckValve; }},
}};

class Explainer {
 public:
  explicit Explainer(const ExplainInput& input)
      : input_(input),
        row_(input.row),
        diameter_(std::fabs(static_cast<double>(input.row.InDiameter))) {
    if (input.stepped_rate) {
      row_.Auxi = kSteppedDown;
    }
  }

  DropExplanation Explain() {
    FillFlow();
    FillLengths();
    FillDrop();
    result_.stored_drop = input_.row.TotalDrop;
    result_.stepped_down = input_.stepped_rate.has_value();
    return result_;
  }

 private:
  void Step(std::string what, std::string formula, double value, std::string unit) {
    result_.steps.push_back({std::move(what), std::move(formula), value, std::move(unit)});
  }

  void FillFlow() {
    const FlowConditions& flow = input_.conditions;
    row_.Velocity = VelocityOf(row_.WaterFlow, diameter_);
    row_.Reynolds = ReynoldsOf(diameter_, row_.Velocity, flow.viscosity);
    row_.Lamda = FrictionFactor(flow.roughness, diameter_, row_.Reynolds);
    row_.FrictionRate = FrictionRateOf(row_.Lamda, flow.density, row_.Velocity, diameter_);
    Step("Παροχή Q", "από τα Σώματα που εξυπηρετεί", row_.WaterFlow, "l/h");
    Step("Εσωτερική διάμετρος D", "από το Σύστημα Σωλήνων", diameter_, "mm");
    Step("Ταχύτητα v", "4 Q / (3,6 π D²), 2 δεκαδικά", row_.Velocity, "m/s");
    Step("Κινηματικό ιξώδες ν", "στη Μέση Θερμοκρασία", flow.viscosity * 1e6, "cSt");
    Step("Reynolds Re", "D v / (1000 ν), ακέραιο μέρος", row_.Reynolds, "");
    Step("Τραχύτητα k", "από το Σύστημα Σωλήνων", flow.roughness, "mm");
    Step("Συντελεστής τριβής λ", "1/√λ = -2 log(k/(3,71 D) + 2,51/(Re √λ))", row_.Lamda, "");
    Step("Πυκνότητα ρ", "του Ρέοντος Μέσου", flow.density, "kg/m³");
    Step("Τριβή R", "1000 λ ρ v² / (2 D 9,81), 3 δεκαδικά", row_.FrictionRate, "mm w.g./m");
  }

  void FillLengths() {
    lengths_ = LengthsOf(row_, input_.material, diameter_,
                         input_.stepped_rate.value_or(row_.FrictionRate));
    const FittingCoefficients& zeta = CoefficientsFor(input_.material, diameter_);
    for (const FittingKind& kind : kFittings) {
      const double count = kind.count(row_);
      if (count != 0.0) {
        const double each = kind.zeta(zeta);
        result_.fittings.push_back(
            {kind.what, count, each, LengthOfZeta(count * each, diameter_, row_.Lamda)});
      }
    }
    Step("Μήκος σωλήνα", "όπως καταχωρήθηκε", row_.Length, "m");
    Step("Σύνολο ζ εξαρτημάτων", "Σ πλήθος × ζ", SumOfZeta(row_, input_.material, diameter_), "");
    Step("L1 σωλήνας και εξαρτήματα", "Μήκος + Σζ D / (1000 λ)", lengths_.pipe_and_fittings, "m");
    Step("L2 άλλη πτώση",
         input_.stepped_rate ? "Άλλη πτώση / R της προηγούμενης διαμέτρου" : "Άλλη πτώση / R",
         lengths_.other_drop, "m");
    Step("L3 άλλο ισοδύναμο μήκος", "όπως καταχωρήθηκε", lengths_.other_length, "m");
    Step("L4 Λέβητας ή Chiller",
         input_.stepped_rate ? "-2500 D / (1000 λ), μετά από μείωση διαμέτρου"
                             : "2,5 × δείκτης D / (1000 λ)",
         lengths_.plant, "m");
  }

  void FillDrop() {
    const double own = row_.FrictionRate * lengths_.Sum();
    const double margin = own * (kDropMargin - 1.0);
    result_.computed_drop = TotalDropOf(row_.FrictionRate, lengths_, row_.SomaDrop);
    Step("Πτώση τριβής", "R (L1 + L2 + L3 + L4)", own, "mm w.g.");
    Step("Προσαύξηση ασφαλείας", "10 %", margin, "mm w.g.");
    Step("Πτώση Σώματος", "όπως καταχωρήθηκε", row_.SomaDrop, "mm w.g.");
    Step("Συνολική πτώση", "1,1 R (L1 + L2 + L3 + L4) + Σώμα, 2 δεκαδικά", result_.computed_drop,
         "mm w.g.");
    const double rate = row_.FrictionRate;
    const double fittings = lengths_.pipe_and_fittings - row_.Length;
    Share("Σωλήνας", rate * row_.Length);
    Share("Εξαρτήματα", rate * fittings);
    Share("Άλλες πτώσεις", rate * (lengths_.other_drop + lengths_.other_length));
    Share("Λέβητας ή Chiller", rate * lengths_.plant);
    Share("Προσαύξηση", margin);
    Share("Σώμα", row_.SomaDrop);
  }

  void Share(std::string what, double drop) {
    const double whole = result_.computed_drop;
    result_.shares.push_back({std::move(what), drop, whole == 0.0 ? 0.0 : drop / whole});
  }

  const ExplainInput& input_;
  SectionRow row_;
  double diameter_;
  EquivalentLengths lengths_;
  DropExplanation result_;
};

}  // namespace

DropExplanation ExplainDrop(const ExplainInput& input) { return Explainer(input).Explain(); }

DropExplanation ExplainRow(const SectionRow& row, const PassConditions& pass) {
  const MaterialClass material = ClassOf(pass.library.front().material.Trimmed());
  DropExplanation plain = ExplainDrop({row, pass.flow, material, std::nullopt});
  if (const MaterialClass own = ClassOf(row.Material.Trimmed());
      own != material && !plain.Agrees()) {
    // A re-run on fixed diameters goes by the row's own word.
    if (DropExplanation by_row = ExplainDrop({row, pass.flow, own, std::nullopt});
        by_row.Agrees()) {
      return by_row;
    }
  }
  if (plain.Agrees() || row.INILAMDA != 2.0F) {
    return plain;
  }
  for (std::size_t i = 1; i < pass.library.size(); ++i) {
    if (pass.library[i - 1].nominal_diameter.Trimmed() != row.NomiDiam.Trimmed()) {
      continue;
    }
    SectionRow before = row;
    before.InDiameter = pass.library[i].inner_diameter;
    FillHydraulics(before, pass.flow, material, before.InDiameter);
    DropExplanation stepped = ExplainDrop({row, pass.flow, material, before.FrictionRate});
    return stepped.Agrees() ? stepped : plain;
  }
  return plain;
}

}  // namespace kalvo
