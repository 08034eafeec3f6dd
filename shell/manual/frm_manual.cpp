#include "shell/manual/frm_manual.h"

#include <algorithm>
#include <utility>

#include "form/tell.h"
#include "shell/manual/manual_file.h"

namespace kalvo {
namespace {

constexpr int kListedLevel = 2;
constexpr std::size_t kVisitedAtMost = 100;

}  // namespace

FrmManual::FrmManual(Desk& shared_desk)
    : Form(shared_desk),
      CmdBack(*this, "CmdBack", "Πίσω", [this] { GoBack(); }, {Alt(KeyCode::kLeft)}),
      CmdContents(*this, "CmdContents", "Περιεχόμενα", [this] { ShowContents(); },
                  {Alt(KeyCode::kHome)}),
      CmdManual(*this, "CmdManual", " Εγχειρίδιο Προγράμματος ", [this] { OpenManualFile(desk); }),
      CmdClose(*this, "CmdClose", "Κλείσιμο", [this] { desk.navigator.Close(screen::kManual); },
               {Plain(KeyCode::kEscape)}) {
  title = "Βοήθεια";
  CmdManual.hint = "PDF";
  TxtSearch.on_change = [this] { Search(); };
  TxtSearch.on_enter = [this] { NextHit(); };
  LstContents.on_select = [this] {
    if (LstContents.HasSelection()) GoTo(spots_[static_cast<std::size_t>(LstContents.selected)]);
  };
  LstContents.on_activate = [this] { Focus(Page); };
  Page.on_follow = [this](const std::string& target) { Follow(target); };
}

void FrmManual::Load() {
  Page.folder = desk.installed_folder / kChaptersPart;
  auto book = ManualBook::Read(bench.workspace.outer_disk(), Page.folder);
  if (book) {
    book_ = std::move(*book);
  } else {
    unread_ = book.error().Line();
  }
  Focus(Page);
}

void FrmManual::Activate() {
  auto asked = std::exchange(desk.questions.manual, std::nullopt);
  if (asked) {
    GoTo(*asked);
  } else if (current_.chapter.empty()) {
    GoTo({std::string(kManualContents)});
  }
}

void FrmManual::Derive() {
  const BookChapter* chapter = book_ ? book_->Find(current_.chapter) : nullptr;
  title = chapter == nullptr ? "Βοήθεια" : "Βοήθεια : " + chapter->Title();
  const bool searching = !TxtSearch.Trimmed().empty();
  LblFound.visible = searching;
  LblFound.text = hits_.empty() ? "δεν βρέθηκε" : std::to_string(hits_.size()) + " σημεία";
  if (hits_.size() == 1) LblFound.text = "1 σημείο";
}

bool FrmManual::OtherKey(const Key& key) {
  if (key == Ctrl('F')) {
    Focus(TxtSearch);
    return true;
  }
  if (key == Plain(KeyCode::kF3)) {
    NextHit();
    return true;
  }
  if (key == Plain(KeyCode::kF6)) {
    Focus(focus() == &Page ? static_cast<Control&>(LstContents) : Page);
    return true;
  }
  return false;
}

void FrmManual::GoTo(const ManualPlace& spot) {
  if (!current_.chapter.empty() && spot != current_) {
    before_.push_back({current_, Page.scrolled});
    if (before_.size() > kVisitedAtMost) before_.erase(before_.begin());
  }
  TurnTo(spot, 0);
}

void FrmManual::TurnTo(const ManualPlace& spot, int scrolled) {
  current_ = spot;
  Page.TurnTo(TextOf(spot), scrolled == 0 ? spot.anchor : std::string(), scrolled);
  if (hits_.empty() && TxtSearch.Trimmed().empty()) ListContents();
  SelectCurrent();
}

// What is missing is said in place of it.
std::string FrmManual::TextOf(const ManualPlace& spot) const {
  if (const BookChapter* chapter = book_ ? book_->Find(spot.chapter) : nullptr) {
    return chapter->text;
  }
  std::string reason = unread_;
  if (book_) {
    const auto text = bench.workspace.outer_disk().Read(Page.folder / (spot.chapter + ".md"));
    reason = text ? "Δεν υπάρχει τέτοιο κεφάλαιο" : text.error().Line();
  }
  return "# Το κεφάλαιο δεν διαβάζεται\n\n" + reason +
         "\n\nΗ εγκατάσταση του προγράμματος δεν είναι πλήρης. Εγκαταστήστε το πάλι, ή ανοίξτε το "
         "εγχειρίδιο σε PDF.\n";
}

void FrmManual::GoBack() {
  if (before_.empty()) return;
  const Visited last = before_.back();
  before_.pop_back();
  TurnTo(last.spot, last.scrolled);
}

void FrmManual::ShowContents() {
  TxtSearch.Show("");
  Search();
  GoTo({std::string(kManualContents)});
  Focus(LstContents);
}

void FrmManual::Search() {
  if (!search_ && book_) search_.emplace(*book_);
  const std::string typed = TxtSearch.Trimmed();
  hits_ = search_ ? search_->Find(typed) : std::vector<ManualHit>{};
  Page.Mark(typed);
  if (typed.empty()) {
    ListContents();
  } else {
    ListHits();
  }
  SelectCurrent();
}

// To the one after the part on show; after the last comes the first.
void FrmManual::NextHit() {
  if (hits_.empty()) return;
  const int next = LstContents.HasSelection() ? LstContents.selected + 1 : 0;
  LstContents.selected = next % static_cast<int>(hits_.size());
  GoTo(spots_[static_cast<std::size_t>(LstContents.selected)]);
}

void FrmManual::Follow(const std::string& target) {
  const ManualPlace spot = book_ ? book_->Follow(current_.chapter, target) : ManualPlace{};
  if (!spot.chapter.empty()) {
    GoTo(spot);
    return;
  }
  bench.Ask(
      {title, {"Ο σύνδεσμος οδηγεί έξω από το εγχειρίδιο :", target}, box_style::kInformation});
}

// All chapters, and the headings of the one on show below it.
void FrmManual::ListContents() {
  std::vector<std::string> lines;
  std::vector<int> depths;
  spots_.clear();
  for (const BookChapter& chapter : book_ ? book_->chapters() : std::vector<BookChapter>{}) {
    lines.push_back(chapter.name == kManualContents ? "Περιεχόμενα" : chapter.Title());
    depths.push_back(0);
    spots_.push_back({chapter.name});
    if (chapter.name != current_.chapter) continue;
    for (const ManualHeading& heading : chapter.headings) {
      if (heading.level != kListedLevel) continue;
      lines.push_back(heading.text);
      depths.push_back(1);
      spots_.push_back({chapter.name, heading.anchor});
    }
  }
  if (lines != LstContents.lines()) LstContents.SetLines(std::move(lines), std::move(depths));
}

void FrmManual::ListHits() {
  std::vector<std::string> lines;
  spots_.clear();
  for (const ManualHit& hit : hits_) {
    const bool own = hit.heading == hit.chapter_title;
    lines.push_back(own ? hit.heading : hit.heading + "  ·  " + hit.chapter_title);
    spots_.push_back(hit.spot);
  }
  LstContents.SetLines(std::move(lines));
}

void FrmManual::SelectCurrent() {
  auto found = std::ranges::find(spots_, current_);
  if (found == spots_.end() && hits_.empty()) {
    found = std::ranges::find(spots_, current_.chapter, &ManualPlace::chapter);
  }
  LstContents.selected = found == spots_.end() ? -1 : static_cast<int>(found - spots_.begin());
}

}  // namespace kalvo
