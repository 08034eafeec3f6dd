#include "cli/report_table.h"

#include <algorithm>
#include <cmath>

#include "cli/text_table.h"
#include "engine/fittings.h"
#include "engine/notes.h"
#include "engine/open_network.h"
#include "results/quantities.h"
#include "results/result_notes.h"
#include "study/by_number.h"
#include "study/numeric_text.h"
#include "study/pressure_units.h"

namespace kalvo {

namespace {

class ReportPrinter {
 public:
  ReportPrinter(const Console& console, const StudyReport& report, PressureUnits units)
      : console_(console), report_(report), pascal_(units == PressureUnits::kPascal) {}

  void Print() {
    PrintHead();
    console_.out << '\n';
    PrintSections();
    PrintOutlets();
    if (!report_.pipes.empty()) {
      console_.out << '\n';
      PrintPipes();
    }
    PrintNotes();
  }

  void PrintQuantities() {
    PrintTitle();
    PrintFact(console_, "Σύστημα σωλήνων", report_.pipe_system);
    PrintFact(console_, "Τρόπος υπολογισμού", MethodText(report_.method));
    console_.out << '\n';
    PrintPipes();
  }

 private:
  [[nodiscard]] bool IsOpen() const { return report_.kind == SystemKind::kOpen; }

  template <typename Number>
  [[nodiscard]] std::string Text(Number value, int decimals) const {
    return WithDecimals(value, decimals, console_.separators);
  }
  // Of a value that stands alone.
  [[nodiscard]] std::string Lone(float value, int decimals) const {
    return WithEnoughDecimals(value, decimals, console_.separators);
  }

  void PrintTitle() {
    console_.out << console_.Heading(
                        Printable(report_.title.empty() ? report_.file : report_.title))
                 << '\n';
    PrintFact(console_, "Μελέτη", report_.file);
  }

  void PrintHead() {
    const auto fact = [this](std::string label, const std::string& text) {
      PrintFact(console_, std::move(label), text);
    };
    PrintTitle();
    fact("Παροχή αντλίας", Lone(report_.total_flow_m3h, 2) + " m³/h");
    std::string head = Lone(report_.pump_head_m, 2) + " m w.g.";
    if (pascal_) {
      head += " = " + Text(KiloPascalOf(report_.critical_drop), 1) + " kPa";
    }
    fact("Μανομετρικό αντλίας", head);
    fact("Υγρό", report_.fluid + ", " +
                     FormatNumber(report_.mean_temperature, console_.separators) + " °C");
    fact("Σύστημα σωλήνων", report_.pipe_system);
    if (!report_.winter) {
      fact("Ταχύτητα σχεδιασμού", Lone(report_.design_velocity, 2) + " m/s");
      fact("Τρόπος υπολογισμού", MethodText(report_.method));
    }
    if (report_.fixed_diameters) {
      fact("Διάμετροι", "όπως ήταν ήδη στη μελέτη (--fixed)");
    }
    fact("Δυσμενέστερος κλάδος", report_.critical_nodes);
    if (IsOpen()) {
      fact("Υπόλοιπη πίεση",
           Text(kResidualPressure / 1000.0, 2) + " m w.g. στο τέλος του, μέσα στο μανομετρικό");
      if (!report_.notes.outlets_in_need.empty()) {
        fact("Η αντλία δεν φθάνει", "σε Υποδοχείς " + NumberRanges(report_.notes.outlets_in_need));
      }
    }
  }

  [[nodiscard]] std::vector<TextColumn> SectionColumns() const {
    std::vector<TextColumn> columns = {{" ", "", true},         {"α/α", ""},
                                       {"Τμήμα", "", true},     {"Μήκος", "m"},
                                       {"Διάμετρος", "", true}, {"Παροχή", "l/h"},
                                       {"Ταχύτητα", "m/s"},     {"R", "mm/m"},
                                       {"Πτώση", "mm w.g."},    {"Διαθέσιμη", "mm w.g."}};
    if (IsOpen()) {
      columns.push_back({"Ύψος", "m"});
      columns.push_back({"Πίεση ροής", "m w.g."});
    }
    if (pascal_) {
      columns.push_back({"R", "Pa/m", false, true});
      columns.push_back({"Πτώση", "kPa"});
      columns.push_back({"Διαθέσιμη", "kPa"});
    }
    return columns;
  }

  [[nodiscard]] std::vector<std::string> SectionCells(const SectionRow& row) const {
    std::vector<std::string> cells = {report_.IsCritical(row.RecordNumber) ? "*" : " ",
                                      std::to_string(row.RecordNumber),
                                      FromCodePage(row.Name.bytes()),
                                      Text(row.Length, 2),
                                      DiameterText(row),
                                      Text(row.WaterFlow, 1),
                                      Text(row.Velocity, 2),
                                      Text(row.FrictionRate, 3),
                                      Text(row.TotalDrop, 2),
                                      Text(row.AvaiPres, 2)};
    if (IsOpen()) {
      cells.push_back(row.HasEmitter() || row.HeightDiff != 0.0F ? Text(row.HeightDiff, 2)
                                                                 : kNoValue);
      cells.push_back(row.HasEmitter() ? Text(row.SomaDrop, 2) : kNoValue);
    }
    if (pascal_) {
      cells.push_back(Text(PascalOf(row.FrictionRate), 1));
      cells.push_back(Text(KiloPascalOf(row.TotalDrop), 2));
      cells.push_back(Text(KiloPascalOf(row.AvaiPres), 2));
    }
    return cells;
  }

