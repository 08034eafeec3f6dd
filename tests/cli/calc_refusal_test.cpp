// What keeps `kalvo calc` from calculating: the message, the exit code, nothing saved.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "study/fluid_row.h"
#include "tests/cli/cli_bench.h"

namespace kalvo {
namespace {

using testing::HasSubstr;
using Lines = std::vector<std::string_view>;

const Lines kBeyondLibrary = {"ANT/1 1m 90000 l/h plant", "1/ANT 1m 90000 l/h soma 100mm"};

struct Refusal {
  Lines lines;
  int code;
  const char* message;  // a part of `err`
};

const Refusal kRefusals[] = {
    {{"ANT/1 1m plant", "1/ANT 1m"},
     4,
     "  ! !   ΠΡΟΣΟΧΗ   ! ! \n!! ΔΕΝ υπάρχουν Δεδομένα για τα Σώματα !!\n"},
    {{"ANT/1 1m plant", "1/ANT 1m 0 l/h soma 100mm"},
     5,
     "  ! !  ΠΡΟΣΟΧΗ : Διακοπή των Υπολογισμών ! ! \n"
     "... Μάλλον ΔΕΝ έχετε καταχωρήσει όλα τα Σώματα ...\n"},
    {kBeyondLibrary, 4,
     "(Αν 'YES', θα καταστρατηγηθεί η επιλογή της Μέσης ταχύτητας)\n"
     "  ΟΧΙ : με --ignore-capacity οι υπολογισμοί συνεχίζονται\n"},
    {{"ANT/1 1m plant", "1/2 1m 9 l/h soma 1mm", "2/1 1m", "9/ANT 1m"},
     4,
     "περιοχή του < Κόμβου Νο : 1 > ...\nΟ Κλάδος του Σώματος στο Τμήμα 2 χάνεται στον Κόμβο 2\n"},
    {{"ANT/1 1m", "1/ANT 1m 9 l/h soma 1mm", "1/7 1m"},
     4,
     "Το Τμήμα 3 έχει ανύπαρκτο Τελικό Κόμβο !!\n"},
    {{"ΑΝΤ/1 1m", "1/ΑΝΤ 1m 9 l/h soma 1mm"},
     4,
     "Πρέπει ένα - και μόνον ένα - Τμήμα να καταλήγει στον Κόμβο ANT\n"
     "Το Τμήμα 1 γράφει το ANT με Ελληνικά γράμματα !!\n"},
};

TEST(CalcRefusal, TellsWhyAndTouchesNothing) {
  for (const Refusal& refusal : kRefusals) {
    const CliBench bench;
    const std::string study = bench.Put("study.PCK", refusal.lines);
    const FolderImage before = bench.Studies();
    const Told told = bench.Run({"calc", study, "--save", bench.Path("new.PCK")});
    EXPECT_EQ(told.code, refusal.code) << refusal.message;
    EXPECT_EQ(told.out, "") << refusal.message;
    EXPECT_THAT(told.err, HasSubstr(refusal.message));
    EXPECT_TRUE(bench.Studies() == before) << refusal.message;
  }
}

TEST(CalcRefusal, IgnoredCapacityLetsTheRunGoOn) {
  const CliBench bench;
  const std::string study = bench.Put("study.PCK", kBeyondLibrary);
  const Told told = bench.Run({"calc", study, "--ignore-capacity"});
  EXPECT_EQ(told.code, 0);
  EXPECT_EQ(told.err, "");
  // What is beyond the library is told below the results, and only there.
  const std::string quiet = bench.Run({"calc", study, "--ignore-capacity", "--quiet"}).out;
  ASSERT_TRUE(told.out.starts_with(quiet));
  EXPECT_EQ(told.out.substr(quiet.size()),
            "Τμήματα με ταχύτητα πάνω από την ταχύτητα σχεδιασμού : 1, 2\n"
            "Τμήματα με τη μεγαλύτερη διάμετρο του συστήματος : 1\n");
}

TEST(CalcRefusal, RowThousandBreaksOffTheRun) {
  const CliBench bench;
  EXPECT_EQ(bench.Run({"calc", bench.Put("ok.PCK", Chain(999))}).code, 0);
  const Told told = bench.Run({"calc", bench.Put("long.PCK", Chain(1000))});
  EXPECT_EQ(told.code, 5);
  EXPECT_THAT(told.err, HasSubstr("ΛΑΝΘΑΣΜΕΝΗ ΚΛΗΣΗ ΣΥΝΑΡΤΗΣΗΣ"));
}

TEST(CalcRefusal, FluidOfAnotherTemperature) {
  const CliBench bench;
  const std::string study = bench.Put("study.PCK", SoundNetwork());
  FluidRow fluid;
  fluid.row_number = 2;
  fluid.name = FixedText<50>::FromUtf8("Άλμη");
  fluid.mean_temperature = -10.0F;
  fluid.viscosity = 4.25F;
  fluid.density = 1180.0F;
  bench.Put("study.LQD", EncodeRows<FluidRow>(std::array{fluid}));
  Told told = bench.Run({"calc", study});
  EXPECT_EQ(told.code, 4);
  EXPECT_EQ(told.out, "");
  EXPECT_THAT(told.err, testing::StartsWith("...!! ΠΡΟΣΟΧΗ !!...\n... Η τιμή του Κινηματικού "
                                            "Ιξώδους που έχετε δώσει ...\n"));
  bench.Put("study.LQD", "");
  told = bench.Run({"calc", study});
  EXPECT_EQ(told.code, 4);
  EXPECT_THAT(told.err, HasSubstr("ΔΕΝ έχετε καθορίσει τα χαρακτηριστικά του < ρέοντος μέσου >"));
}

TEST(CalcRefusal, FixedNeedsDiametersAndNoMethod) {
  const CliBench bench;
  const std::string study = bench.Put("study.PCK", SoundNetwork());
  Told told = bench.Run({"calc", study, "--fixed"});
  EXPECT_EQ(told.code, 4);
  EXPECT_EQ(told.err, "  ! !   ΠΡΟΣΟΧΗ   ! ! \n!! ΔΕΝ υπάρχουν Αποτελέσματα !!\n");
  told = bench.Run({"calc", study, "--fixed", "--method", "1"});
  EXPECT_EQ(told.code, 2);
  EXPECT_THAT(told.err, testing::AllOf(HasSubstr("--fixed"), HasSubstr("--method")));
}

}  // namespace
}  // namespace kalvo
