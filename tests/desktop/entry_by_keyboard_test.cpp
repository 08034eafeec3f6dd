#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <QTimer>

#include "desktop/qt_text.h"
#include "engine/calculation_command.h"
#include "study/section_entry.h"
#include "tests/desktop/shown_program.h"
#include "tests/support/calculated_case.h"

namespace kalvo {
namespace {

constexpr Separators kGreek{',', '.'};

// A user at the keyboard of the whole program; what is pressed is counted.
struct Typist : ShownProgram {
  explicit Typist(SystemKind kind) {
    program.desk().screens.asked_to_leave_saved = true;
    study.system_kind = kind;
    windows.Show(screen::kMain);
  }

  void At(std::string_view screen) {
    at_ = windows.WindowOf(screen);
    at_->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(at_));
  }
  [[nodiscard]] QWidget& Focus() const {
    QWidget* focus = at_->focusWidget();
    return focus == nullptr ? *at_ : *focus;
  }
  void Press(Qt::Key key, Qt::KeyboardModifiers with = Qt::NoModifier) {
    ++keys;
    QTest::keyClick(&Focus(), key, with);
  }
  void Type(std::string_view text) {
    for (const QChar letter : ToQt(text)) {
      ++keys;
      const QChar capital = letter.toUpper();
      QKeyEvent press(QEvent::KeyPress, capital.unicode(), Qt::NoModifier, QString(letter));
      QCoreApplication::sendEvent(&Focus(), &press);
    }
  }

  // A window that waits for its user gets these keys.
  void InModal(const std::function<void()>& keys_pressed) {
    QTimer::singleShot(0, [keys_pressed] { keys_pressed(); });
  }

  void EnterTitleAndGeneralData(std::string_view title, const Study& sample) {
    At(screen::kMain);
    Press(Qt::Key_F2);
    Type(title);
    Press(Qt::Key_Return);
    InModal([&] {
      At(screen::kGeneralData);
      Type(FormatNumber(sample.MeanTemp, kGreek));
      Press(Qt::Key_Return);
      Type(FormatNumber(sample.MeanVel, kGreek));
      if (sample.plant_section > 0) {
        at_->findChild<QWidget*>(QStringLiteral("ChkChiller"))->setFocus();
        Press(Qt::Key_Return);
        Type(std::to_string(sample.plant_section));
      }
      Press(Qt::Key_Return, Qt::ControlModifier);
    });
    Press(Qt::Key_G, Qt::ControlModifier);
  }

  // The sections in the sheet: what is empty or 0 is passed over by the arrow.
  void EnterSections(const std::vector<SectionRow>& rows) {
    At(screen::kMain);
    Press(Qt::Key_T, Qt::ControlModifier);
    At(screen::kSheet);
    const bool open = study.SystemOpen();
    for (const SectionRow& row : rows) {
      const SectionEntry entry = EntryOf(row, kGreek);
      std::vector<std::string> cells = {open ? "" : entry.left, entry.right};
      for (const auto& [text, field] : kEntryNumbers) cells.push_back(entry.*text);
      while (cells.size() > 3 && cells.back() == "0") cells.pop_back();
      // Row 1 is begun already.
      std::size_t from = row.RecordNumber == 1 ? (open ? 2 : 1) : 0;
      for (std::size_t i = from; i < cells.size(); ++i) {
        if (i > from) Press(Qt::Key_Right);
        if (cells[i] == kSource) {
          Type("a");
        } else if (!cells[i].empty() && (i < 3 || cells[i] != "0")) {
          Type(cells[i]);
        }
      }
      Press(Qt::Key_Down);
      Press(Qt::Key_Home);
    }
    Press(Qt::Key_Return, Qt::ControlModifier);
  }

  // The same one by one: every field is gone through, and Enter in the last leads to the next row.
  void EnterSectionsInTheForm(const std::vector<SectionRow>& rows) {
    program.desk().options.ChkDataKind = false;
    At(screen::kMain);
    Press(Qt::Key_T, Qt::ControlModifier);
    At(screen::kSections);
    for (const SectionRow& row : rows) {
      const SectionEntry entry = EntryOf(row, kGreek);
      std::vector<std::string> texts;
      if (row.RecordNumber > 1 && !study.SystemOpen()) texts.push_back(entry.left);
      if (row.RecordNumber > 1) texts.push_back(entry.right);
      for (const auto& [text, field] : kEntryNumbers) texts.push_back(entry.*text);
      for (const std::string& text : texts) {
        if (text == kSource) {
          Type("a");
          continue;  // the key leads on by itself
        }
        Type(text);
        Press(Qt::Key_Return);
      }
      if (&row != &rows.back()) Press(Qt::Key_Return);
    }
    Press(Qt::Key_Return, Qt::ControlModifier);
  }

