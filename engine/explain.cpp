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

struct Quantity {
  const char* unit;
  int decimals;
};

constexpr Quantity kFlow = {"Lit/h", 1};
constexpr Quantity kDiameter = {"mm", 2};
constexpr Quantity kVelocity = {"m/sec", 2};
constexpr Quantity kViscosity = {"cSt", 4};
constexpr Quantity kReynolds = {"", 0};
constexpr Quantity kRoughness = {"mm", 4};
constexpr Quantity kLamda = {"", 5};
constexpr Quantity kDensity = {"kg/m³", 1};
constexpr Quantity kRate = {"mm w.g./m", 3};
constexpr Quantity kLength = {"m", 3};
constexpr Quantity kZeta = {"", 2};
constexpr Quantity kDrop = {"mm w.g.", 2};

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
  [[nodiscard]] bool IsOpen() const { return input_.kind == SystemKind::kOpen; }

  void Step(std::string symbol, std::string what, std::string formula, double value,
            const Quantity& quantity) {
    result_.steps.push_back({std::move(symbol), std::move(what), std::move(formula), value,
                             quantity.unit, quantity.decimals});
  }

  void FillFlow() {
    const FlowConditions& flow = input_.conditions;
    row_.Velocity = VelocityOf(row_.WaterFlow, diameter_);
    row_.Reynolds = ReynoldsOf(diameter_, row_.Velocity, flow.viscosity);
    row_.Lamda = FrictionFactor(flow.roughness, diameter_, row_.Reynolds);
    row_.FrictionRate = FrictionRateOf(row_.Lamda, flow.density, row_.Velocity, diameter_);
    Step("Q", "Παροχή Q",
         IsOpen() ? "από τους Υποδοχείς που εξυπηρετεί" : "από τα Σώματα που εξυπηρετεί",
         row_.WaterFlow, kFlow);
    Step("D", "Εσωτερική διάμετρος D", "από το Σύστημα Σωλήνων", diameter_, kDiameter);
    Step("v", "Ταχύτητα v", "4 Q / (3,6 π D²), 2 δεκαδικά", row_.Velocity, kVelocity);
    Step("ν", "Κινηματικό ιξώδες ν", "στη Μέση Θερμοκρασία", flow.viscosity * 1e6, kViscosity);
    Step("Re", "Reynolds Re", "D v / (1000 ν), ακέραιο μέρος", row_.Reynolds, kReynolds);
    Step("k", "Τραχύτητα k", "από το Σύστημα Σωλήνων", flow.roughness, kRoughness);
    Step("λ", "Συντελεστής τριβής λ", "1/√λ = -2 log(k/(3,71 D) + 2,51/(Re √λ))", row_.Lamda,
         kLamda);
    Step("ρ", "Πυκνότητα ρ", "του Ρέοντος Μέσου", flow.density, kDensity);
    Step("R", "Τριβή R", "1000 λ ρ v² / (2 D 9,81), 3 δεκαδικά", row_.FrictionRate, kRate);
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
    Step("l", "Μήκος σωλήνα", "όπως καταχωρήθηκε", row_.Length, kLength);
    Step("Σζ", "Σύνολο ζ εξαρτημάτων", "Σ πλήθος × ζ", SumOfZeta(row_, input_.material, diameter_),
         kZeta);
    Step("L1", "L1 σωλήνας και εξαρτήματα", "Μήκος + Σζ D / (1000 λ)", lengths_.pipe_and_fittings,
         kLength);
    Step("L2", "L2 άλλη πτώση",
         input_.stepped_rate ? "Άλλη πτώση / R της προηγούμενης διαμέτρου" : "Άλλη πτώση / R",
         lengths_.other_drop, kLength);
    Step("L3", "L3 άλλο ισοδύναμο μήκος", "όπως καταχωρήθηκε", lengths_.other_length, kLength);
    Step("L4", "L4 " + PlantTerm(),
         input_.stepped_rate ? "-2500 D / (1000 λ), μετά από μείωση διαμέτρου"
                             : "2,5 × δείκτης D / (1000 λ)",
         lengths_.plant, kLength);
  }

  void FillDrop() {
    const double own = row_.FrictionRate * lengths_.Sum();
    const double margin = own * (kDropMargin - 1.0);
    result_.computed_drop = TotalDropOf(row_.FrictionRate, lengths_, row_.SomaDrop);
    Step("", "Πτώση τριβής", "R (L1 + L2 + L3 + L4)", own, kDrop);
    Step("", "Προσαύξηση ασφαλείας", "10 %", margin, kDrop);
    // The flow pressure is stored in m w.g. and added as it stands: that is how the method is
    // defined. The pressures take it in mm w.g. besides.
    const std::string outlet = IsOpen() ? "Υποδοχέας" : "Σώμα";
    Step("", IsOpen() ? "Πίεση ροής Υποδοχέα" : "Πτώση Σώματος",
         IsOpen() ? "τα m w.g. όπως καταχωρήθηκαν, ως mm w.g." : "όπως καταχωρήθηκε", row_.SomaDrop,
         kDrop);
    Step("Δp", "Συνολική πτώση", "1,1 R (L1 + L2 + L3 + L4) + " + outlet + ", 2 δεκαδικά",
         result_.computed_drop, kDrop);
    const double rate = row_.FrictionRate;
    const double fittings = lengths_.pipe_and_fittings - row_.Length;
    Share("Σωλήνας", rate * row_.Length);
    Share("Εξαρτήματα", rate * fittings);
    Share("Άλλες πτώσεις", rate * (lengths_.other_drop + lengths_.other_length));
    Share(PlantTerm(), rate * lengths_.plant);
    Share("Προσαύξηση", margin);
    Share(outlet, row_.SomaDrop);
  }

  // The plant's place in the lengths; in a section that was taken down the method's mark fills it.
  [[nodiscard]] std::string PlantTerm() const {
    return input_.stepped_rate ? "Όρος μείωσης διαμέτρου" : "Λέβητας ή Chiller";
  }

  void Share(std::string what, double drop) {
    const double whole = result_.computed_drop;
    result_.shares.push_back(
        {std::move(what), drop, whole > 0.0 ? std::optional(drop / whole) : std::nullopt});
  }

  const ExplainInput& input_;
  SectionRow row_;
  double diameter_;
  EquivalentLengths lengths_;
  DropExplanation result_;
};

}  // namespace

DropExplanation ExplainDrop(const ExplainInput& input) { return Explainer(input).Explain(); }

DropExplanation ExplainRow(SystemKind kind, const SectionRow& row, const PassConditions& pass) {
  const MaterialClass material = ClassOf(pass.library.front().material.Trimmed());
  DropExplanation plain = ExplainDrop({kind, row, pass.flow, material, std::nullopt});
  if (const MaterialClass own = ClassOf(row.Material.Trimmed());
      own != material && !plain.Agrees()) {
    // A re-run on fixed diameters goes by the row's own word.
    if (DropExplanation by_row = ExplainDrop({kind, row, pass.flow, own, std::nullopt});
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
    DropExplanation stepped = ExplainDrop({kind, row, pass.flow, material, before.FrictionRate});
    return stepped.Agrees() ? stepped : plain;
  }
  return plain;
}

}  // namespace kalvo
