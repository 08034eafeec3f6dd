// A change of diameters cut short, and what the next start finds.

#include <gtest/gtest.h>

#include <map>
#include <set>

#include "results/frm_avai_d.h"
#include "results/frm_chang.h"
#include "results/frm_res.h"
#include "shell/recovery.h"
#include "shell/study_dialogs.h"
#include "study/safety_copies.h"
#include "tests/results/results_desk.h"
#include "tests/support/failing_disk.h"

namespace kalvo {
namespace {

const std::filesystem::path kStudiesFolder = "/studies";

// Answers the numbered questions as set, and yes to every other.
class SetAnswers : public Prompter {
 public:
  explicit SetAnswers(std::map<int, Answer> answers) : answers_(std::move(answers)) {}
  std::function<void()> on_message = [] {};
  Answer ShowMessage(int code, const Study& /*study*/) override {
    on_message();
    const auto set = answers_.find(code);
    return set == answers_.end() ? Answer::kYes : set->second;
  }
  Answer Ask(const Box& /*box*/) override { return Answer::kYes; }

 private:
  std::map<int, Answer> answers_;
};

// One way through a session of results.
struct Session {
  const char* name;
  std::map<int, Answer> answers;
  bool menu = false;
  bool many = false;
};

const Session kSessions[] = {
    {"button, kept", {{307, Answer::kYes}}},
    {"button, taken back", {{307, Answer::kNo}}},
    {"menu, calculated, kept", {{304, Answer::kYes}, {307, Answer::kYes}}, true},
    {"menu, given up", {{304, Answer::kNo}, {306, Answer::kYes}}, true},
    {"menu, left waiting", {{304, Answer::kCancel}, {307, Answer::kNo}}, true},
    {"many, kept", {{307, Answer::kYes}}, false, true},
    {"many from the menu, taken back", {{304, Answer::kCancel}, {307, Answer::kNo}}, true, true},
};

class Engineer : public ResultsDesk {
 public:
  Engineer(const Session& session, int bad_operation)
      : session_(session), disk(test.work_disk), prompter_(session.answers) {
    EXPECT_TRUE(test.outer_disk.MakeFolder(kStudiesFolder).ok());
    told.data_folder = kStudiesFolder;
    test.workspace = Workspace(disk, TestBench::kProgramFolder, test.outer_disk,
                               TestBench::kLibraryFolder, test.clock);
    told.screens.results_begin = true;
    navigator.on_modal = [this](std::string_view name) {
      if (name == screen::kManyDiameters) ChangeMany();
    };
    disk.FailAtOperation(bad_operation, FailingDisk::Lasting::kFromThenOn);
  }

  /// The session; after each action, and at each question, the rows on the disk are noted.
  void Work() {
    prompter_.on_message = [this] { Note(); };
    FrmRes view(told);
    view.Load();
    view.Activate();
    Note();
    if (session_.many) {
      view.Run(session_.menu ? view.CmdChangeMany : view.CmdNewD);
      Note();
    } else {
      view.Run(session_.menu ? view.CmdChangeOne : view.CmdChD);
      ChangeOne();
    }
    view.Press(Ctrl('Z'));
    Note();
    view.Press(Ctrl('Y'));
    Note();
    view.Run(view.CmdPump);
    Note();
    view.Run(view.CmdBack);
    Note();
  }

  Workbench bench{test.study, test.workspace, test.pipes, prompter_};
  Desk told{bench, navigator, sound, viewer, clipboard, printer, Separators{',', '.'}};
  std::set<std::string> noted;

 private:
  void ChangeOne() {
    if (navigator.log.empty() || navigator.log.back() != "show FrmAvaiD") return;
    FrmAvaiD list(told);
    list.Load();
    for (const int pipe : {6, 8}) {
      list.fpSpread1.MoveTo({pipe, 0});
      list.Run(list.CmdReplace);
      Note();
    }
    list.Run(list.Cmd_Close);
  }
  void ChangeMany() {
    FrmChang form(told);
    form.Load();
    for (const int pipe : {6, 8}) {
      form.fpSpread1.TakeSelection(std::vector{0, pipe - 5, 5});
      form.fpSpread2.MoveTo({pipe, 0});
      form.Run(form.CmdChange);
      Note();
    }
    form.Run(form.CmdBack);
  }
  void Note() { noted.insert(test.Bytes()); }

  const Session& session_;

 public:
  FailingDisk disk;

 private:
  SetAnswers prompter_;
};

// The bytes of every file in the safety copies.
std::set<std::string> KeptFiles(const TestBench& test) {
  std::set<std::string> files;
  const auto folder = kStudiesFolder / kSafetyFolder;
  for (const std::string& copy : NamesIn(test.outer_disk, folder)) {
    for (const std::string& name : NamesIn(test.outer_disk, folder / copy)) {
      files.insert(*test.outer_disk.Read(folder / copy / name));
    }
  }
  return files;
}

TEST(DiameterRoad, AKillAnywhereLeavesRowsOfBeforeOrOfAfter) {
  for (const Session& session : kSessions) {
    Engineer whole(session, std::numeric_limits<int>::max());
    whole.Work();
    const int operations = whole.disk.operations();
    EXPECT_GT(operations, 5) << session.name;
    for (int step = 1; step <= operations; ++step) {
      SCOPED_TRACE(std::string(session.name) + ", operation " + std::to_string(step));
      Engineer engineer(session, step);
      engineer.Work();  // what it does after the kill does not reach the disk
      engineer.disk.Mend();
      TestBench& test = engineer.test;
      const std::string at_the_kill = test.Bytes();
      ASSERT_TRUE(whole.noted.contains(at_the_kill));
      test.study = Study{};  // another run of the program
      test.study.system_kind = SystemKind::kClosed;
      engineer.told.screens = {};
      const auto found = SettleWorkFiles(engineer.told);
      ASSERT_TRUE(found.ok() && *found);
      ASSERT_TRUE(AcceptRecovery(engineer.told, **found));
      EXPECT_TRUE(whole.noted.contains(test.Bytes()));
      EXPECT_TRUE(test.study.recalculation_needed) << "no result is shown unproved";
      if (test.Bytes() != at_the_kill) {
        EXPECT_TRUE(KeptFiles(test).contains(at_the_kill)) << "rows were displaced";
      }
    }
  }
}

}  // namespace
}  // namespace kalvo
