#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "entry/emitters/frm_soma.h"
#include "entry/emitters/frm_ypodo.h"
#include "entry/general/frm_gen_data.h"
#include "entry/section_form/frm_data.h"
#include "entry/sheet/frm_data_sheet.h"
#include "entry/winter/frm_winter.h"
#include "results/frm_res.h"
#include "results/frm_res_gn.h"
#include "results/frm_res_sheet.h"
#include "shell/frm_calcs.h"
#include "shell/frm_editor.h"
#include "shell/frm_file_os.h"
#include "shell/frm_kind.h"
#include "shell/frm_main.h"
#include "study/pipe_list.h"
#include "study/real_disk.h"
#include "tests/shell/open_forms.h"
#include "tests/support/calculated_case.h"
#include "tests/support/markdown.h"
#include "tests/support/test_desk.h"

namespace kalvo {

inline Markdown ManualChapter(const std::string& name) {
  return ReadMarkdown(std::filesystem::path(KALVO_SOURCE_DIR) / "docs/manual" / name);
}

/// A stacked head as it is read: hyphens that part a word go.
inline std::string HeadRead(std::string_view stacked) {
  std::string head;
  for (const std::string& piece : SplitAt(InOneLine(stacked), "-")) {
    head += piece.starts_with(' ') ? piece.substr(1) : piece;
  }
  return head;
}

inline std::map<std::string_view, FormFactory> ManualScreens() {
  return {{screen::kKind, &MakeForm<FrmKind>},
          {screen::kMain, &MakeForm<FrmMain>},
          {screen::kGeneralData, &MakeForm<FrmGenData>},
          {screen::kSheet, &MakeForm<FrmData_Sheet>},
          {screen::kSections, &MakeForm<FrmData>},
          {screen::kEmitters, &MakeForm<FrmSoma>},
          {screen::kOutlets, &MakeForm<FrmYpodo>},
          {screen::kMethod, &MakeForm<FrmCalcs>},
          {screen::kFiles, &MakeForm<FrmFileOS>},
          {screen::kResultsSheet, &MakeForm<FrmRes_Sheet>},
          {screen::kResults, &MakeForm<FrmRes>},
          {screen::kPump, &MakeForm<FrmResGn>},
          {screen::kViewer, &MakeForm<FrmEditor>},
          {screen::kWinter, &MakeForm<FrmWinter>}};
}

/// The program over the delivered libraries, and an engineer with a chapter beside it.
class ManualReader {
 public:
  explicit ManualReader(const std::string& chapter_name) : chapter(ManualChapter(chapter_name)) {
    for (const auto& entry : std::filesystem::directory_iterator(KALVO_LIBRARY_DIR)) {
      EXPECT_TRUE(test.outer_disk
                      .Write(test.workspace.library_folder() / entry.path().filename(),
                             RealDisk().Read(entry.path()).value())
                      .ok());
    }
    test.pipes = BuildPipeList(test.workspace, EmptyLibraries::kSkip).value();
    test.study.system_kind = SystemKind::kNone;
    desk.data_folder = kStudies;
    EXPECT_TRUE(test.outer_disk.MakeFolder(kStudies).ok());
    forms.Attach(desk);
    forms.Show(screen::kKind);
  }
  ManualReader(const ManualReader&) = delete;
  ManualReader& operator=(const ManualReader&) = delete;
  ~ManualReader() {
    forms.CloseAll();
    desk.screens.section_sitting.reset();
  }

  template <typename FormType>
  FormType& At() {
    return forms.Front<FormType>();
  }
  template <typename FormType>
  void Press(const Key& key) {
    PressKey(At<FormType>(), key);
  }
  // The text, key by key; that of the source by its first letter.
  template <typename FormType>
  void Type(std::string_view text) {
    for (std::string_view rest = text == kSource ? "a" : text; !rest.empty();) {
      Press<FormType>(Typed(TakeCharacter(rest)));
    }
  }

  void EnterUpToTheSections(char kind) {
    Press<FrmKind>(Alt(kind));
    Press<FrmKind>(Plain(KeyCode::kEnter));
    Press<FrmMain>(Plain(KeyCode::kF2));
    Type<FrmMain>(chapter.Value("ΘΕΜΑ-ΤΙΤΛΟΣ"));
    Press<FrmMain>(Plain(KeyCode::kEnter));
    forms.uses[std::string(screen::kGeneralData)] = [this](Form& form) {
      EnterGeneralData(dynamic_cast<FrmGenData&>(form));
    };
    Press<FrmMain>(Ctrl('G'));
  }

