#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "entry/section_form/frm_data.h"
#include "tests/entry/sheet_user.h"
#include "tests/support/failing_disk.h"
#include "tests/support/test_desk.h"

namespace kalvo {

/// Two emitters on the way from the source and back.
inline const std::vector<std::string_view> kChain = {"ANT/1 5m", "1/2 6m 300l/h soma 800mm",
                                                     "2/3 7m 200l/h soma 900mm", "3/ANT 8m"};

/// The section form of a study with a title and general data, driven by keys, and the sheet where
/// entry leads there.
class SectionUser {
 public:
  explicit SectionUser(SystemKind kind = SystemKind::kClosed,
                       const std::vector<std::string_view>& network = {}, Prompter* other = nullptr)
      : user(kind), prompter(other == nullptr ? user.test.prompter : *other) {
    Study& study = user.test.study;
    if (!network.empty()) user.test.PutNetwork(network);
    study.study_title = "Γραφεία";
    study.MeanTemp = 80;
    study.MeanVel = 0.75F;
    desk.data_folder = kStudies;
    EXPECT_TRUE(user.test.outer_disk.MakeFolder(kStudies).ok());
  }

  void Open() { Show(screen::kSections); }
  void OpenSheet() {
    desk.screens.open_kept_sheet = true;
    Show(screen::kSheet);
  }

  void Press(const Key& key) {
    if (front() == nullptr) return;
    PressKey(*front(), key);
    Follow();
  }
  void Press(KeyCode code) { Press(Plain(code)); }
  void Next() { Press(KeyCode::kPageDown); }

  /// Keys into the field in focus; "-" leaves it as it is. Enter goes on to the next.
  void Type(std::string_view words) {
    std::string word;
    for (const char c : std::string(words) + " ") {
      if (c != ' ') {
        word += c;
        continue;
      }
      if (word != "-") {
        for (std::string_view rest = word; !rest.empty();) Press(Typed(TakeCharacter(rest)));
      }
      if (&form->Cmd_Next != form->focus()) Press(KeyCode::kEnter);
      word.clear();
    }
  }
  void TypeIn(Field& field, std::string_view text) {
    TypeInto(*form, field, text);
    form->Derive();
  }
  void Run(Command& command) {
    front()->Run(command);
    Follow();
  }
  void Close() {
    front()->MayClose();
    Follow();
  }

  /// The form or the sheet, whichever is open.
  [[nodiscard]] Form* front() const {
    return form ? static_cast<Form*>(form.get()) : static_cast<Form*>(sheet.get());
  }

  /// "3 : 2/3 · 5,5" of the row on show.
  [[nodiscard]] std::string Shown() const {
    return form->Txt_aa.text + " : " + form->Txt0.text + "/" + form->Txt1.text + " · " +
           form->Txt2.text;
  }
  /// All fields but the names.
  [[nodiscard]] std::string Numbers() const {
    std::string line;
    for (const Field* field : {&form->Txt2, &form->Txt6, &form->Txt7, &form->Txt8, &form->Txt9,
                               &form->Txt10, &form->Txt11, &form->Txt12, &form->Txt13, &form->Txt14,
                               &form->Txt15, &form->Txt16, &form->Txt17}) {
      line += (line.empty() ? "" : "|") + field->text;
    }
    return line;
  }
  /// Sections of the emitters in their file.
  [[nodiscard]] std::string Emitters() const {
    std::string text;
    for (const SectionRow& row : user.test.Rows(work_file::kEmitters)) {
      text += std::to_string(row.RecordNumber) + " ";
    }
    return text;
  }
  /// "ANT/1|1/2" of the rows in their file.
  [[nodiscard]] std::string Names() const {
    std::string names = Joined(user.test.Names());
    std::erase(names, ' ');
    return names;
  }
  [[nodiscard]] std::string LastScreen() const { return user.navigator.log.back(); }
  [[nodiscard]] Study& study() { return user.test.study; }
  /// The draft's texts are the file's.
  [[nodiscard]] bool DraftSaysRows() const {
    const SheetImage image =
        ImageOfRows(user.test.Rows(), user.test.study.system_kind, desk.separators);
    const SheetImage draft = form->draft().Image();
    return std::ranges::equal(image.rows, draft.rows, {}, &SheetRow::texts, &SheetRow::texts);
  }

  TestDesk user;
  Prompter& prompter;
  FailingDisk disk{user.test.work_disk};
  Workspace workspace{disk, TestBench::kProgramFolder, user.test.outer_disk,
                      TestBench::kLibraryFolder, user.test.clock};
  Workbench bench{user.test.study, workspace, user.test.pipes, prompter};
  Desk desk{bench,          user.navigator, user.sound,          user.viewer,
            user.clipboard, user.printer,   Separators{',', '.'}};
  std::unique_ptr<FrmData> form;
  std::unique_ptr<FrmData_Sheet> sheet;

 private:
  void Show(std::string_view name) {
    form.reset();
    sheet.reset();
    if (name == screen::kSections) form = std::make_unique<FrmData>(desk);
    if (name == screen::kSheet) sheet = std::make_unique<FrmData_Sheet>(desk);
    if (front() == nullptr) return;
    front()->Load();
    front()->Activate();
    front()->Derive();
  }
  void Follow() {
    const std::vector<std::string>& log = user.navigator.log;
    for (; followed_ < log.size(); ++followed_) {
      if (log[followed_].starts_with("show ") && log[followed_] != "show FrmTauCross") {
        Show(log[followed_].substr(5));
      }
    }
    if (front() != nullptr) front()->Derive();
  }

  std::size_t followed_ = 0;  ///< of the navigator's log
};

}  // namespace kalvo
