// What FrmCopy does from the command to the report.

#include <algorithm>

#include "form/tell.h"
#include "form/wait.h"
#include "shell/copying/frm_copy.h"
#include "study/numeric_text.h"
#include "study/unsaved.h"

namespace kalvo {
namespace {

namespace fs = std::filesystem;

constexpr int kWholeBar = 10'000;

const char* IconOf(CopyFate fate) {
  switch (fate) {
    case CopyFate::kWaits:
      return "next";
    case CopyFate::kUnderWay:
      return "history";
    case CopyFate::kCopied:
    case CopyFate::kReplaced:
    case CopyFate::kSame:
      return "check";
    case CopyFate::kFailed:
      return "stop";
    case CopyFate::kKept:
    case CopyFate::kSameName:
    case CopyFate::kNotReached:
      break;
  }
  return "exclamation";
}

Tone ToneOf(const CopyEntry& entry) {
  if (entry.Arrived()) return Tone::kGood;
  return entry.fate == CopyFate::kFailed ? Tone::kAlarm : Tone::kPlain;
}

EntryLine LineOf(const CopyEntry& entry) {
  return {.name = entry.name,
          .text = entry.Text(),
          .detail = {},
          .icon = IconOf(entry.fate),
          .tone = ToneOf(entry)};
}

double PercentOf(const CopyRun& run) {
  if (run.total() == 0) return 0;
  return 100 * static_cast<double>(std::min(run.done(), run.total())) /
         static_cast<double>(run.total());
}

}  // namespace

void FrmCopy::Go() {
  std::vector<fs::path> studies = Chosen();
  CopyRun run(bench.workspace.outer_disk(), *desk.volumes, studies, target_.folder());
  if (!TellIfFailed(bench, run.Prove())) return;
  RoomEnd end = RoomEnd::kEnough;
  {
    const WaitShown wait(desk.navigator);
    const auto count = static_cast<int>(studies.size());
    end = run.LookForRoom([&](int looked_at) {
      desk.navigator.ShowProgress(
          "μελέτη " + std::to_string(looked_at + 1) + " από " + std::to_string(count), looked_at,
          count);
    });
  }
  if (end != RoomEnd::kEnough) {
    bench.Ask(RoomBox(run, end, desk.separators));
    return;
  }
  Copy(run);
  EndReport(run, studies);
}

void FrmCopy::Copy(CopyRun& run) {
  struct Running {
    explicit Running(FrmCopy& copying) : form(copying) { form.ShowRunning(true); }
    ~Running() { form.ShowRunning(false); }
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;
    FrmCopy& form;
  };
  const Running running(*this);
  stopped_ = false;
  std::vector<EntryLine> lines;
  for (const CopyEntry& entry : run.entries()) lines.push_back(LineOf(entry));
  Report.SetLines(std::move(lines));
  ShowProgress(run);
  run.Make(*this);
}

void FrmCopy::ShowRunning(bool running) {
  running_ = running;
  for (Label* label : {&LblWait, &LblFile, &LblPercent}) label->visible = running;
  Bar.visible = running;
  LblWait.text = kWaitText;
  LblEnd.visible = Report.visible = true;
  LblEnd.text = "Esc: τέλος μετά την τρέχουσα μελέτη";
}

Answer FrmCopy::MayReplace(const CopyPlan& plan) { return bench.Ask(ReplaceBox(plan)); }

void FrmCopy::Follow(const CopyRun& run) {
  ShowReport(run);
  ShowProgress(run);
  desk.navigator.LetBreathe();
}

void FrmCopy::ShowReport(const CopyRun& run) {
  const auto line = static_cast<int>(run.at());
  Report.SetLine(line, LineOf(run.entries()[run.at()]));
  Report.SetCurrent(line);
}

void FrmCopy::ShowProgress(const CopyRun& run) {
  const double percent = PercentOf(run);
  const std::string total =
      FormatPattern(static_cast<double>(run.total()), pattern::kWhole, desk.separators);
  LblFile.text = run.file().empty() ? "" : "Αντιγραφή του : " + run.file();
  LblPercent.text = FormatPattern(percent, pattern::kTwoDecimals, desk.separators) + " % " +
                    " από < " + total + " > ";
  Bar.done = static_cast<int>(percent * kWholeBar / 100);
  Bar.total = kWholeBar;
}

// The report stays; what it says of the open study goes to its end.
void FrmCopy::EndReport(const CopyRun& run, const std::vector<fs::path>& studies) {
  std::vector<EntryLine> lines;
  int arrived = 0;
  int same = 0;
  const Disk& disk = bench.workspace.outer_disk();
  for (std::size_t i = 0; i < studies.size(); ++i) {
    const CopyEntry& entry = run.entries()[i];
    lines.push_back(LineOf(entry));
    arrived += entry.Arrived() ? 1 : 0;
    same += entry.fate == CopyFate::kSame ? 1 : 0;
  }
  for (std::size_t i = 0; i < studies.size(); ++i) {
    const bool open = run.entries()[i].Arrived() && !bench.study.study_path.empty() &&
                      disk.IsSamePlace(studies[i], bench.study.study_path);
    if (open && HasUnsavedChanges(bench)) {
      lines.push_back({.name = run.entries()[i].name,
                       .text = "είναι ανοικτή με αλλαγές που δεν έχουν σωθεί · ΔΕΝ είναι στο "
                               "αντίγραφο",
                       .detail = {},
                       .icon = "exclamation"});
    }
  }
  Report.SetLines(std::move(lines));
  const auto left = std::ranges::find_if_not(run.entries(), &CopyEntry::Arrived);
  Report.SetCurrent(static_cast<int>(left - run.entries().begin()));  // else the note
  const auto count = static_cast<int>(studies.size());
  LblEnd.text = "αντιγράφηκαν " + std::to_string(arrived - same) + " από " + std::to_string(count);
  if (same > 0) LblEnd.text += ", " + std::to_string(same) + " υπήρχαν ίδιες";
  target_.Refresh();
  ShowTarget();
}

}  // namespace kalvo
