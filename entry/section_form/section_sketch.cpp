#include "entry/section_form/section_sketch.h"

#include <array>

#include "entry/sections/sheet_columns.h"
#include "study/section_row.h"

namespace kalvo {
namespace {

struct SketchedFitting {
  const char* icon;
  const char* caption;
};

// From the column of angles on.
constexpr std::array<SketchedFitting, 12> kFittings = {{
    {"angle", "Γωνίες"},
    {"elbow", "Καμπύλες 90°"},
    {"valve", "Βάννες"},
    {"valve", "Ευθείς διακόπτες"},
    {"valve-angle", "Γωνιακοί διακόπτες"},
    {"tee", "< ΤΑΥ > σε Διακλάδωση"},
    {"tee", "< ΤΑΥ > σε Διέλευση"},
    {"tee", "< ΤΑΥ > σε Αντιρροή"},
    {"tee", "< ΤΑΥ > σε Συμβολή"},
    {"check-valve", "Βαλβίδες αντεπιστροφής"},
    {"drop", "mm w.g. άλλη πτώση"},
    {"drop", "m σωλήνα άλλη πτώση"},
}};

constexpr std::size_t kMostLines = 4;

std::string NameOf(const SheetRow& row) {
  return row.texts[sheet_column::kLeft] + "/" + row.texts[sheet_column::kRight];
}

// "προς 7/27", "προς 7/27, 7/8", "προς 3 τμήματα"; nothing for none.
std::string Neighbours(std::string_view word, const std::vector<std::string>& names) {
  if (names.empty()) return {};
  std::string text(word);
  if (names.size() > 2) return text + " " + std::to_string(names.size()) + " τμήματα";
  text += " " + names.front();
  return names.size() == 2 ? text + ", " + names.back() : text;
}

bool IsNothing(std::string_view text) {
  return text.find_first_not_of("0.,") == std::string_view::npos;
}

void ListFittings(const SheetRow& texts, SectionSketchContent& sketch) {
  for (std::size_t i = 0; i < kFittings.size(); ++i) {
    const std::string& text = texts.texts.at(sheet_column::kAnglePOP + i);
    if (!IsNothing(text)) {
      sketch.fittings.push_back({kFittings[i].icon, text + " ×", kFittings[i].caption});
    }
  }
  if (sketch.fittings.size() <= kMostLines) return;
  sketch.fittings.resize(kMostLines);
  sketch.fittings.push_back({"", "", "και άλλα"});
}

}  // namespace

SectionSketchContent SketchOf(const SectionDraft& draft, int row, const SheetRow& texts) {
  const bool open = draft.kind() == SystemKind::kOpen;
  const std::string& left = texts.texts[sheet_column::kLeft];
  const std::string& right = texts.texts[sheet_column::kRight];
  std::vector<std::string> before;
  std::vector<std::string> after;
  for (int other = 0, count = draft.Count(); other < count; ++other) {
    if (other == row) continue;
    const SheetRow& there = draft.At(other);
    const std::string& there_left = there.texts[sheet_column::kLeft];
    const std::string& there_right = there.texts[sheet_column::kRight];
    if (open ? there_left == right : there_right == left) before.push_back(NameOf(there));
    if (open ? there_right == left : there_left == right) after.push_back(NameOf(there));
  }
  SectionSketchContent sketch;
  sketch.from = open ? right : left;
  sketch.to = open ? left : right;
  sketch.from_note = open ? "τροφοδοσία" : "αρχή";
  sketch.to_note = open ? "τμήμα" : "τέλος";
  sketch.before = Neighbours("από", before);
  sketch.after = Neighbours("προς", after);
  const std::string& length = texts.texts[sheet_column::kLength];
  sketch.length = length.empty() ? "" : length + " m";
  ListFittings(texts, sketch);
  return sketch;
}

}  // namespace kalvo
