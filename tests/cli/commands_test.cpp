// The commands that look at a study or a library, help and wrong use.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "study/real_disk.h"
#include "tests/cli/cli_bench.h"

namespace kalvo {
namespace {

using testing::HasSubstr;
using testing::StartsWith;
using Lines = std::vector<std::string_view>;

class Commands : public testing::Test {
 protected:
  const CliBench bench_;
  const std::string study_ = bench_.Put("study.PCK", SoundNetwork());
};

TEST_F(Commands, CheckTellsEachFindingOnceAndWhereAWalkIsLost) {
  EXPECT_EQ(bench_.Run({"check", study_}).out,
            "... Οι Ονομασίες των Τμημάτων ΔΕΝ δείχνουν να έχουν πρόβλημα ...\n");
  const std::string lost =
      bench_.Put("lost.PCK", Lines{"ANT/1 1m", "1/2 1m 9 l/h soma 1mm", "7/ANT 1m", "ANT/ΑΝΤ 1m"});
  const Told told = bench_.Run({"check", lost});
  EXPECT_EQ(told.code, 4);
  EXPECT_EQ(told.out,
            "Ο Κλάδος του Σώματος στο Τμήμα 2 χάνεται στον Κόμβο 2\n"
            "Το Τμήμα 2 έχει ανύπαρκτο Τελικό Κόμβο !!\n"
            "Το Τμήμα 4 έχει ανύπαρκτο Τελικό Κόμβο !!\n"
            "Το Τμήμα 3 έχει ανύπαρκτο Αρχικό Κόμβο !!\n"
            "Το Τμήμα 4 γράφει το ANT με Ελληνικά γράμματα !!\n");
}

TEST_F(Commands, ShowTellsWhatIsInTheFile) {
  const Told told = bench_.Run({"show", study_});
  EXPECT_EQ(told.code, 0);
  EXPECT_EQ(told.out.substr(told.out.find("\n\n") + 2), Golden("show.txt"));
  const std::string lone = bench_.Put("lone.PCK", Lines{"ANT/ANT 1m 9 l/h soma 1mm"});
  EXPECT_THAT(bench_.Run({"show", lone}).out, HasSubstr("Τμήμα με Λέβητα       : κανένα\n"));
}

TEST_F(Commands, FlowsIsTheFlowReport) {
  const Told told = bench_.Run({"flows", study_});
  EXPECT_EQ(told.code, 0);
  EXPECT_THAT(told.out, HasSubstr("Το Σώμα < 2 >, με κόμβους :   1/2   και παροχή : 300 [Lit/h]"));
  EXPECT_THAT(told.out, HasSubstr("- 6 -> κόμβοι:   4/ANT, μεταβάλλοντας την παροχή του σε : 800"));
  const std::string lost = bench_.Put("lost.PCK", Lines{"ANT/1 1m", "1/2 1m 9 l/h soma 1mm"});
  EXPECT_EQ(bench_.Run({"flows", lost}).code, 4);
}

TEST_F(Commands, ExplainAccountsForTheWholeDrop) {
  const Told told = bench_.Run({"explain", study_, "3"});
  EXPECT_EQ(told.code, 0) << told.err;
  EXPECT_EQ(told.out, Golden("explain.txt"));
  EXPECT_EQ(bench_.Run({"explain", study_, "7"}).err,
            "Δεν υπάρχει Τμήμα 7 : η μελέτη έχει 6 Τμήματα\n");
  const std::string lost = bench_.Put("lost.PCK", Lines{"ANT/1 1m", "1/2 1m 9 l/h soma 1mm"});
  EXPECT_EQ(bench_.Run({"explain", lost, "1"}).code, 4);
}

TEST_F(Commands, ExplainTellsWhoseResultsItExplains) {
  const std::string saved = bench_.Path("saved.PCK");
  const std::string sample = std::string(KALVO_SAMPLES_DIR) + "/fancoil.PCK";
  ASSERT_EQ(Kalvo({"calc", sample, "--method", "2", "--save", saved}).code, 0);
  const Told stored = Kalvo({"explain", saved, "2"});
  EXPECT_THAT(stored.out, HasSubstr("\nΑποθηκευμένα αποτελέσματα, τρόπος 2 - "));
  // The section was taken down: what fills the plant's place is named, a negative whole has no %.
  EXPECT_THAT(stored.out, HasSubstr("L4 Όρος μείωσης διαμέτρου "));
  EXPECT_THAT(stored.out, HasSubstr("\nΌρος μείωσης διαμέτρου  -381.359,40  ---\n"));
  EXPECT_THAT(stored.out, testing::Not(HasSubstr("Chiller")));
  const Told anew = Kalvo({"explain", saved, "2", "--method", "1"});
  EXPECT_THAT(anew.out, HasSubstr("\nΝέος υπολογισμός, τρόπος 1 - "));
  EXPECT_THAT(anew.out, HasSubstr("\nΛέβητας ή Chiller "));
}

TEST_F(Commands, FluidThatNoFileTellsIsNotAssumedInSilence) {
  ASSERT_TRUE(RealDisk().Remove(bench_.Path("study.LQD")).ok());
  const std::string note = "Δίπλα στη μελέτη δεν υπάρχει αρχείο υγρού (.LQD) : θεωρείται Νερό\n";
  for (const char* command : {"calc", "show"}) {
    EXPECT_EQ(bench_.Run({command, study_}).err, note);
    EXPECT_EQ(bench_.Run({command, study_, "--quiet"}).err, "");
  }
  EXPECT_EQ(bench_.Run({"explain", study_, "1"}).err, note);
  EXPECT_THAT(bench_.Run({"calc", study_, "--format", "json"}).out,
              HasSubstr("\"fluid_assumed\": true"));
}

TEST_F(Commands, WhatIsNoStudyIsToldFromOneThatIsMissing) {
  for (const std::string& path : {bench_.Path("study.LQD"), bench_.studies().string()}) {
    const Told told = bench_.Run({"calc", path});
    EXPECT_EQ(told.code, 3);
    EXPECT_THAT(told.err, HasSubstr(" μελέτη"));
    EXPECT_THAT(told.err, HasSubstr(" : " + path + "\nΔώστε το κύριο αρχείο μιας μελέτης, .PCK"));
  }
}

TEST_F(Commands, LibrariesAreListed) {
  EXPECT_EQ(bench_.Run({"pipes"}).out,
            "Νο  Σύστημα σωλήνων  Υλικό  Διάμετροι\n 1  Χαλυβδοσωλήνες   STEEL         10\n");
  EXPECT_THAT(bench_.Run({"pipes", "1"}).out, HasSubstr("\n  3  3/4             21,7  369,8"));
  EXPECT_EQ(bench_.Run({"pipes", "2"}).code, 2);
  EXPECT_EQ(bench_.Run({"pipes", "0"}).code, 2);
  std::vector<std::string> arguments = CaseLibrary();
  arguments.insert(arguments.begin(), "fluids");
  EXPECT_THAT(Kalvo(arguments).out, HasSubstr(" 4  Άλμη "));
}

TEST_F(Commands, HelpSpeaksGreekAndNamesEveryArgument) {
  const Told help = Kalvo({"--help"});
  EXPECT_EQ(help.code, 0);
  EXPECT_THAT(help.out, StartsWith("Kalvoflume: "));
  for (const char* command : {"calc", "check", "show", "flows", "outlets", "explain", "quantities",
                              "winter", "pipes", "fluids"}) {
    EXPECT_THAT(help.out, HasSubstr("\n  " + std::string(command) + " "));
    const Told told = Kalvo({command, "--help"});
    EXPECT_THAT(told.out, HasSubstr("Χρήση: kalvo " + std::string(command) + " [ΕΠΙΛΟΓΕΣ]"));
    for (const char* english : {"Options", "Positional", "Usage", "REQUIRED", "TEXT", "Print"}) {
      EXPECT_THAT(told.out, testing::Not(HasSubstr(english))) << command;
    }
  }
  const std::string calc = Kalvo({"calc", "-h"}).out;
  for (const char* option : {"ΜΕΛΕΤΗ ...", "--method 1|2", "--fixed", "--ignore-capacity",
                             "--library ΦΑΚΕΛΟΣ", "--save ΑΡΧΕΙΟ", "--overwrite",
                             "--format table|csv|json", "--units mmwg|pa", "--separators ΔΧ"}) {
    EXPECT_THAT(calc, HasSubstr(option));
  }
  EXPECT_THAT(calc, HasSubstr("\n  --save ΑΡΧΕΙΟ           Σώζει"));  // columns of characters
  EXPECT_THAT(Kalvo({"--version"}).out, testing::MatchesRegex("kalvo [0-9]+\\.[0-9]+\\.[0-9]+\n"));
}

struct Misuse {
  std::vector<std::string> arguments;
  std::string message;
};

TEST_F(Commands, WrongUseIsToldInGreek) {
  const std::vector<Misuse> kMisuses = {
      {{}, "Λείπει η εντολή\nΒοήθεια : kalvo --help\n"},
      {{"paint"}, "Άγνωστη εντολή : paint\nΒοήθεια : kalvo --help\n"},
      {{"calc"}, "Λείπει απαραίτητο όρισμα : ΜΕΛΕΤΗ\nΒοήθεια : kalvo calc --help\n"},
      {{"explain", study_}, "Λείπει απαραίτητο όρισμα : ΤΜΗΜΑ\nΒοήθεια : kalvo explain --help\n"},
      {{"explain", study_, "x"},
       "ΤΜΗΜΑ : x, δεν είναι αριθμός που γίνεται δεκτός\nΒοήθεια : kalvo explain --help\n"},
      {{"calc", study_, "--method", "3"},
       "--method : 3, επιτρέπονται 1, 2\nΒοήθεια : kalvo calc --help\n"},
      {{"calc", study_, "--format", "xml"},
       "--format : xml, επιτρέπονται table, csv, json\nΒοήθεια : kalvo calc --help\n"},
      {{"calc", study_, "--save"},
       "--save : λείπει η τιμή, δώστε ΑΡΧΕΙΟ\nΒοήθεια : kalvo calc --help\n"},
      {{"calc", study_, "--save", ""},
       "--save : λείπει η τιμή, δώστε ΑΡΧΕΙΟ\nΒοήθεια : kalvo calc --help\n"},
      {{"calc", study_, "--save", "a", "--save", "b"},
       "--save : a, b, δίνεται μόνο μία φορά\nΒοήθεια : kalvo calc --help\n"},
      {{"calc", study_, "--overwrite"},
       "--overwrite : δίνεται μόνο μαζί με --save\nΒοήθεια : kalvo calc --help\n"},
      {{"calc", study_, "--method", "1", "--fixed"},
       "Επιλογές που δεν δίνονται μαζί : --method --fixed\nΒοήθεια : kalvo calc --help\n"},
      {{"show", study_, "two"}, "Όρισμα που περισσεύει : two\nΒοήθεια : kalvo show --help\n"},
      {{"show", study_, "--wide"}, "Άγνωστη επιλογή : --wide\nΒοήθεια : kalvo show --help\n"},
      {{"pipes", "--separators", ",,"},
       "--separators : ,, , επιτρέπονται \",.\" ή \".,\"\nΒοήθεια : kalvo pipes --help\n"},
  };
  for (const Misuse& misuse : kMisuses) {
    const Told told = Kalvo(misuse.arguments);
    EXPECT_EQ(told.code, 2);
    EXPECT_EQ(told.out, "");
    EXPECT_EQ(told.err, misuse.message);
  }
}

}  // namespace
}  // namespace kalvo
