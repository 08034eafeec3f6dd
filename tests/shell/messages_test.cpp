#include "shell/messages.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "shell/message_style.h"
#include "shell/message_table.h"
#include "tests/support/test_bench.h"

namespace kalvo {
namespace {

TEST(NumberedMessage, KeepsItsNumberForTheManual) {
  const Study study;
  EXPECT_EQ(MessageFor(-300, study, {',', '.'})->number, -300);
  EXPECT_EQ(ConfirmOverwriteBox().number, 0);
}

constexpr Separators kGreek{',', '.'};
constexpr Separators kEnglish{'.', ','};

Study FilledStudy() {
  Study study;
  study.system_kind = SystemKind::kClosed;
  study.SectionCount = 12;
  study.CurrentRow = 7;
  study.CalcStatus = 42;
  study.critical_branch = "1-3-5";
  study.row.WaterFlow = 1234.46F;
  return study;
}

Box BoxOf(int code, const Study& study, Separators separators = kGreek) {
  return MessageFor(code, study, separators).value_or(Box{"no such message", {}, 0});
}

std::vector<std::string> LinesOf(int code, const Study& study) { return BoxOf(code, study).lines; }

struct ExpectedBox {
  int code;
  std::string title;
  std::vector<std::string> lines;
  int style;
};

const ExpectedBox kExpectedBoxes[] = {
    {21,
     "  ! !   ΠΡΟΣΟΧΗ : Απαράδεκτη Καταχώρηση   ! ! ",
     {"... Μέση Ταχύτητα Νερού στος Σωλήνες : 0 [m/sec] < v <= 4 [m/sec] ..."},
     16},
    {143,
     "  ! !   ΠΡΟΣΟΧΗ   ! ! ",
     {"     !! ΔΕΝ υπάρχουν Δεδομένα Υποδοχέων !!      ",
      "... Πατήστε το πλήκτρο < Δεδομένα Υποδοχων > ..."},
     16},
    {170,
     " ΔΥΣΜΕΝΕΣΤΕΡΟΣ ΚΛΑΔΟΣ ΔΙΚΤΥΟΥ ΑΕΡΑΓΩΓΩΝ ",
     {"... Ο Δυσμενέστερος Κλαδος του Δικτύου, είναι ο ...", "1-3-5"},
     64},
    {175,
     "  ! !   ΠΡΟΣΟΧΗ   ! ! ",
     {"!!   Εχετε αλλάξει κάποιες Διαστάσεις Αεραγωγών   !!",
      "   Οι αλλαγές αυτές ΕΠΙΒΑΛΛΟΥΝ Νέους Υπολογισμούς   ",
      " ΘΕΛΕΤΕ ΝΑ ΠΡΑΓΜΑΤΟΠΟΙΗΘΟΥΝ ΟΙ ΥΠΟΛΟΓΙΣΜΟΙ ΑΥΤΟΙ ?? "},
     35},
    {-300,
     " !! ΠΡΟΒΛΗΜΑ ΜΕ ΤΟ ΣΥΣΤΗΜΑ ΣΩΛΗΝΩΝ !! ",
     {"       ... Το Σύστημα Σωλήνων που έχετε επιλέξει ...        ",
      "    ... ΔΕΝ ΕΠΑΡΚΕΙ, για την Συνολική Παροχή Υγρού ...      ",
      "   ... και την Μέση Ταχύτητα Υγρού, που έχετε επιβάλει ...  ",
      "        ... Να αγνοήσω το Θέμα και να συνεχίσω ? ...        ",
      "(Αν 'YES', θα καταστρατηγηθεί η επιλογή της Μέσης ταχύτητας)"},
     276},
    {307,
     " !! ΠΡΟΣΟΧΗ !! ",
     {"           ... Έχουν γίνει ΑΛΛΑΓΕΣ ΔΙΑΜΕΤΡΩΝ και επί τη βάσει αυτών των αλλαγών ...."
      "          ",
      "                             "
      "... ΕΧΟΥΝ ΓΙΝΕΙ ΝΕΟΙ ΥΠΟΛΟΓΙΣΜΟΙ ...                             ",
      " ",
      "... Θέλετε να ισχύσουν οι ΝΕΕΣ ΔΙΑΜΕΤΡΟΙ (Yes), "
      "ή να ισχύσουν οι ΠΑΛΑΙΕΣ ΔΙΑΜΕΤΡΟΙ (No) ?? ...",
      "              ... < Yes > => ΝΕΕΣ ΔΙΑΜΕΤΡΟΙ .... "
      "< No > => ΠΑΛΑΙΕΣ ΔΙΑΜΕΤΡΟΙ ...              "},
     292},
    {1000,
     "7 ΠΑΡΟΧΗ ΥΓΡΟΥ, ΣΤΟ ΤΡΕΧΟΝ ΤΜΗΜΑ, με α/α : ",
     {"... Η Παροχή του Υγρού, στο Τρέχον Τμήμα, είναι : 1.234,5 [m³/h] ..."},
     64},
    {2004,
     "!! ΠΡΟΣΟΧΗ !!",
     {".... Κάποιος, ή κάποιοι Κλάδοι (Τμήματα Σωλήνων), ΔΕΝ ΕΧΟΥΝ ΚΑΤΑΧΩΡΗΘΕΙ ...",
      ".... Πιθανός μη καταχωρηθείς Κλάδος, στην περιοχή του < Κόμβου Νο : 42 > ..."},
     16},
};

TEST(Messages, TextsStandByteForByte) {
  for (const ExpectedBox& box : kExpectedBoxes) {
    SCOPED_TRACE(box.code);
    const Box shown = BoxOf(box.code, FilledStudy());
    EXPECT_EQ(shown.title, box.title);
    EXPECT_EQ(shown.lines, box.lines);
    EXPECT_EQ(shown.style, box.style);
    EXPECT_EQ(shown.beeps, 2);
  }
}

TEST(Messages, QuestionsHaveTheirButtonsAndDefaults) {
  for (const auto& [code, style] :
       {std::pair{100, 36}, std::pair{120, 292}, std::pair{130, 547}, std::pair{135, 36},
        std::pair{175, 35}, std::pair{190, 35}, std::pair{-300, 276}, std::pair{304, 547},
        std::pair{306, 292}, std::pair{307, 292}}) {
    EXPECT_EQ(BoxOf(code, FilledStudy()).style, style) << code;
  }
}

TEST(Messages, CatalogueHoldsEveryCodeAndNoOther) {
  const std::set<int> expected = {1,   2,   3,   4,    5,   6,   7,    8,    10,   11,   12,
                                  20,  21,  23,  100,  110, 120, 121,  122,  130,  135,  139,
                                  140, 142, 143, 150,  170, 175, 190,  192,  200,  201,  202,
                                  203, 204, 300, -300, 301, 302, 304,  305,  306,  307,  400,
                                  401, 402, 403, 405,  406, 407, 1000, 2000, 2003, 2004, 2005};
  std::set<int> found;
  for (int code = -3000; code <= 3000; ++code) {
    if (MessageFor(code, Study{}, kGreek)) {
      found.insert(code);
    }
  }
  EXPECT_EQ(found, expected);
}

TEST(Messages, EveryMarkIsFilled) {
  for (const Message& message : MessageTable()) {
    const Box box = BoxOf(message.code, FilledStudy());
    EXPECT_EQ((box.title + BoxText(box)).find_first_of("{}"), std::string::npos) << message.code;
  }
}

TEST(Messages, InsertedValuesFollowTheStudyAndAreShownAsTheyAre) {
  Study study = FilledStudy();
  EXPECT_EQ(LinesOf(302, study), std::vector<std::string>{"1-3-5"});
  EXPECT_EQ(LinesOf(400, study),
            std::vector<std::string>{
                "... Μπορείτε να καταχωρήσετε α/α Τμήματος, μέχρι τον Αριθμό < 12 > ..."});
  EXPECT_EQ(BoxOf(1000, study, kEnglish).lines,
            std::vector<std::string>{
                "... Η Παροχή του Υγρού, στο Τρέχον Τμήμα, είναι : 1,234.5 [m³/h] ..."});
  study.critical_branch = "{CalcStatus}";
  EXPECT_EQ(LinesOf(302, study), std::vector<std::string>{"{CalcStatus}"});
  study.critical_branch.clear();
  EXPECT_EQ(LinesOf(170, study).size(), 1U) << "what comes out empty takes no line";
}

TEST(Messages, MissingEmittersAreNamedByTheKindOfSystem) {
  Study study;
  study.system_kind = SystemKind::kClosed;
  EXPECT_EQ(LinesOf(407, study),
            std::vector<std::string>{"!! ΔΕΝ υπάρχουν Δεδομένα για τα Σώματα !!"});
  study.system_kind = SystemKind::kOpen;
  EXPECT_EQ(LinesOf(407, study),
            std::vector<std::string>{"!! ΔΕΝ υπάρχουν Δεδομένα για τους Υποδοχείς !!"});
  study.system_kind = SystemKind::kNone;
  const Box empty = BoxOf(407, study);
  EXPECT_EQ(empty.title, kAttentionTitle);
  EXPECT_EQ(empty.style, 16);
  EXPECT_EQ(BoxText(empty), "\n");
}

TEST(Messages, OnlyQuestionsAndTheRefusalOfPipesLeaveAnAnswer) {
  const std::set<int> asking = {-300, 100, 120, 130, 135, 175, 190, 304, 306, 307};
  for (const Message& message : MessageTable()) {
    const bool asks = asking.contains(message.code);
    const Answer silent = message.code == 300 ? Answer::kNo : Answer::kNone;
    EXPECT_EQ(AnswerOf(message.code, Answer::kYes), asks ? Answer::kYes : silent) << message.code;
    EXPECT_EQ(AnswerOf(message.code, Answer::kNone), silent) << message.code;
  }
  EXPECT_EQ(AnswerOf(130, Answer::kCancel), Answer::kCancel);
  EXPECT_EQ(AnswerOf(9, Answer::kYes), Answer::kNone);
  EXPECT_EQ(AnswerOf(1001, Answer::kNo), Answer::kNone);
}

TEST(Messages, OverwritingIsAskedWithNoTheDefault) {
  const Box box = ConfirmOverwriteBox();
  EXPECT_EQ(box.title, "  ! !   ΠΡΟΣΟΧΗ   ! ! ");
  EXPECT_EQ(BoxText(box), "\n!! Το Αρχείο αυτό, υπάρχει ήδη !!\nΘέλετε να το αντικαταστήσω ?");
  EXPECT_EQ(StyleOf(box.style).DefaultAnswer(), Answer::kNo);
  TestBench bench;
  for (const Answer answer : {Answer::kYes, Answer::kNo}) {
    bench.prompter.Expect(box.title, answer);
    EXPECT_EQ(ConfirmOverwrite(bench.bench), answer == Answer::kYes);
  }
}

TEST(MessageStyle, GivesButtonsIconAndDefault) {
  using Buttons = std::vector<Answer>;
  const Buttons ok = {Answer::kNone};
  const Buttons yes_no = {Answer::kYes, Answer::kNo};
  const Buttons yes_no_cancel = {Answer::kYes, Answer::kNo, Answer::kCancel};
  struct ExpectedStyle {
    int style;
    BoxIcon icon;
    Buttons buttons;
    Answer default_answer;
  };
  const ExpectedStyle expected[] = {
      {16, BoxIcon::kStop, ok, Answer::kNone},
      {48, BoxIcon::kExclamation, ok, Answer::kNone},
      {64, BoxIcon::kInformation, ok, Answer::kNone},
      {35, BoxIcon::kQuestion, yes_no_cancel, Answer::kYes},
      {36, BoxIcon::kQuestion, yes_no, Answer::kYes},
      {276, BoxIcon::kStop, yes_no, Answer::kNo},
      {292, BoxIcon::kQuestion, yes_no, Answer::kNo},
      {547, BoxIcon::kQuestion, yes_no_cancel, Answer::kCancel},
  };
  for (const ExpectedStyle& wanted : expected) {
    SCOPED_TRACE(wanted.style);
    const BoxStyle style = StyleOf(wanted.style);
    EXPECT_EQ(style.icon, wanted.icon);
    EXPECT_EQ(Buttons(style.buttons.begin(), style.buttons.end()), wanted.buttons);
    EXPECT_EQ(style.DefaultAnswer(), wanted.default_answer);
  }
}

}  // namespace
}  // namespace kalvo
