#include "desktop/program.h"

#include "form/tell.h"
#include "shell/data_folder.h"
#include "shell/manual/manual_chapters.h"
#include "shell/manual/manual_file.h"
#include "shell/options.h"

namespace kalvo {
namespace {

// How often a study that came from outside looks whether it may be opened.
constexpr int kTakeMs = 100;

QString InFolder(const std::filesystem::path& folder, const char* name) {
  return QString::fromStdString((folder / name).string());
}

}  // namespace

Program::Program(const ProgramPlaces& places, Separators separators)
    : places_(places),
      workspace_(disk_, places.folder, disk_, places.folder, clock_),
      sound_(InFolder(places.folder, "echo.wav")),
      prompter_(sound_, separators),
      fault_file_(disk_, clock_, places.state_folder),
      bench_(study_, workspace_, pipes_, prompter_, &fault_file_),
      windows_(InFolder(places.state_folder, "windows.ini")),
      desk_{bench_, windows_, sound_, viewer_, clipboard_, printer_, separators} {
  desk_.program_folder = places.folder;
  desk_.state_folder = places.state_folder;
  desk_.screens.study_argument = places.study;
  desk_.file_dialog = &file_dialog_;
  desk_.spreadsheet = &workbooks_;
  desk_.print_database = &print_files_;
  desk_.volumes = &volumes_;
  desk_.version = "Έκδοση " KALVO_VERSION;
  windows_.SetDesk(desk_);
  windows_.AfterAction([this] { RememberOptions(); });
  QObject::connect(&taken_, &QTimer::timeout, &windows_, [this] { OpenTakenWhenFree(); });
  windows_.OnDrop([this](const std::filesystem::path& study) { TakeStudy(study); });
  prompter_.OnBox([this](bool shows) {
    if (shows) windows_.PaintAll();  // what the box tells of stands behind it
    windows_.HoldWait(shows);
  });
  prompter_.OnHelp(
      [this](QWidget& box, int number) { windows_.ShowManualFor(box, PlaceOfMessage(number)); });
}

void Program::RememberOptions() {
  if (desk_.options == remembered_) return;
  remembered_ = desk_.options;
  static_cast<void>(WriteOptions(workspace_, desk_.options));
}

void Program::TakeStudy(const std::filesystem::path& study) {
  windows_.BringToFront();
  if (study.empty()) return;
  desk_.screens.study_argument = study;
  taken_.start(kTakeMs);
}

// The screen that can open a study does so when it comes to the front. A pause within an action, a
// box and a menu serve timers too.
void Program::OpenTakenWhenFree() {
  if (windows_.Busy()) return;
  if (desk_.screens.study_argument.empty()) {
    taken_.stop();  // a screen that came to the front has taken it
    return;
  }
  for (const std::string_view screen : {screen::kMain, screen::kKind}) {
    if (!windows_.IsVisible(screen)) continue;
    taken_.stop();
    windows_.ComeBack(screen);
    return;
  }
}

void Program::TellUnknownArgument() {
  if (places_.refused) TellError(bench_, *places_.refused);
}

bool Program::Prepare(const std::filesystem::path& installed) {
  desk_.options = remembered_ = ReadOptions(workspace_);
  if (!TellIfFailed(bench_, FillProgramFolder(disk_, places_.folder, installed))) return false;
  desk_.installed_folder = installed;
  // Who asks for the manual gets the reason why there is none.
  static_cast<void>(DeliverManual(disk_, places_.folder, installed));
  const auto folder = EnsureDataFolder(workspace_);
  if (!folder) TellError(bench_, folder.error());
  desk_.data_folder = folder ? *folder : workspace_.Path(kStudiesFolder);
  auto pipes = BuildPipeList(workspace_, EmptyLibraries::kDelete);
  if (!pipes) {
    prompter_.Ask(UnsuitableLibraryBox(pipes.error()));
    return false;
  }
  pipes_ = std::move(*pipes);
  return true;
}

bool Program::Start() {
  // Where the title cannot be shown, what follows it may be.
  for (const std::string_view first : {screen::kTitle, screen::kKind}) {
    try {
      windows_.Show(first);
      return true;
    } catch (const std::exception& cause) {
      TellBroken(bench_, cause);
      windows_.Close(first);
    }
  }
  return false;
}

}  // namespace kalvo
