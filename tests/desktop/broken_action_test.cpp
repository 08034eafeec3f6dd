// What throws and nobody catches: written down, told once, and the program goes on.
#include <gmock/gmock.h>

#include <QLabel>
#include <QTemporaryDir>
#include <QTest>
#include <stdexcept>

#include "desktop/qt_text.h"
#include "form/tell.h"
#include "study/forwarding_disk.h"
#include "tests/desktop/boxes_answered.h"
#include "tests/desktop/shown_desk.h"
#include "tests/desktop/shown_program.h"

namespace kalvo {
namespace {

struct CountedFaults : FaultLog {
  void Note(const FaultNote& note) override { texts.push_back(note.text); }
  std::vector<std::string> texts;
};

// A box brings the windows up to date before it shows, as in the program.
struct PaintingUser : ScriptedPrompter {
  Answer Ask(const Box& box) override {
    if (paint) paint();
    return ScriptedPrompter::Ask(box);
  }
  std::function<void()> paint;
};

struct BreakableForm : Form {
  using Form::Form;
  void Derive() override {
    if (broken) throw std::runtime_error("Derive");
  }
  Label LblFlow{*this, "LblFlow"};
  bool broken = false;
};

TEST(BrokenPainting, IsToldOnceUntilItSucceedsAndTheOtherPartsArePainted) {
  ShownDesk desk;
  CountedFaults faults;
  PaintingUser user;
  Workbench bench(desk.test.study, desk.test.workspace, desk.test.pipes, user, &faults);
  Desk watched{bench,          desk.windows, desk.sound,          desk.viewer,
               desk.clipboard, desk.printer, Separators{',', '.'}};
  BreakableForm form(watched);
  QWidget window;
  QLabel flow(&window);
  flow.setObjectName("LblFlow");
  form.broken = true;
  std::unique_ptr<Binder> binder;
  user.paint = [&binder] { binder->Paint(); };
  binder = std::make_unique<Binder>(form, window, Binder::Hooks{user.paint, [] {}});
  const auto act = [&] {
    binder->Do([&form] { form.LblFlow.text += '1'; });
    QCoreApplication::processEvents();
  };
  act();
  act();
  act();
  EXPECT_EQ(flow.text(), "111");
  EXPECT_FALSE(binder->Busy());
  EXPECT_THAT(faults.texts, testing::ElementsAre("Derive"));
  ASSERT_EQ(user.boxes().size(), 1U);
  EXPECT_EQ(user.boxes().front().lines.front(), kNotPainted);
  form.broken = false;
  act();
  form.broken = true;
  act();
  act();
  EXPECT_EQ(user.boxes().size(), 2U) << "it broke anew";
}

// A disk whose removals run out of memory.
struct BreakableDisk : ForwardingDisk {
  using ForwardingDisk::ForwardingDisk;
  Outcome Remove(const std::filesystem::path& path) override {
    if (broken) throw std::bad_alloc();
    return inner_.Remove(path);
  }
  bool broken = false;
};

TEST(BrokenOpening, LeavesNoHalfOfAScreenBehind) {
  ShownDesk desk;
  BreakableDisk disk(desk.test.work_disk);
  Workspace workspace(disk, TestBench::kProgramFolder, desk.test.outer_disk,
                      TestBench::kLibraryFolder, desk.test.clock);
  Workbench bench(desk.test.study, workspace, desk.test.pipes, desk.test.prompter);
  Desk on_disk{bench,          desk.windows, desk.sound,          desk.viewer,
               desk.clipboard, desk.printer, Separators{',', '.'}};
  desk.windows.SetDesk(on_disk);
  disk.broken = true;
  EXPECT_THROW(desk.windows.Show(screen::kMain), std::bad_alloc);
  EXPECT_FALSE(desk.windows.IsOpen(screen::kMain));
  disk.broken = false;
  desk.windows.Show(screen::kMain);
  EXPECT_TRUE(desk.windows.IsVisible(screen::kMain));
}

// The toolkit breaks when that screen shows.
class BreaksShowing : public QObject {
 public:
  explicit BreaksShowing(std::string_view screen) : screen_(ToQt(screen)) {
    qApp->installEventFilter(this);
  }
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Show && watched->objectName() == screen_) {
      throw std::runtime_error("Show");
    }
    return false;
  }

 private:
  QString screen_;
};

TEST(BrokenOpening, OfAScreenOverTheOthersEndsTheWaitForIt) {
  ShownDesk desk;
  {
    const BreaksShowing breaks(screen::kCurrentStudy);
    EXPECT_THROW(desk.windows.ShowModal(screen::kCurrentStudy), std::runtime_error);
  }
  EXPECT_FALSE(desk.windows.IsOpen(screen::kCurrentStudy));
  EXPECT_FALSE(desk.windows.Busy());
}

TEST(BrokenStart, GoesOnWithTheScreenAfterTheTitle) {
  ShownProgram shown;
  BoxesAnswered boxes;
  const BreaksShowing breaks(screen::kTitle);
  EXPECT_TRUE(shown.program.Start());
  EXPECT_FALSE(shown.windows.IsOpen(screen::kTitle));
  EXPECT_TRUE(shown.windows.IsVisible(screen::kKind));
  EXPECT_EQ(boxes.texts.size(), 1);
  const auto log = RealDisk().Read(shown.places.state_folder / kFaultFile);
  ASSERT_TRUE(log.ok());
  EXPECT_THAT(*log, testing::HasSubstr("Show"));
}

TEST(BrokenStart, WithoutAnyScreenEndsTheProgram) {
  ShownProgram shown;
  BoxesAnswered boxes;
  const BreaksShowing title(screen::kTitle);
  const BreaksShowing kind(screen::kKind);
  EXPECT_FALSE(shown.program.Start());
  EXPECT_EQ(boxes.texts.size(), 2);
}

}  // namespace
}  // namespace kalvo
