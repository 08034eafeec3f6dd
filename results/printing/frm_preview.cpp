#include "results/printing/frm_preview.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "form/tell.h"
#include "form/wait.h"
#include "results/printing/make_report.h"
#include "study/path_text.h"

namespace kalvo {
namespace {

// The first entry of the list is the whole page.
constexpr std::array kZooms = {25, 50, 75, 100, 125, 150, 200, 300, 400};
constexpr std::string_view kPdfExtension = ".PDF";

std::string PercentText(int percent) { return std::to_string(percent) + " %"; }

// The zoom so many steps up or down from one that need not be in the list.
int ZoomFrom(int percent, int steps) {
  const auto* at = steps > 0 ? std::ranges::upper_bound(kZooms, percent) - 1
                             : std::ranges::lower_bound(kZooms, percent);
  const auto place = at - kZooms.begin() + steps;
  const auto last = static_cast<std::ptrdiff_t>(kZooms.size()) - 1;
  return kZooms[static_cast<std::size_t>(std::clamp<std::ptrdiff_t>(place, 0, last))];
}

std::string PagesText(int count) {
  return count == 1 ? "1 σελίδα" : std::to_string(count) + " σελίδες";
}

std::string JoinedByDots(std::initializer_list<std::string> parts) {
  std::string joined;
  for (const std::string& part : parts) {
    if (part.empty()) continue;
    joined += (joined.empty() ? "" : " · ") + part;
  }
  return joined;
}

}  // namespace

FrmPreview::FrmPreview(Desk& shared_desk)
    : Form(shared_desk),
      CmdFirst(*this, "CmdFirst", "Πρώτη σελίδα", [this] { TurnTo(0); },
               {Plain(KeyCode::kHome), Ctrl(KeyCode::kHome)}),
      CmdPrev(*this, "CmdPrev", "Προηγούμενη σελίδα", [this] { TurnTo(Page.page - 1); },
              {Plain(KeyCode::kPageUp)}),
      CmdNext(*this, "CmdNext", "Επόμενη σελίδα", [this] { TurnTo(Page.page + 1); },
              {Plain(KeyCode::kPageDown)}),
      CmdLast(*this, "CmdLast", "Τελευταία σελίδα", [this] { TurnTo(count() - 1); },
              {Plain(KeyCode::kEnd), Ctrl(KeyCode::kEnd)}),
      CmdZoomOut(*this, "CmdZoomOut", "Σμίκρυνση", [this] { Zoom(-1); }, {Ctrl('-')}),
      CmdZoomIn(*this, "CmdZoomIn", "Μεγέθυνση", [this] { Zoom(1); },
                {Ctrl('+'), CtrlShift('+'), Ctrl('=')}),
      CmdWhole(*this, "CmdWhole", "Ολόκληρη σελίδα", [this] { ShowWhole(); }, {Ctrl('0')}),
      CmdClose(*this, "CmdClose", "Κλείσιμο", [this] { desk.navigator.Close(screen::kPreview); },
               {Plain(KeyCode::kEscape)}),
      CmdOpen(*this, "CmdOpen", "Άνοιγμα",
              [this] { TellIfFailed(bench, desk.viewer.Open(written_)); }),
      CmdPdf(*this, "CmdPdf", "Αποθήκευση ως PDF", [this] { KeepPdf(); }, {CtrlShift('S')}),
      CmdPrint(*this, "CmdPrint", "Εκτύπωση", [this] { TakeEnd(PrintPdf(desk, Source())); },
               {Ctrl('P')}) {
  title = "Προεπισκόπηση της Εκτύπωσης (Preview)";
  CmdClose.leaves_freely = true;
  TxtPage.on_enter = [this] {
    TakeTypedPage();
    Focus(Page);
  };
  TxtPage.on_leave = [this] {
    TakeTypedPage();
    return true;
  };
  CboZoom.on_select = [this] { TakeChosenZoom(); };
  Tiles.on_pick = [this](int page) { TurnTo(page); };
  Page.on_zoom = [this](int steps) { Zoom(steps); };
  Page.on_past_end = [this](bool forward) { ScrollOver(forward); };
}

void FrmPreview::Load() {
  pages_ = desk.questions.previewed;
  facts_ = desk.questions.preview;
  if (facts_.title.empty() && pages_ != nullptr) facts_.title = pages_->sheet();
  LblTitle.text = facts_.title;
  LblClient.text = facts_.client;
  Page.pages = pages_;
  Tiles.pages = pages_;
  TurnTo(0);
  Focus(Page);
}

void FrmPreview::Derive() {
  LblCount.text = "από " + std::to_string(count());
  Tiles.current = Page.page;
  std::vector<std::string> zooms{"Ολόκληρη σελίδα"};
  if (Page.whole) zooms.front() += " · " + PercentText(Page.ShownPercent());
  for (const int percent : kZooms) zooms.push_back(PercentText(percent));
  CboZoom.entries = std::move(zooms);
  const auto at = std::ranges::find(kZooms, Page.percent) - kZooms.begin();
  CboZoom.selected = Page.whole ? 0 : static_cast<int>(at) + 1;
  const std::string known =
      pages_ == nullptr
          ? std::string()
          : JoinedByDots({facts_.name, facts_.note.empty() ? PagesText(count()) : facts_.note,
                          pages_->paper()});
  LblName.text = told_.empty() ? known : told_;
  LblName.visible = written_.empty() || !told_.empty();
  CmdOpen.visible = !written_.empty();
  CmdOpen.hint = written_.filename().string();
  CmdOpen.described = written_.string();
}

// Blanks are no text in any part here; a command that has the focus is pressed by one.
bool FrmPreview::FirstKey(const Key& key) {
  if (key != Typed(U' ')) return false;
  if (focus() != &Page && focus() != &TxtPage) return false;
  Page.scrolls += key.shift ? -1 : 1;
  return true;
}

int FrmPreview::count() const { return pages_ == nullptr ? 0 : pages_->count(); }

void FrmPreview::TurnTo(int page) {
  Page.page = std::clamp(page, 0, std::max(count() - 1, 0));
  Page.from_the_end = false;
  ++Page.revision;
  TxtPage.Show(std::to_string(count() == 0 ? 0 : Page.page + 1));
  told_.clear();
}

void FrmPreview::ScrollOver(bool forward) {
  const int page = Page.page + (forward ? 1 : -1);
  if (page < 0 || page >= count()) return;
  TurnTo(page);
  Page.from_the_end = !forward;
}

void FrmPreview::TakeTypedPage() {
  if (!TxtPage.edited()) return;
  const std::string& typed = TxtPage.text;
  int number = 0;
  const auto read = std::from_chars(typed.data(), typed.data() + typed.size(), number);
  if (read.ec == std::errc::result_out_of_range) number = count();
  if (read.ec == std::errc::invalid_argument) number = Page.page + 1;
  TurnTo(std::max(number, 1) - 1);
}

void FrmPreview::Zoom(int steps) {
  Page.percent = ZoomFrom(Page.ShownPercent(), steps);
  Page.whole = false;
}

void FrmPreview::TakeChosenZoom() {
  if (CboZoom.selected <= 0) return ShowWhole();
  Page.whole = false;
  Page.percent = kZooms[static_cast<std::size_t>(CboZoom.selected) - 1];
}

void FrmPreview::ShowWhole() { Page.whole = true; }

PdfSource FrmPreview::Source() const {
  const std::string name = facts_.name.empty() ? facts_.title : facts_.name;
  std::filesystem::path file = facts_.pdf;
  if (file.empty()) file = PathFromText(ReportName(name, kPdfExtension));
  const PageSize page = pages_ == nullptr ? PageSize() : pages_->size();
  return {name, file, page.width > page.height, [this]() -> Result<std::optional<std::string>> {
            if (pages_ == nullptr) return std::optional<std::string>();
            const WaitShown wait(desk.navigator);
            auto pdf = pages_->MakePdf();
            if (!pdf) return pdf.error();
            return std::optional(std::move(*pdf));
          }};
}

void FrmPreview::KeepPdf() {
  PdfSource source = Source();
  if (facts_.pdf.empty()) {
    const auto named = AskForReportName(desk, facts_.title, {"PDF (*.PDF)"});
    if (!named) return;
    source.file = PathFromText(ReportName(*named, facts_.suffix));
  }
  TakeEnd(SavePdf(desk, source));
}

void FrmPreview::TakeEnd(const PdfEnd& end) {
  told_ = end.file.empty() ? end.text : std::string();
  if (!end.file.empty()) written_ = end.file;
}

}  // namespace kalvo
