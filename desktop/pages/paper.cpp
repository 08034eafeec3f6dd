#include "desktop/pages/paper.h"

#include <algorithm>
#include <array>

namespace kalvo {
namespace {

constexpr double kTwipsOfMm = kTwipsOfInch / 25.4;

struct KnownPaper {
  int number;
  const char* name;
  double width_mm;
  double height_mm;
};

// A4 first. Source: [MS-XLS], Setup.
constexpr std::array kPapers = {
    KnownPaper{9, "A4", 210, 297},           KnownPaper{8, "A3", 297, 420},
    KnownPaper{11, "A5", 148, 210},          KnownPaper{12, "B4", 250, 354},
    KnownPaper{13, "B5", 182, 257},          KnownPaper{1, "Letter", 215.9, 279.4},
    KnownPaper{3, "Tabloid", 279.4, 431.8},  KnownPaper{5, "Legal", 215.9, 355.6},
    KnownPaper{7, "Executive", 184.2, 266.7}};

}  // namespace

Paper PaperOf(const PageSetup& setup) {
  const auto* found = std::ranges::find(kPapers, setup.paper, &KnownPaper::number);
  const KnownPaper& known = found == kPapers.end() ? kPapers.front() : *found;
  Paper paper{known.width_mm * kTwipsOfMm, known.height_mm * kTwipsOfMm, known.name};
  if (setup.landscape) std::swap(paper.width, paper.height);
  paper.text += setup.landscape ? " πλαγιαστό" : " όρθιο";
  return paper;
}

}  // namespace kalvo
