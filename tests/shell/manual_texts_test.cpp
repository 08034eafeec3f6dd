// Captions, messages, keys and pictures of the manual are those of the program.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "entry/emitters/frm_soma.h"
#include "entry/emitters/frm_ypodo.h"
#include "entry/general/frm_cur_fl.h"
#include "entry/general/frm_err.h"
#include "entry/general/frm_gen_data.h"
#include "entry/general/frm_liquid.h"
#include "entry/section_form/frm_data.h"
#include "entry/sheet/frm_data_sheet.h"
#include "entry/sheet/frm_dt_sheet_help.h"
#include "entry/tees/frm_tau_cross_s.h"
#include "entry/winter/frm_winter.h"
#include "results/designer/frm_cl_pass.h"
#include "results/designer/frm_client.h"
#include "results/frm_avai_d.h"
#include "results/frm_chang.h"
#include "results/frm_compare.h"
#include "results/frm_res.h"
#include "results/frm_res_gn.h"
#include "results/frm_res_sheet.h"
#include "results/frm_stat_s.h"
#include "results/printing/frm_preview.h"
#include "results/printing/frm_prnr1.h"
#include "results/printing/frm_xl_or_not.h"
#include "shell/copying/frm_copy.h"
#include "shell/frm_editor.h"
#include "shell/frm_error.h"
#include "shell/frm_ff.h"
#include "shell/frm_file_os.h"
#include "shell/frm_kind.h"
#include "shell/frm_main.h"
#include "shell/frm_old_study.h"
#include "shell/frm_open_save.h"
#include "shell/frm_rec_files.h"
#include "shell/frm_safety.h"
#include "shell/frm_title.h"
#include "shell/message_table.h"
#include "study/letter_case.h"
#include "tests/support/markdown.h"
#include "tests/support/test_desk.h"