  // Pipes and plant by their own parts; only the first is given by keys alone everywhere.
  void ChoosePipes(int position) {
    At(screen::kMain);
    at_->findChild<QWidget*>(QStringLiteral("Cbo_PipeKind"))->setFocus();
    Press(Qt::Key_Home);
    for (int i = 1; i < position; ++i) Press(Qt::Key_Down);
  }

  void EnterEmitters(const std::vector<SectionRow>& rows) {
    At(screen::kEmitters);
    for (const SectionRow& row : rows) {
      if (!row.HasEmitter()) continue;
      for (const std::string& text :
           {std::to_string(row.RecordNumber), FormatNumber(row.WaterFlow, kGreek),
            FormatNumber(row.SomaDrop, kGreek)}) {
        Type(text);
        Press(Qt::Key_Return);
      }
      Press(Qt::Key_Return);
    }
    Press(Qt::Key_Escape);
  }

  void EnterOutlets(const std::vector<SectionRow>& rows) {
    At(screen::kOutlets);
    for (const SectionRow& row : rows) {
      if (!row.HasEmitter()) continue;
      for (const float value : {row.WaterFlow, row.SomaDrop, row.HeightDiff}) {
        Type(FormatNumber(value, kGreek));
        Press(Qt::Key_Return);
      }
      Press(Qt::Key_Return);
    }
    Press(Qt::Key_Escape);
  }

  void Calculate() {
    At(screen::kMain);
    InModal([&] {
      if (windows.WindowOf(screen::kMethod) == nullptr) return;
      At(screen::kMethod);
      Press(Qt::Key_Return);
    });
    Press(Qt::Key_F9);
  }

  [[nodiscard]] std::vector<SectionRow> Rows() {
    return program.desk().bench.workspace.Rows().ReadAll().value();
  }

  int keys = 0;

 private:
  QWidget* at_ = nullptr;
};

// The sample as its own file, calculated.
struct CalculatedSample : CalculatedCase {
  explicit CalculatedSample(const char* name)
      : CalculatedCase(std::filesystem::path(KALVO_SAMPLES_DIR) / name, KALVO_LIBRARY_DIR) {
    EXPECT_EQ(kalvo::Calculate(bench, [](const auto& runs) { runs.by_method(Method::kFlowOnly); }),
              CommandEnd::kCalculated);
  }
};

void ExpectSameSections(const std::vector<SectionRow>& entered,
                        const std::vector<SectionRow>& sample) {
  ASSERT_EQ(entered.size(), sample.size());
  for (std::size_t i = 0; i < sample.size(); ++i) {
    const std::string row = "row " + std::to_string(i + 1);
    EXPECT_EQ(entered[i].Name, sample[i].Name) << row;
    for (const EntryNumber& number : kEntryNumbers) {
      EXPECT_EQ(NumberOf(entered[i], number.field), NumberOf(sample[i], number.field)) << row;
    }
    EXPECT_EQ(entered[i].WaterFlow, sample[i].WaterFlow) << row;
    EXPECT_EQ(entered[i].NomiDiam, sample[i].NomiDiam) << row;
    EXPECT_EQ(entered[i].TotalDrop, sample[i].TotalDrop) << row;
    EXPECT_EQ(entered[i].HeightDiff, sample[i].HeightDiff) << row;
  }
}

using EnterSections = void (Typist::*)(const std::vector<SectionRow>& rows);

// In the sheet, and in the form.
class EntryByKeyboard : public testing::TestWithParam<EnterSections> {};

TEST_P(EntryByKeyboard, LeadsFromAnEmptyProgramToTheFanCoilFloorsPump) {
  CalculatedSample sample("fancoil.PCK");
  const std::vector<SectionRow> rows = sample.Rows();
  Typist user(SystemKind::kClosed);
  user.EnterTitleAndGeneralData("Κλιματισμός ορόφου", sample.study);
  (user.*GetParam())(rows);
  user.EnterEmitters(rows);
  user.Calculate();
  ExpectSameSections(user.Rows(), rows);
  EXPECT_EQ(user.study.PumpHead, sample.study.PumpHead);
  EXPECT_TRUE(user.windows.IsVisible(screen::kResultsSheet));
  RecordProperty("keys", user.keys);
}

TEST_P(EntryByKeyboard, LeadsToTheHousesPump) {
  CalculatedSample sample("house.PCA");
  const std::vector<SectionRow> rows = sample.Rows();
  Typist user(SystemKind::kOpen);
  user.ChoosePipes(1);
  user.EnterTitleAndGeneralData("Ύδρευση κατοικίας", sample.study);
  (user.*GetParam())(rows);
  user.EnterOutlets(rows);
  user.Calculate();
  ExpectSameSections(user.Rows(), rows);
  EXPECT_EQ(user.study.PumpHead, sample.study.PumpHead);
  RecordProperty("keys", user.keys);
}

INSTANTIATE_TEST_SUITE_P(Screens, EntryByKeyboard,
                         testing::Values(&Typist::EnterSections, &Typist::EnterSectionsInTheForm));

}  // namespace
}  // namespace kalvo
