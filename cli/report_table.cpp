#include "cli/report_table.h"

#include <algorithm>
#include <cmath>

#include "cli/text_table.h"

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
    console_.out << '\n';
    PrintPipes();
    PrintNotes();
  }

 private:
  [[nodiscard]] std::string Text(double value, std::string_view pattern) const {
    return FormatPattern(value, pattern, console_.separators);
  }
  // A stored 32-bit value is rounded on its own decimal text.
  [[nodiscard]] std::string Text(float value, std::string_view pattern) const {
    return FormatPattern(value, pattern, console_.separators);
  }

  [[nodiscard]] std::string MethodText() const {
    return report_.method == 2
               ? "2 - Εξισορρόπηση Κλάδων, με Ρυθμιστικές Βαλβίδες και Τροποποίηση των Διαμέτρων"
               : "1 - Εξισορρόπηση Κλάδων με Ρυθμιστικές Βαλβίδες";
  }

  void PrintHead() {
    const auto fact = [this](std::string label, const std::string& text) {
      PrintFact(console_, std::move(label), text);
    };
    console_.out << console_.Heading(
                        Printable(report_.title.empty() ? report_.file : report_.title))
                 << '\n';
    fact("Μελέτη", report_.file);
    fact("Παροχή αντλίας", Text(report_.total_flow_m3h, "#,##0.00") + " m³/h");
    std::string head = Text(report_.pump_head_m, "#,##0.00") + " m w.g.";
    if (pascal_) {
      head += " = " + Text(report_.critical_drop * kPascalPerMmWg / 1000.0, "#,##0.0") + " kPa";
    }
    fact("Μανομετρικό αντλίας", head);
    fact("Υγρό", report_.fluid + ", " + Text(report_.mean_temperature, "#,##0.##") + " °C");
    fact("Σύστημα σωλήνων", report_.pipe_system);
    fact("Ταχύτητα σχεδιασμού", Text(report_.design_velocity, "#,##0.00") + " m/s");
    fact("Τρόπος υπολογισμού", MethodText());
    fact("Δυσμενέστερος κλάδος", report_.critical_nodes);
  }

  [[nodiscard]] std::vector<TextColumn> SectionColumns() const {
    std::vector<TextColumn> columns = {{" ", "", true},         {"α/α", ""},
                                       {"Τμήμα", "", true},     {"Μήκος", "m"},
                                       {"Διάμετρος", "", true}, {"Παροχή", "l/h"},
                                       {"Ταχύτητα", "m/s"},     {"R", "mm/m"},
                                       {"Πτώση", "mm w.g."},    {"Διαθέσιμη", "mm w.g."}};
    if (pascal_) {
      columns.push_back({"R", "Pa/m"});
      columns.push_back({"Πτώση", "kPa"});
      columns.push_back({"Διαθέσιμη", "kPa"});
    }
    return columns;
  }

  [[nodiscard]] std::vector<std::string> SectionCells(const SectionRow& row) const {
    std::vector<std::string> cells = {report_.IsCritical(row.RecordNumber) ? "*" : " ",
                                      std::to_string(row.RecordNumber),
                                      FromCodePage(row.Name.bytes()),
                                      Text(row.Length, "#,##0.0#"),
                                      DiameterText(row),
                                      Text(row.WaterFlow, "#,##0.0"),
                                      Text(row.Velocity, "0.00"),
                                      Text(row.FrictionRate, "#,##0.0##"),
                                      Text(row.TotalDrop, "#,##0.0#"),
                                      Text(row.AvaiPres, "#,##0.0#")};
    if (pascal_) {
      cells.push_back(Text(row.FrictionRate * kPascalPerMmWg, "#,##0.0"));
      cells.push_back(Text(row.TotalDrop * kPascalPerMmWg / 1000.0, "#,##0.00"));
      cells.push_back(Text(row.AvaiPres * kPascalPerMmWg / 1000.0, "#,##0.00"));
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
  }

  void PrintPipes() {
    if (report_.pipes.empty()) {
      return;
    }
    TextTable table({{"Διάμετρος", "", true},
                     {"Μήκος", "m"},
                     {"Γωνίες", "90°"},
                     {"Καμπύλες", "90°"},
                     {"Βάννες", ""},
                     {"Διακόπτες", "ευθείς"},
                     {"Διακόπτες", "γωνιακοί"},
                     {"Βαλβίδες", "αντεπ/φής"}});
    for (const StatRow& pipe : report_.pipes) {
      const std::vector<float> values = {pipe.Length,    pipe.Corners, pipe.Elbows, pipe.GlobeV,
                                         pipe.StraightV, pipe.CornerV, pipe.CheckV};
      std::vector<std::string> cells = {pipe.NomiDiameter.Utf8()};
      bool used = false;
      for (const float value : values) {
        used = used || value != 0.0F;
        cells.push_back(value == 0.0F ? "---" : Text(value, "#,##0.###"));
      }
      if (used) {
        table.Add(std::move(cells));
      }
    }
    table.Print(console_);
    console_.out << "Περιεκτικότητα δικτύου : " << Text(report_.water_litres, "#,##0.0") << " l\n";
  }

  void PrintNote(const std::string& what, const std::vector<int>& sections) {
    if (sections.empty()) {
      return;
    }
    std::string text = what + " :";
    for (const int section : sections) {
      text += " " + std::to_string(section);
    }
    PrintWrapped(console_, text);
  }

  void PrintNotes() {
    if (!console_.quiet) {
      PrintNote("Τμήματα με ταχύτητα πάνω από την ταχύτητα σχεδιασμού",
                report_.notes.above_design_velocity);
      PrintNote("Τμήματα με τη μεγαλύτερη διάμετρο του συστήματος", report_.notes.on_largest_pipe);
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

}  // namespace kalvo
