#include "entry/sections/frm_go_to.h"

#include "form/tell.h"

namespace kalvo {
namespace {

constexpr std::size_t kPlacesInResults = 4;

}  // namespace

FrmGoTo::FrmGoTo(Desk& shared_desk)
    : Form(shared_desk),
      CmdExit(*this, "CmdExit", "Επιστροφή", [this] { desk.navigator.Close(screen::kGoTo); },
              {Plain(KeyCode::kEscape)}),
      Cmd_GoToR(*this, "Cmd_GoToR", "Πήγαινε στο Τμήμα", [this] { Go(); },
                {Plain(KeyCode::kEnter)}) {
  title = " Πήγαινε (GoTo) στο Τμήμα με α/α ... ";
  LstSections.on_activate = [this] { Go(); };
}

void FrmGoTo::Load() {
  const auto rows = bench.workspace.Rows().ReadAll();
  if (!rows) {
    TellError(bench, rows.error());
    return;
  }
  const bool results = desk.questions.section_of_results;
  const std::size_t places = results ? kPlacesInResults : std::to_string(rows->size()).size();
  std::vector<std::string> lines;
  for (const SectionRow& row : *rows) {
    const std::string number =
        results ? std::to_string(row.SectionNo) : std::to_string(lines.size() + 1);
    const std::size_t blanks = number.size() < places ? places - number.size() : 0;
    lines.push_back(std::string(blanks, ' ') + number + ". -> " + row.Name.Utf8());
  }
  LstSections.SetLines(std::move(lines));
  // Results begin at no line, whichever row shows.
  if (!results && bench.study.CurrentRow >= 1 && bench.study.CurrentRow <= LstSections.count()) {
    LstSections.selected = bench.study.CurrentRow - 1;
  }
  Focus(LstSections);
}

bool FrmGoTo::OtherKey(const Key& key) {
  if (!key.IsText() || key.character < U'0' || key.character > U'9') {
    typed_ = 0;
    return false;
  }
  const int digit = static_cast<int>(key.character - U'0');
  const int longer = typed_ * 10 + digit;
  typed_ = longer <= LstSections.count() ? longer : digit;
  if (typed_ >= 1) LstSections.Select(typed_ - 1);
  return true;
}

void FrmGoTo::Go() {
  if (!LstSections.HasSelection()) return;
  bench.study.CurrentRow = static_cast<std::int16_t>(LstSections.selected + 1);
  desk.questions.section_chosen = true;
  desk.navigator.Close(screen::kGoTo);
}

}  // namespace kalvo
