#include "entry/emitters/emitter_forms.h"

#include <algorithm>

namespace kalvo {

void ShowEmitterKeys(Workbench& bench) {
  Box box{" ... Βοήθεια Πληκτρολογήσεων ...",
          {"< Alt+Ctrl > ................: Εμφάνιση Φόρμας τιμών μνήμης",
           "< F12 > ή < Ins > ......: Αντιγραφή των τιμών Παροχής & Πτώσης Πίεσης από την μνήμη, "
           "στα σχετικά < πεδία >"},
          box_style::kInformation};
  box.beeps = kAlarmBeeps;
  bench.Ask(box);
}

bool FillFromMemory(std::span<const float> memory, std::span<Field* const> fields,
                    Separators separators) {
  bool any = false;
  for (std::size_t i = 0; i < memory.size(); ++i) {
    if (memory[i] == kNoMemory) continue;
    fields[i]->ShowNumber(memory[i], "", separators);
    any = true;
  }
  return any;
}

std::string MemoryText(float value, std::string_view unit, Separators separators) {
  return (value == kNoMemory ? "—"
                             : FormatPattern(value, pattern::kOneToThreeDecimals, separators)) +
         " " + std::string(unit);
}

Field* FirstZero(std::span<Field* const> fields, Separators separators) {
  const auto found = std::ranges::find_if(
      fields, [separators](const Field* field) { return field->Number(separators) == 0; });
  return found == fields.end() ? nullptr : *found;
}

bool AreEmpty(std::span<Field* const> fields) {
  return std::ranges::all_of(fields, [](const Field* field) { return field->Trimmed().empty(); });
}

bool AskToLeaveAtOnce(Workbench& bench, const std::string& why) {
  return bench.Ask({"...! Π Ρ Ο Σ Ο Χ Η !...",
                    {why,
                     "... Θέλετε να φύγετε αμέσως ; Θα πρέπει να ελέγξετε τα Δεδομένα πριν από "
                     "τους Υπολογισμούς ..."},
                    box_style::kDefaultNo}) == Answer::kYes;
}

void LeaveEntry(Desk& desk, std::string_view own_screen) {
  const std::string_view next = desk.screens.back_to_sheet ? screen::kSheet : screen::kMain;
  desk.screens.edit_mode = desk.screens.back_to_sheet;
  desk.navigator.Show(next);
  for (const std::string_view beside :
       {screen::kTees, screen::kSheet, screen::kFormTees, screen::kSections}) {
    if (beside != next && desk.navigator.IsOpen(beside)) desk.navigator.Close(beside);
  }
  desk.navigator.Close(own_screen);
}

}  // namespace kalvo
