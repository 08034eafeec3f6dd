#include "entry/emitters/pasted_emitters.h"

#include <algorithm>

#include "entry/ask_what_parts.h"
#include "form/pasted_numbers.h"

namespace kalvo {
namespace {

constexpr std::size_t kPastedColumns = 3;
constexpr std::size_t kToldLines = 10;
constexpr const char* kPasteTitle = " Επικόλληση Σωμάτων ";

// Cells with flows and drops.
std::vector<std::string> NumbersIn(const std::vector<PastedLine>& lines) {
  std::vector<std::string> numbers;
  for (const PastedLine& line : lines) {
    if (line.cells.size() == kPastedColumns) {
      numbers.insert(numbers.end(), line.cells.begin() + 1, line.cells.end());
    }
  }
  return numbers;
}

std::string WhyNoSection(double number, const EmitterEntry& entry,
                         const std::vector<EmitterValues>& taken) {
  const std::string section = NumberText(number);
  if (number < 1 || number > entry.row_count() || number != static_cast<int>(number)) {
    return "ΔΕΝ υπάρχει Τμήμα με α/α " + section;
  }
  const auto is_same = [number](const EmitterValues& other) { return other.section == number; };
  if (entry.HasSection(static_cast<int>(number)) || std::ranges::any_of(taken, is_same)) {
    return "ο α/α " + section + " είναι - ΗΔΗ - καταχωρημένος";
  }
  return {};
}

class LineReader {
 public:
  LineReader(const EmitterEntry& entry, bool thousands, Separators separators)
      : entry_(entry), thousands_(thousands), separators_(separators) {}

  void Read(const PastedLine& line) {
    if (std::string why = Take(line.cells); !why.empty()) {
      read_.left_out.push_back("Γραμμή " + std::to_string(line.number) + " : " + why);
    }
  }
  PastedEmitters TakeAll() { return std::move(read_); }

 private:
  // Why the line does not fit.
  std::string Take(const std::vector<std::string>& cells) {
    if (cells.size() != kPastedColumns) return "χρειάζονται οι στήλες α/α, Παροχή, Πτώση Πίεσης";
    const auto section = PastedNumber(cells[0], false, separators_);
    const auto flow = PastedNumber(cells[1], thousands_, separators_);
    const auto drop = PastedNumber(cells[2], thousands_, separators_);
    if (!section || !flow || !drop) return "δεν είναι αριθμοί";
    if (std::string why = WhyNoSection(*section, entry_, read_.emitters); !why.empty()) return why;
    if (ToSingle(*flow) == 0 || ToSingle(*drop) == 0) return "λείπει η Παροχή ή η Πτώση Πίεσης";
    read_.emitters.push_back({static_cast<int>(*section), ToSingle(*flow), ToSingle(*drop)});
    return {};
  }

  const EmitterEntry& entry_;
  bool thousands_;
  Separators separators_;
  PastedEmitters read_;
};

}  // namespace

std::optional<PastedEmitters> ReadPastedEmitters(Workbench& bench, std::string_view text,
                                                 const EmitterEntry& entry, Separators separators) {
  const std::vector<PastedLine> lines = PastedLines(text);
  const std::optional<bool> thousands =
      AskWhatParts(bench, kPasteTitle, NumbersIn(lines), separators);
  if (!thousands) return std::nullopt;
  LineReader reader(entry, *thousands, separators);
  for (const PastedLine& line : lines) {
    reader.Read(line);
  }
  return reader.TakeAll();
}

void TellPasted(Workbench& bench, const PastedEmitters& pasted) {
  if (pasted.left_out.empty() && !pasted.emitters.empty()) return;
  Box box{kPasteTitle,
          {"... Μπήκαν στη λίστα " + std::to_string(pasted.emitters.size()) + " Σώματα ..."},
          box_style::kExclamation};
  if (pasted.left_out.empty()) box.lines.emplace_back("... ΔΕΝ έχει αντιγραφεί κείμενο ...");
  const std::size_t told = std::min(pasted.left_out.size(), kToldLines);
  box.lines.insert(box.lines.end(), pasted.left_out.begin(),
                   pasted.left_out.begin() + static_cast<std::ptrdiff_t>(told));
  if (told < pasted.left_out.size()) {
    box.lines.push_back("... και άλλες " + std::to_string(pasted.left_out.size() - told) +
                        " γραμμές ...");
  }
  bench.Ask(box);
}

}  // namespace kalvo
