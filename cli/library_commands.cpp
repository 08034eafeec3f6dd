#include "cli/library_commands.h"

#include <CLI/CLI.hpp>

#include "cli/session.h"
#include "cli/text_table.h"
#include "study/fluid_library.h"

namespace kalvo {

namespace {

void PrintSystems(const Console& console, const PipeList& pipes) {
  TextTable table(
      {{"Νο", ""}, {"Σύστημα σωλήνων", "", true}, {"Υλικό", "", true}, {"Διάμετροι", ""}});
  for (const PipeListEntry& pipe : pipes) {
    table.Add({std::to_string(pipe.number), pipe.title, pipe.material, std::to_string(pipe.sizes)});
  }
  table.Print(console);
}

void PrintSizes(const Console& console, const std::vector<PipeRow>& sizes) {
  const auto number = [&](float value) { return FormatNumber(value, console.separators); };
  console.out << console.Heading(sizes.front().title.Utf8()) << '\n';
  console.out << MaterialLine(sizes.front().material.Utf8()) << ", τραχύτητα "
              << number(sizes.front().roughness) << " mm\n";
  TextTable table({{"α/α", ""}, {"Διάμετρος", "", true}, {"Εσωτερική", "mm"}, {"Διατομή", "mm²"}});
  for (const PipeRow& size : sizes) {
    table.Add({std::to_string(size.pipe_id), size.nominal_diameter.Utf8(),
               number(size.inner_diameter), number(size.area)});
  }
  table.Print(console);
}

}  // namespace

void PipesCommand::AddArguments(CLI::App& app) {
  number_option_ = app.add_option("ΑΡΙΘΜΟΣ", number_, "Αριθμός Συστήματος Σωλήνων")->type_name("");
  AddLibraryOption(app);
}

int PipesCommand::Run(const Console& console) {
  Session session(console, Library());
  if (!session.ok()) {
    return exit_code::kUnreadable;
  }
  if (number_option_->count() == 0) {
    PrintSystems(console, session.pipes());
    return exit_code::kDone;
  }
  if (number_ < 1 || number_ > static_cast<int>(session.pipes().size())) {
    console.err << "Δεν υπάρχει το Σύστημα Σωλήνων Νο " << number_ << '\n';
    return exit_code::kWrongUse;
  }
  const auto sizes = ReadPipeSystem(session.workspace(), number_);
  if (!sizes) {
    console.err << sizes.error().Line() << '\n';
    return exit_code::kUnreadable;
  }
  PrintSizes(console, *sizes);
  return exit_code::kDone;
}

int FluidsCommand::Run(const Console& console) {
  Session session(console, Library());
  if (!session.ok()) {
    return exit_code::kUnreadable;
  }
  const auto fluids = ReadFluids(session.workspace());
  if (!fluids) {
    console.err << fluids.error().Line() << '\n';
    return exit_code::kUnreadable;
  }
  if (fluids->empty()) {
    console.err << "Δεν βρέθηκαν Ρέοντα Μέσα : " << Library().string() << '\n';
    return exit_code::kUnreadable;
  }
  TextTable table({{"Νο", ""},
                   {"Ρέον μέσο", "", true},
                   {"Θερμοκρασία", "°C"},
                   {"Ιξώδες", "cSt"},
                   {"Πυκνότητα", "kg/m³"}});
  const auto number = [&](float value) {
    return value == kComputed ? "υπολογίζεται" : FormatNumber(value, console.separators);
  };
  for (const FluidRow& fluid : *fluids) {
    table.Add({std::to_string(fluid.row_number), fluid.name.Utf8(), number(fluid.mean_temperature),
               number(fluid.viscosity), number(fluid.density)});
  }
  table.Print(console);
  return exit_code::kDone;
}

}  // namespace kalvo
