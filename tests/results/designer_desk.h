#pragma once

#include "results/designer/frm_cl_pass.h"
#include "results/designer/frm_client.h"
#include "tests/support/failing_disk.h"
#include "tests/support/test_desk.h"

namespace kalvo {

/// A desk whose list of designers is on a disk that may fail.
struct DesignerDesk : TestDesk {
  DesignerDesk() { test.PutNetwork({"ANT/1 5m", "1/ANT 5m"}); }

  FailingDisk failing{test.work_disk};
  UnreadableDisk disk{failing};
  Workspace workspace{disk, TestBench::kProgramFolder, test.outer_disk, TestBench::kLibraryFolder,
                      test.clock};
  Workbench bench{test.study, workspace, test.pipes, test.prompter};
  Desk desk{bench, navigator, sound, viewer, clipboard, printer, Separators{',', '.'}};

  void PutList(const DesignerList& list) { ASSERT_TRUE(WriteDesigners(workspace, list).ok()); }
  void PutClient(std::string_view name) {
    for (int number : {1, 2}) {
      test.ChangeRow(
          number, [name](SectionRow& row) { row.Client = decltype(row.Client)::FromUtf8(name); });
    }
    test.study.unsaved_changes = false;
  }
  [[nodiscard]] DesignerList List() const {
    const auto list = ReadDesigners(test.workspace);
    EXPECT_TRUE(list.ok());
    return list ? *list : DesignerList();
  }
  /// The lines of the box shown last.
  [[nodiscard]] std::string LastBox() const {
    return test.prompter.boxes().empty() ? "(none)" : Joined(test.prompter.boxes().back().lines);
  }
  [[nodiscard]] std::vector<std::string> TakeLog() { return std::exchange(navigator.log, {}); }

  /// The next time the password is asked for, this happens.
  void InPasswordForm(const std::function<void(FrmCLPass&)>& use) {
    navigator.Expect(screen::kListPassword, [this, use] {
      FrmCLPass form(desk);
      form.Load();
      use(form);
    });
  }
};

constexpr const char* kAttentionTitle = "  ! !   ΠΡΟΣΟΧΗ   ! ! ";

}  // namespace kalvo