  void EnterGeneralData(FrmGenData& form) {
    const auto has_title = [wanted = chapter.Value("Σύστημα Σωλήνων")](const std::string& entry) {
      return Trim(entry) == wanted;
    };
    const auto& entries = form.CboPipes.entries;
    const auto pipes = std::ranges::find_if(entries, has_title);
    ASSERT_NE(pipes, entries.end());
    form.CboPipes.Select(static_cast<int>(pipes - entries.begin()));
    TypeInto(form, form.Text4, chapter.Value("Μέση Θερμοκρασία Ρέοντος Μέσου, σε [ °C ]"));
    TypeInto(form, form.Text6, chapter.Value("Μέση Ταχύτητα Υγρού, στο Δίκτυο, σε [ m/sec ]"));
    if (form.ChkChiller.visible) {
      EXPECT_TRUE(form.MoveFocus(&form.ChkChiller));
      form.Press(Plain(KeyCode::kEnter));
      EXPECT_EQ(form.focus(), &form.Text8);
      TypeInto(form, form.Text8, chapter.Value(form.ChkChiller.caption));
    }
    form.Press(Ctrl(KeyCode::kEnter));
  }

  // "Shift+C" of the tee's column, as often as the line says; other columns give nothing.
  template <typename FormType>
  void PressTees(const CsvLine& line) {
    for (const auto& [head, letter] : tee_letters) {
      const auto cell = line.find(head);
      if (cell == line.end() || cell->second.empty()) continue;
      for (int count = std::stoi(cell->second); count > 0; --count) {
        Press<FormType>(ShiftTyped(static_cast<char32_t>(letter)));
      }
    }
  }

  void CalculateAndCompare() {
    forms.uses[std::string(screen::kMethod)] = [](Form& form) {
      form.Press(Plain(KeyCode::kEnter));
    };
    Press<FrmMain>(Plain(KeyCode::kF9));
    const auto& results = At<FrmRes_Sheet>();
    EXPECT_EQ(results.frame.LblFlow.text, chapter.Value("Παροχή Αντλίας, σε [m³/h]"));
    EXPECT_EQ(results.frame.LblHead.text, chapter.Value("Μανομετρικό΄Ύψος Αντλίας, σε [m w.g.]"));
    EXPECT_EQ(results.LblCount.text, chapter.Value("ΣΥΝ. ΤΜΗΜΑΤΩΝ"));
    std::string branch;
    for (const std::string& node : results.ChainCritical.nodes) {
      branch += (branch.empty() ? "" : ", ") + node;
    }
    EXPECT_EQ(branch, chapter.Table("Δυσμενέστερος κλάδος").front().at("Δυσμενέστερος κλάδος"));
    const Grid& table = results.fpSpread1;
    for (const CsvLine& line : chapter.Table("α/α", HeadRead(table.columns()[2].header))) {
      for (int column = 0; column < table.column_count(); ++column) {
        const std::string head = HeadRead(table.columns()[static_cast<std::size_t>(column)].header);
        EXPECT_EQ(table.At(std::stoi(line.at("α/α")) - 1, column).text, line.at(head))
            << line.at("α/α") << ", " << head;
      }
    }
  }

  // Under the name that is proposed.
  void SaveFirst(const std::string& file) {
    forms.uses[std::string(screen::kFiles)] = [](Form& form) {
      form.Press(Plain(KeyCode::kEnter));
    };
    Save(file);
    forms.uses.erase(std::string(screen::kFiles));  // it is asked for no more
  }

  void Save(const std::string& file) {
    EXPECT_TRUE(At<FrmMain>().LblUnsaved.visible);
    Press<FrmMain>(Ctrl('S'));
    EXPECT_TRUE(test.outer_disk.Exists(kStudies / file));
    EXPECT_TRUE(At<FrmMain>().LblSaved.visible);
    EXPECT_FALSE(At<FrmMain>().LblUnsaved.visible);
  }

  // All that was entered is what the delivered sample has.
  void CompareWithSample(const std::string& file) {
    const CalculatedCase sample(std::filesystem::path(KALVO_SAMPLES_DIR) / file, KALVO_LIBRARY_DIR);
    const std::vector<SectionRow> expected = sample.Rows();
    const std::vector<SectionRow> rows = test.Rows();
    ASSERT_EQ(rows.size(), expected.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
      SCOPED_TRACE(i + 1);
      EXPECT_EQ(rows[i].Name, expected[i].Name);
      EXPECT_EQ(rows[i].Thema, expected[i].Thema);
      EXPECT_EQ(rows[i].Auxi, expected[i].Auxi);
      EXPECT_EQ(rows[i].SomaDrop, expected[i].SomaDrop);
      EXPECT_EQ(rows[i].HeightDiff, expected[i].HeightDiff);
      for (const auto& [text, field] : kEntryNumbers) {
        std::visit([&](auto member) { EXPECT_EQ(rows[i].*member, expected[i].*member); }, field);
      }
    }
  }

  Markdown chapter;
  TestBench test;
  OpenForms forms{ManualScreens()};
  CountedSound sound;
  NotedViewer viewer;
  MemoryClipboard clipboard;
  NotedPrinter printer;
  Desk desk{test.bench, forms, sound, viewer, clipboard, printer, Separators{',', '.'}};
  // Columns of tees with the letter that the manual names for them.
  std::vector<std::pair<std::string, char>> tee_letters;
};

}  // namespace kalvo
