#include "shell/copying/frm_copy.h"

#include <algorithm>

#include "form/tell.h"
#include "study/numeric_text.h"
#include "study/study_extensions.h"

namespace kalvo {
namespace {

namespace fs = std::filesystem;

// Calls of Idle() between two looks at the drives.
constexpr int kIdlesBetweenLooks = 8;

std::string Counted(int count, const char* one, const char* many) {
  return std::to_string(count) + (count == 1 ? one : many);
}

// Where copies go at first: to a medium that was put in for it.
fs::path FirstTarget(const std::vector<Volume>& volumes) {
  const auto stick = std::ranges::find_if(volumes, [](const Volume& volume) {
    return volume.kind == VolumeKind::kRemovable && volume.writable;
  });
  const auto home = std::ranges::find(volumes, VolumeKind::kHome, &Volume::kind);
  if (stick != volumes.end()) return stick->place;
  return home == volumes.end() ? fs::path("/") : home->place;
}

bool SameVolumes(const std::vector<Volume>& a, const std::vector<Volume>& b) {
  return std::ranges::equal(a, b, [](const Volume& one, const Volume& other) {
    return one.place == other.place && one.device == other.device;
  });
}

}  // namespace

FrmCopy::FrmCopy(Desk& shared_desk)
    : Form(shared_desk),
      CmdAll(*this, "CmdAll", "Όλες", WhenFree(&FrmCopy::TickAll), {Ctrl('A')}),
      CmdNone(*this, "CmdNone", "Καμία", WhenFree(&FrmCopy::TickNone), {CtrlShift('A')}),
      CmdFormat(*this, "CmdFormat", "... Format Δισκέτας ...", WhenFree(&FrmCopy::Format)),
      CmdBack(*this, "CmdBack", "Επιστροφή", WhenFree(&FrmCopy::Leave), {Plain(KeyCode::kEscape)}),
      CmdGo(*this, "CmdGo", "Αντιγραφή", WhenFree(&FrmCopy::Go), {Ctrl(KeyCode::kEnter)}),
      source_(shared_desk.bench, CboDrive1, DirList1),
      target_(shared_desk.bench, CboDrive2, DirList2) {
  title = "Αντιγραφή Αρχείων Μελετών, από ένα < Drive : Directory >, σε ένα άλλο";
  CboPattern.entries = {"Κλειστό Σύστημα : *.PCK", "Ανοικτό Σύστημα : *.PCA"};
  CboPattern.selected = 0;
  FileList1.ticks = true;
  source_.on_change = [this] { ShowSource(); };
  target_.on_change = [this] { ShowTarget(); };
  CboPattern.on_select = [this] {
    ShowSource();
    ShowTarget();
  };
  FileList1.on_tick = [this] { ShowTicked(); };
  for (Label* label : {&LblWait, &LblFile, &LblPercent, &LblEnd}) label->visible = false;
  Bar.visible = Report.visible = false;
}

std::function<void()> FrmCopy::WhenFree(void (FrmCopy::*action)()) {
  return [this, action] {
    if (!running_) (this->*action)();
  };
}

void FrmCopy::Load() {
  volumes_ = desk.volumes == nullptr ? std::vector<Volume>{} : desk.volumes->All();
  source_.SetVolumes(volumes_);
  target_.SetVolumes(volumes_);
  source_.GoTo(desk.data_folder);
  target_.GoTo(FirstTarget(volumes_));
  Focus(FileList1);
}

// A medium is put in or taken out while the form is open.
bool FrmCopy::Idle(double /*quiet_seconds*/) {
  if (running_ || desk.volumes == nullptr || ++idled_ < kIdlesBetweenLooks) return false;
  idled_ = 0;
  std::vector<Volume> now = desk.volumes->All();
  if (SameVolumes(now, volumes_)) return false;
  volumes_ = std::move(now);
  source_.SetVolumes(volumes_);
  target_.SetVolumes(volumes_);
  ShowRoom();
  return true;
}

bool FrmCopy::FirstKey(const Key& key) {
  if (!running_) return false;
  if (key == Plain(KeyCode::kEscape)) stopped_ = true;
  return true;
}

SystemKind FrmCopy::kind() const {
  return CboPattern.selected == 1 ? SystemKind::kOpen : SystemKind::kClosed;
}

std::vector<fs::path> FrmCopy::Chosen() const {
  std::vector<fs::path> studies;
  for (const int line : FileList1.Ticked()) studies.push_back(offered_.PathOf(line));
  return studies;
}

void FrmCopy::ShowSource() {
  offered_.Read(bench.workspace.outer_disk(), source_.folder(), kind());
  FileList1.SetLines(offered_.Lines(desk.separators));
  LblCount.text = offered_.count() == 0 ? offered_.why_empty()
                                        : Counted(offered_.count(), " μελέτη", " μελέτες");
  ShowTicked();
}

void FrmCopy::ShowTarget() {
  there_.Read(bench.workspace.outer_disk(), target_.folder(), kind());
  std::vector<EntryLine> lines = there_.Lines(desk.separators);
  if (lines.empty()) lines.push_back({.name = "", .text = there_.why_empty()});
  for (EntryLine& line : lines) line.detail.clear();
  FileList2.SetLines(std::move(lines));
  ShowRoom();
}

void FrmCopy::ShowRoom() {
  room_.reset();
  if (desk.volumes != nullptr) {
    if (const auto room = desk.volumes->RoomAt(target_.folder())) room_ = *room;
  }
  ShowTicked();
}

void FrmCopy::ShowTicked() {
  const OfferedStudies::Sum sum = offered_.SumOf(FileList1.Ticked(), room_ ? room_->block : 1);
  LblStudies.text = Counted(sum.studies, " μελέτη", " μελέτες");
  LblFiles.text = Counted(sum.files, " αρχείο", " αρχεία");
  LblBytes.text =
      FormatPattern(static_cast<double>(sum.bytes), pattern::kWhole, desk.separators) + " Bytes";
  const bool known = room_ && room_->capacity > 0;
  RoomBar.too_much = known && sum.in_blocks > room_->free;
  LblFree.text = known ? "ελεύθερα " + SizeText(room_->free, desk.separators)
                       : std::string("ο ελεύθερος χώρος δεν είναι γνωστός");
  LblNeed.text = "χρειάζονται " + SizeText(sum.in_blocks, desk.separators);
  LblNeed.tone = RoomBar.too_much ? Tone::kAlarm : Tone::kPlain;
  const double whole = known ? static_cast<double>(room_->capacity) : 1;
  const std::uint64_t used = known ? room_->capacity - std::min(room_->free, room_->capacity) : 0;
  RoomBar.used = static_cast<double>(used) / whole;
  RoomBar.comes = known ? static_cast<double>(sum.in_blocks) / whole : 0;
  RoomBar.told = LblFree.text + ", " + LblNeed.text;
}

void FrmCopy::Leave() { desk.navigator.Close(screen::kCopy); }

std::string FrmCopy::WhyNoFormat(const Volume* volume) const {
  if (volume == nullptr || volume->kind != VolumeKind::kRemovable || volume->device.empty()) {
    return "Το Drive δεν είναι αφαιρούμενο μέσο";
  }
  if (volume->holds_system || desk.volumes->Holds(*volume, "/")) {
    return "Στο Drive βρίσκεται το λειτουργικό σύστημα";
  }
  if (desk.volumes->Holds(*volume, desk.program_folder)) {
    return "Στο Drive βρίσκεται το πρόγραμμα";
  }
  if (desk.volumes->Holds(*volume, desk.data_folder)) {
    return "Στο Drive βρίσκονται οι μελέτες";
  }
  return {};
}

// The desktop's own tool formats, and asks again.
void FrmCopy::Format() {
  const Volume* drive = target_.volume();
  if (const std::string why = WhyNoFormat(drive); !why.empty()) {
    bench.Ask({" !!... ΠΡΟΣΟΧΗ ...!! ", {"Δεν γίνεται Format", why}, box_style::kStop});
    return;
  }
  const Volume volume = *drive;
  const Answer answer = bench.Ask(
      {"Format Drive " + volume.device,
       {volume.name, "Όλα τα αρχεία του μέσου θα χαθούν ΟΡΙΣΤΙΚΑ", "Θέλετε να γίνει Format ??"},
       box_style::kWarnDefaultNo,
       kAlarmBeeps});
  if (answer != Answer::kYes) return;
  if (!SameVolumes(desk.volumes->All(), volumes_)) {  // the device may be another medium by now
    bench.Ask({" !!... ΠΡΟΣΟΧΗ ...!! ",
               {"Δεν γίνεται Format", "Τα Drives άλλαξαν στο μεταξύ"},
               box_style::kStop});
    return;
  }
  TellIfFailed(bench, desk.volumes->OpenFormatTool(volume));
}

}  // namespace kalvo