namespace kalvo {
namespace {

namespace fs = std::filesystem;

const fs::path kRoot = KALVO_SOURCE_DIR;

std::map<std::string, Markdown> AllChapters() {
  std::map<std::string, Markdown> chapters;
  for (const auto& entry : fs::directory_iterator(kRoot / "docs/manual")) {
    chapters[entry.path().filename().string()] = ReadMarkdown(entry.path());
  }
  return chapters;
}

void Replace(std::string& text, std::string_view what, std::string_view by) {
  std::string made;
  for (const std::string& piece : SplitAt(text, what)) {
    made += piece + std::string(by);
  }
  text = made.substr(0, made.size() - by.size());
}

// Everything that sources and designs of the program have in quotes or as text, in one line: pieces
// of a literal joined, letters for Alt without their mark.
std::string ProgramTexts() {
  std::string texts;
  for (const char* floor : {"study", "engine", "form", "entry", "results", "shell", "desktop"}) {
    for (const auto& entry : fs::recursive_directory_iterator(kRoot / floor)) {
      const std::string end = entry.path().extension().string();
      if (end != ".cpp" && end != ".h" && end != ".ui") continue;
      std::string text = InOneLine(ReadMarkdown(entry.path()).text);
      Replace(text, "\" \"", "");
      Replace(text, "\\n", " ");
      texts += text + "\n";
    }
  }
  for (const auto& [what, by] : {std::pair{"&lt;", "<"}, {"&gt;", ">"}, {"&amp;", ""}, {"&", ""}}) {
    Replace(texts, what, by);
  }
  return texts;
}

// What a key is called, whatever the order of its modifiers.
std::multiset<std::string> Words(std::string_view key) {
  std::multiset<std::string> words;
  for (const std::string& word : SplitAt(key, "+")) {
    const std::string letters = word.substr(0, word.find('\0'));
    if (!letters.empty()) words.insert(letters);
  }
  return words;
}

bool HasKey(const Command& command, const std::string& key) {
  const auto is_same = [&](const Key& own) { return Words(KeyText(own)) == Words(key); };
  return std::ranges::any_of(command.keys, is_same) || Words(command.hint) == Words(key);
}

bool HasCommand(const Form& form, const std::string& caption, const std::string& key) {
  return std::ranges::any_of(form.controls(), [&](const Control* part) {
    const auto* command = dynamic_cast<const Command*>(part);
    return command != nullptr &&
           InOneLine(" " + command->caption).find(caption) != std::string::npos &&
           HasKey(*command, key);
  });
}

// The screens by their headings in the chapter of keys.
std::map<std::string, FormFactory> Screens() {
  return {{"Αρχή", &MakeForm<FrmKind>},
          {"Βασικό μενού", &MakeForm<FrmMain>},
          {"Γενικά δεδομένα", &MakeForm<FrmGenData>},
          {"Φύλλο τμημάτων", &MakeForm<FrmData_Sheet>},
          {"Βοήθεια πλήκτρων", &MakeForm<FrmDtSheet_Help>},
          {"Φόρμα τμημάτων", &MakeForm<FrmData>},
          {"Ταυ και σταυροί", &MakeForm<FrmTauCross_S>},
          {"Σώματα", &MakeForm<FrmSoma>},
          {"Υποδοχείς", &MakeForm<FrmYpodo>},
          {"Αποτελέσματα, ο πίνακας", &MakeForm<FrmRes_Sheet>},
          {"Αποτελέσματα, ένα τμήμα τη φορά", &MakeForm<FrmRes>},
          {"Η προμέτρηση", &MakeForm<FrmStatS>},
          {"Αλλαγή μιας διαμέτρου", &MakeForm<FrmAvaiD>},
          {"Αλλαγή πολλών διαμέτρων", &MakeForm<FrmChang>},
          {"Σύγκριση", &MakeForm<FrmCompare>},
          {"Η αντλία", &MakeForm<FrmResGn>},
          {"Χειμώνας", &MakeForm<FrmWinter>},
          {"Μελετητές", &MakeForm<FrmCLient>},
          {"Password των μελετητών", &MakeForm<FrmCLPass>},
          {"Προεπισκόπηση", &MakeForm<FrmPreview>},
          {"Αντιγραφή μελετών", &MakeForm<FrmCopy>},
          {"Επιλογή εκτύπωσης", &MakeForm<FrmXLorNOT>},
          {"Εκτύπωση δεδομένων και αποτελεσμάτων", &MakeForm<FrmPRNR1>},
          {"Κατάλογος μελετών", &MakeForm<FrmOpenSave>},
          {"Το παράθυρο των αρχείων", &MakeForm<FrmFileOS>},
          {"Πρόσφατα αρχεία", &MakeForm<FrmRecFiles_S>},
          {"Ο φάκελος των μελετών", &MakeForm<FrmFF>},
          {"Ημιτελής παλαιά μελέτη", &MakeForm<FrmOldStudy>},
          {"Αντίγραφα ασφαλείας", &MakeForm<FrmSafety>},
          {"Τα υγρά", &MakeForm<FrmLiquid>},
          {"Προβολή κειμένων", &MakeForm<FrmEditor>},
          {"Τιμές που λείπουν", &MakeForm<FrmERR>}};
}

// Screens that only other chapters tell of.
std::vector<FormFactory> FurtherScreens() {
  return {&MakeForm<FrmTitle>, &MakeForm<FrmCurFL>, &MakeForm<FrmError>};
}

// As it is at first; the main menu names its commands when it is loaded.
std::unique_ptr<Form> FormOf(const std::string& heading, Desk& desk) {
  auto form = Screens().at(heading)(desk);
  if (heading == "Βασικό μενού") {
    form->Load();
    form->Derive();
  }
  return form;
}

bool AnyHasCommand(const std::string& caption, const std::string& key) {
  const auto screens = Screens();
  const auto further = FurtherScreens();
  TestDesk user;
  return std::ranges::any_of(screens,
                             [&](const auto& screen) {
                               return HasCommand(*FormOf(screen.first, user.desk), caption, key);
                             }) ||
         std::ranges::any_of(further, [&](const FormFactory make) {
           return HasCommand(*make(user.desk), caption, key);
         });
}

TEST(ManualTexts, LinksAndPicturesAreThere) {
  for (const auto& [name, chapter] : AllChapters()) {
    for (const std::string& target : chapter.Targets()) {
      const std::size_t hash = target.find('#');
      const std::string file = hash == 0 ? name : target.substr(0, hash);
      ASSERT_TRUE(fs::exists(kRoot / "docs/manual" / file)) << name << ": " << target;
      if (hash == std::string::npos) continue;
      const auto anchors = ReadMarkdown(kRoot / "docs/manual" / file).Anchors();
      EXPECT_EQ(std::ranges::count(anchors, LowerCase(target.substr(hash + 1))), 1)
          << name << ": " << target;
    }
  }
}

TEST(ManualTexts, WhatIsInBoldIsOnAScreen) {
  const std::string texts = ProgramTexts();
  for (const auto& [name, chapter] : AllChapters()) {
    if (name == "README.md") continue;
    for (const std::string& bold : chapter.Between("**")) {
      EXPECT_NE(texts.find(bold), std::string::npos) << name << ": " << bold;
    }
  }
}

TEST(ManualTexts, KeysAreThoseOfTheirCommands) {
  const auto parts = AllChapters().at("14-keys.md").Parts();
  EXPECT_EQ(parts.size(), Screens().size() + 2) << "the print and the index of keys have no screen";
  for (const auto& [heading, make] : Screens()) {
    TestDesk user;
    const auto form = FormOf(heading, user.desk);
    for (const auto& cells : parts.at(heading).Lines()) {
      const bool caption = cells.size() == 2 && cells[1].starts_with("**");
      if (!caption) continue;
      const std::string command = Markdown{cells[1]}.Between("**").front();
      EXPECT_TRUE(HasCommand(*form, command, Markdown{cells[0]}.Between("`").front()))
          << heading << ": " << cells[0] << " " << command;
    }
  }
}

// "**Υπολογισμοί** (`F9`)"
TEST(ManualTexts, AKeyBesideACaptionRunsIt) {
  for (const auto& [name, chapter] : AllChapters()) {
    const std::vector<std::string> pieces = SplitAt(InOneLine(chapter.text), "** (`");
    for (std::size_t i = 1; i < pieces.size(); ++i) {
      const std::string caption = SplitAt(pieces[i - 1], "**").back();
      const std::string key = pieces[i].substr(0, pieces[i].find('`'));
      EXPECT_TRUE(AnyHasCommand(caption, key)) << name << ": " << caption << " " << key;
    }
  }
}

// "| **Υπολογισμοί** | `F9` | ... |"
TEST(ManualTexts, AKeyInTheCellAfterACaptionRunsIt) {
  int found = 0;
  for (const auto& [name, chapter] : AllChapters()) {
    for (const auto& cells : chapter.Lines()) {
      const bool both = cells.size() > 2 && cells[0].starts_with("**") && cells[1].starts_with('`');
      if (!both) continue;
      ++found;
      const std::string caption = Markdown{cells[0]}.Between("**").front();
      const std::string key = Markdown{cells[1]}.Between("`").front();
      EXPECT_TRUE(AnyHasCommand(caption, key)) << name << ": " << caption << " " << key;
    }
  }
  EXPECT_GT(found, 0);
}

TEST(ManualTexts, EachNumberedMessageHasItsHeading) {
  const auto anchors = AllChapters().at("15-messages.md").Anchors();
  for (const Message& message : MessageTable()) {
    EXPECT_EQ(std::ranges::count(anchors, std::to_string(message.code)), 1) << message.code;
  }
}

TEST(ManualTexts, WhatTablesAskAndPromiseIsOnAScreen) {
  const std::string texts = ProgramTexts();
  for (const char* name : {"02-fancoil.md", "03-house.md"}) {
    for (const char* head : {"τι ζητά", "η οθόνη λέει"}) {
      for (const CsvLine& line : AllChapters().at(name).Table(head)) {
        EXPECT_NE(texts.find(line.at(head)), std::string::npos) << name << ": " << line.at(head);
      }
    }
  }
}

}  // namespace
}  // namespace kalvo
