#include "entry/general/frm_liquid.h"

#include <gtest/gtest.h>

#include "study/fluid_library.h"
#include "tests/support/test_desk.h"

namespace kalvo {
namespace {

constexpr const char* kGlycol = "Διάλυμα 25% Προπυλενικής Γλυκόλης σε Νερό";
constexpr const char* kAttention = "  ! !   ΠΡΟΣΟΧΗ   ! ! ";

struct FluidForm : TestDesk, ::testing::Test {
  FluidForm() { form.Load(); }
  FrmLiquid form{desk};

  [[nodiscard]] std::string StudyFluid() const {
    const auto rows = test.workspace.Rows<FluidRow>(work_file::kFluid).ReadAll();
    return rows && !rows->empty() ? rows->front().name.Utf8() : "(none)";
  }
  [[nodiscard]] std::string LastLine() const { return test.prompter.boxes().back().lines.back(); }
  [[nodiscard]] FluidRow InLibrary(int number) const {
    return (*ReadFluids(test.workspace))[static_cast<std::size_t>(number - 1)];
  }
  /// A study that was made with another library.
  void PutForeignFluid() {
    FluidRow brine;
    brine.name = FixedText<50>::FromUtf8("Άλμη");
    brine.row_number = 7;
    brine.mean_temperature = -5;
    brine.density = 1045.5F;
    brine.viscosity = 3.2F;
    ASSERT_TRUE(WriteStudyFluid(test.bench, brine).ok());
    test.study.fluid_name = "Άλμη";
    form.Load();
  }
  void TypeNewFluid(std::string_view name) {
    Click(form, form.CmdNewLiquid);
    TypeInto(form, form.TxtNewLiquid, name);
    TypeInto(form, form.TxtMeanT, "-5");
    TypeInto(form, form.TxtDensity, "1045,5");
    TypeInto(form, form.Txtnee, "3,2");
  }
};

TEST_F(FluidForm, ShowsWaterLockedAndOtherFluidsOpen) {
  EXPECT_EQ(form.LstLiquid.lines()[0], "Νερό");
  EXPECT_EQ(form.LstLiquid.selected, 0);
  EXPECT_TRUE(form.TxtMeanT.locked);
  EXPECT_FALSE(form.TxtMeanT.enabled);
  EXPECT_EQ(form.TxtDensity.text, "");
  form.LstLiquid.Select(1);
  EXPECT_FALSE(form.TxtMeanT.locked);
  EXPECT_EQ(form.TxtMeanT.text, "-6");
  EXPECT_EQ(form.Txtnee.text, "0,00085");
  EXPECT_EQ(test.study.fluid_name, "Νερό") << "looking is not choosing";
}

TEST_F(FluidForm, WithoutALibraryThatCanBeReadThereIsNothingToTypeOrChoose) {
  const auto library = std::filesystem::path(TestBench::kLibraryFolder) / work_file::kFluids;
  for (const std::string& bytes : {std::string(100, 'x'), std::string()}) {
    ASSERT_TRUE(test.outer_disk.Write(library, bytes).ok());
    FrmLiquid broken(desk);
    broken.Load();
    EXPECT_TRUE(broken.TxtMeanT.locked);
    TypeInto(broken, broken.TxtMeanT, "5");
    Click(broken, broken.CmdOK);
    Click(broken, broken.CmdNewLiquid);
    EXPECT_NE(LastLine().find("είναι κενή ή δεν διαβάζεται"), std::string::npos);
    EXPECT_FALSE(broken.TxtNewLiquid.visible);
    EXPECT_TRUE(broken.MayClose());
    EXPECT_EQ(*test.outer_disk.Read(library), bytes);
  }
}

TEST_F(FluidForm, TakesOnlyTheKeysOfAField) {
  form.LstLiquid.Select(1);
  TypeInto(form, form.TxtMeanT, "-1,5a2");
  EXPECT_EQ(form.TxtMeanT.text, "-152");
  TypeInto(form, form.TxtDensity, "-10.5");
  EXPECT_EQ(form.TxtDensity.text, "10,5");
  EXPECT_FALSE(PasteInto(form, form.TxtDensity, "12 kg"));
  EXPECT_EQ(form.TxtDensity.text, "10,5");
}

TEST_F(FluidForm, RefusesTwoDecimalSeparatorsAndStays) {
  form.LstLiquid.Select(1);
  TypeInto(form, form.TxtDensity, "1,0,5");
  EXPECT_FALSE(form.MoveFocus(&form.Txtnee));
  EXPECT_EQ(test.prompter.codes(), std::vector{110});
  EXPECT_EQ(form.TxtDensity.text, "");
  EXPECT_EQ(form.focus(), &form.TxtDensity);
}

TEST_F(FluidForm, EnterGoesThroughTheFieldsOfANewFluid) {
  Click(form, form.CmdNewLiquid);
  EXPECT_EQ(form.CmdNewLiquid.caption, "Α-Κ-Υ-Ρ-Ω-Σ-Η");
  EXPECT_EQ(form.focus(), &form.TxtNewLiquid);
  form.Press(Plain(KeyCode::kEnter));
  EXPECT_EQ(form.focus(), &form.TxtNewLiquid) << "a name is needed first";
  TypeInto(form, form.TxtNewLiquid, "Άλμη");
  for (Control* next : std::initializer_list<Control*>{&form.TxtMeanT, &form.TxtDensity,
                                                       &form.Txtnee, &form.CmdOK}) {
    form.Press(Plain(KeyCode::kEnter));
    EXPECT_EQ(form.focus(), next);
  }
}

TEST_F(FluidForm, SavesANewFluidAndAcceptsItIntoTheStudy) {
  test.study.results_valid = true;
  TypeNewFluid("Άλμη");
  Click(form, form.CmdOK);
  EXPECT_EQ(StudyFluid(), "Νερό") << "a new fluid must be saved first";
  EXPECT_NE(LastLine().find("< Αποθήκευση Υγρού >"), std::string::npos);
  test.prompter.Expect(kAttention, Answer::kYes);
  Click(form, form.CmdSave);
  EXPECT_EQ(form.LstLiquid.lines().back(), "Άλμη");
  EXPECT_EQ(form.LstLiquid.selected, 2);
  EXPECT_EQ(form.TxtDensity.text, "1045,5");
  EXPECT_TRUE(test.study.results_valid);

  test.prompter.Expect(kAttention, Answer::kYes);
  Click(form, form.CmdOK);
  EXPECT_EQ(StudyFluid(), "Άλμη");
  EXPECT_EQ(test.study.fluid_name, "Άλμη");
  EXPECT_FALSE(test.study.results_valid);
  EXPECT_TRUE(test.study.unsaved_changes);
  EXPECT_EQ(navigator.log.back(), "close FrmLiquid");
}

TEST_F(FluidForm, AskingAndRefusingChangeNothing) {
  test.study.results_valid = true;
  form.LstLiquid.Select(1);
  test.prompter.Expect(kAttention, Answer::kNo);
  Click(form, form.CmdOK);
  test.prompter.Expect(kAttention, Answer::kNo);
  Click(form, form.CmdDelete);
  test.prompter.Expect(kAttention, Answer::kNo);
  TypeInto(form, form.TxtDensity, "900");
  Click(form, form.CmdSave);
  EXPECT_EQ(StudyFluid(), "Νερό");
  EXPECT_EQ((*ReadFluids(test.workspace))[1].density, 1260.0F);
  EXPECT_TRUE(test.study.results_valid);
  EXPECT_TRUE(navigator.log.empty());
}

TEST_F(FluidForm, TellsWhatIsMissingAndLeavesWaterAlone) {
  Click(form, form.CmdNewLiquid);
  Click(form, form.CmdSave);
  ASSERT_EQ(test.prompter.boxes().size(), 1U);
  EXPECT_EQ(test.prompter.boxes()[0].lines[0], "... ΕΛΛΙΠΗ ΣΤΟΙΧΕΙΑ ΡΕΟΝΤΟΣ ΜΕΣΟΥ");
  Click(form, form.CmdNewLiquid);
  Click(form, form.CmdDelete);
  EXPECT_EQ(ReadFluids(test.workspace)->size(), 2U);
}

TEST_F(FluidForm, TellsWhenTheStudysFluidHasChangedInTheLibrary) {
  form.LstLiquid.Select(1);
  test.prompter.Expect(kAttention, Answer::kYes);
  Click(form, form.CmdOK);
  test.study.results_valid = true;
  FluidRow glycol = (*ReadFluids(test.workspace))[1];
  glycol.viscosity = 2.0F;
  ASSERT_TRUE(SaveFluid(test.workspace, glycol).ok());

  FrmLiquid again(desk);
  again.Load();
  EXPECT_EQ(again.LstLiquid.lines()[static_cast<std::size_t>(again.LstLiquid.selected)], kGlycol);
  Click(again, again.CmdOK);
  EXPECT_EQ(test.prompter.boxes().back().title, "...! Π Ρ Ο Σ Ο Χ Η !...");
  EXPECT_FALSE(test.study.results_valid);
  EXPECT_EQ(test.workspace.Rows<FluidRow>(work_file::kFluid).Read(1)->viscosity, 2.0F);
}

TEST_F(FluidForm, ShowsAFluidThatTheLibraryLacksFromTheStudyAndAddsIt) {
  PutForeignFluid();
  test.study.results_valid = true;
  EXPECT_EQ(Joined(form.LstLiquid.lines()),
            "Νερό|" + std::string(kGlycol) + "|Άλμη  (μόνο στη μελέτη)");
  EXPECT_EQ(form.LstLiquid.selected, 2);
  EXPECT_EQ(form.TxtDensity.text, "1045,5");
  EXPECT_TRUE(form.LblNote.visible);
  Click(form, form.CmdDelete);
  EXPECT_EQ(LastLine(), "... Το υγρό αυτό ΔΕΝ υπάρχει στη βιβλιοθήκη ...");
  Click(form, form.CmdOK);
  EXPECT_EQ(StudyFluid(), "Άλμη");
  EXPECT_TRUE(test.study.results_valid) << "the study keeps what it had";

  form.LstLiquid.Select(1);
  form.LstLiquid.Select(2);
  test.prompter.Expect(kAttention, Answer::kYes);
  Click(form, form.CmdSave);
  EXPECT_EQ(form.LstLiquid.lines()[2], "Άλμη");
  EXPECT_EQ(InLibrary(3).row_number, 3);
  EXPECT_EQ(InLibrary(3).viscosity, 3.2F);
}

TEST_F(FluidForm, RefusesANameInUse) {
  PutForeignFluid();
  for (const char* name : {"νερό", "ΆΛΜΗ"}) {
    TypeNewFluid(name);
    Click(form, form.CmdSave);
    EXPECT_EQ(LastLine(), "... Υπάρχει - ήδη - υγρό με το όνομα < " + std::string(name) + " > ...");
    EXPECT_EQ(form.focus(), &form.TxtNewLiquid);
    test.prompter.Expect(kAttention, Answer::kNo);
    Click(form, form.CmdNewLiquid);
  }
  EXPECT_EQ(ReadFluids(test.workspace)->size(), 2U);
}

TEST_F(FluidForm, AsksAboutValuesThatAreNotStored) {
  form.LstLiquid.Select(1);
  TypeInto(form, form.TxtDensity, "1050");
  for (Command* leaving : {&form.CmdCancel, &form.CmdOK, &form.CmdNewLiquid}) {
    test.prompter.Expect(kAttention, Answer::kCancel);
    Click(form, *leaving);
  }
  test.prompter.Expect(kAttention, Answer::kCancel);
  EXPECT_FALSE(form.MayClose());
  test.prompter.Expect(kAttention, Answer::kCancel);
  form.LstLiquid.Select(0);
  EXPECT_EQ(form.LstLiquid.selected, 1);
  EXPECT_EQ(form.TxtDensity.text, "1050");
  EXPECT_EQ(StudyFluid(), "Νερό");

  test.prompter.Expect(kAttention, Answer::kYes);
  form.LstLiquid.Select(0);
  EXPECT_EQ(form.LstLiquid.selected, 0);
  EXPECT_EQ(InLibrary(2).density, 1050.0F);

  form.LstLiquid.Select(1);
  TypeInto(form, form.TxtDensity, "900");
  test.prompter.Expect(kAttention, Answer::kNo);
  Click(form, form.CmdCancel);
  EXPECT_EQ(InLibrary(2).density, 1050.0F);
  EXPECT_EQ(navigator.log.back(), "close FrmLiquid");

  TypeNewFluid("Άλμη");
  test.prompter.Expect(kAttention, Answer::kYes);
  EXPECT_TRUE(form.MayClose());
  EXPECT_EQ(InLibrary(3).density, 1045.5F);
}

TEST_F(FluidForm, DeletesAFluidAndSelectsWater) {
  form.LstLiquid.Select(1);
  test.prompter.Expect(kAttention, Answer::kYes);
  form.Press(Ctrl(KeyCode::kDelete));
  EXPECT_EQ(form.LstLiquid.lines(), std::vector<std::string>{"Νερό"});
  EXPECT_EQ(form.LstLiquid.selected, 0);
  EXPECT_TRUE(form.TxtDensity.locked);
}

}  // namespace
}  // namespace kalvo