  // A diameter that the user imposed is told apart.
  static std::string DiameterText(const SectionRow& row) {
    return row.NomiDiam.Utf8() + (std::signbit(row.InDiameter) ? " !" : "");
  }

  void PrintSections() {
    TextTable table(SectionColumns(), 3);
    for (const SectionRow& row : report_.rows) {
      table.Add(SectionCells(row), report_.IsCritical(row.RecordNumber));
    }
    table.Print(console_);
    console_.out << "* δυσμενέστερος κλάδος";
    for (const SectionRow& row : report_.rows) {
      if (std::signbit(row.InDiameter)) {
        console_.out << ", ! διάμετρος που επέβαλε ο μελετητής";
        break;
      }
    }
    console_.out << '\n';
    if (!report_.notes.negative_drop.empty()) {
      PrintWrapped(console_,
                   "Αρνητική πτώση : η διάμετρος του τμήματος μειώθηκε, και τότε ο τρόπος 2 βάζει "
                   "στην πτώση του έναν δικό του όρο (αναλυτικά: kalvo explain --method 2). Το "
                   "μανομετρικό είναι εκείνο πριν από τις μειώσεις. Για το δίκτυο στις νέες "
                   "διαμέτρους: σώστε τη μελέτη και υπολογίστε την με --fixed");
    }
  }

  [[nodiscard]] std::vector<std::string> OutletCells(const OutletSpare& outlet) const {
    const SectionRow& row = ByNumber(report_.rows, outlet.section);
    std::vector<std::string> cells = {
        std::to_string(outlet.section), FromCodePage(row.Name.bytes()),
        Text(row.WaterFlow, 1),         Text(row.HeightDiff, 2),
        Text(row.SomaDrop, 2),          Text(outlet.spare / 1000.0, 2)};
    if (pascal_) {
      cells.push_back(Text(KiloPascalOfMetres(row.SomaDrop), 1));
      cells.push_back(Text(KiloPascalOf(outlet.spare), 1));
    }
    return cells;
  }

  // What each outlet gets and what it needs.
  void PrintOutlets() {
    if (report_.outlets.empty()) {
      return;
    }
    console_.out << '\n';
    std::vector<TextColumn> columns = {
        {"α/α", ""},   {"Υποδοχέας", "", true},  {"Παροχή", "l/h"},
        {"Ύψος", "m"}, {"Πίεση ροής", "m w.g."}, {"Περίσσεια", "m w.g."}};
    if (pascal_) {
      columns.push_back({"Πίεση ροής", "kPa", false, true});
      columns.push_back({"Περίσσεια", "kPa"});
    }
    TextTable table(columns, 2);
    for (const OutletSpare& outlet : report_.outlets) {
      table.Add(OutletCells(outlet), report_.IsCritical(outlet.section));
    }
    table.Print(console_);
  }

  void PrintPipes() {
    std::vector<TextColumn> columns = {{"Διάμετρος", "", true}, {"Μήκος", "m"}};
    for (const Fitting& fitting : kFittings) {
      if (fitting.total != nullptr) columns.push_back({fitting.head[0], fitting.head[1]});
    }
    TextTable table(columns);
    for (const StatRow& pipe : report_.pipes) {
      if (!IsInUse(pipe)) continue;
      std::vector<std::string> cells = {pipe.NomiDiameter.Utf8(), Text(pipe.Length, 2)};
      for (const Fitting& fitting : kFittings) {
        if (fitting.total == nullptr) continue;
        const float count = pipe.*fitting.total;
        cells.push_back(count == 0.0F ? kNoValue : FormatNumber(count, console_.separators));
      }
      table.Add(std::move(cells));
    }
    table.Print(console_);
    if (report_.water_litres) {
      console_.out << "Περιεκτικότητα δικτύου : " << Text(*report_.water_litres, 1) << " l\n";
    }
  }

  void PrintNotes() {
    if (console_.quiet) {
      return;
    }
    ResultNotes notes = report_.notes;
    notes.negative_drop.clear();  // told at length beside the sections
    for (const std::string& line : NoteLines(notes)) {
      PrintWrapped(console_, line);
    }
  }

  const Console& console_;
  const StudyReport& report_;
  bool pascal_;
};

}  // namespace

void PrintFact(const Console& console, std::string label, const std::string& text) {
  constexpr std::size_t kLabelWidth = 22;
  label.append(kLabelWidth - std::min(kLabelWidth, CountCharacters(label)), ' ');
  console.out << label << ": ";
  PrintWrapped(console, text, kLabelWidth + 2);
}

void PrintReport(const Console& console, const StudyReport& report, PressureUnits units) {
  ReportPrinter(console, report, units).Print();
}

void PrintQuantities(const Console& console, const StudyReport& report) {
  ReportPrinter(console, report, PressureUnits::kWaterGauge).PrintQuantities();
}

}  // namespace kalvo
