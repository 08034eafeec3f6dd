#include "entry/general/frm_gen_data.h"

#include <gtest/gtest.h>

#include "study/fluid_library.h"
#include "tests/support/test_desk.h"

namespace kalvo {
namespace {

using Floats = std::vector<float>;
using Numbers = std::vector<std::int16_t>;

struct GeneralDataForm : TestDesk, ::testing::Test {
  GeneralDataForm() {
    test.PutNetwork({"ANT/1 10m plant", "1/2 5m soma 1200 l/h 300mm", "1/3 6m soma 800 l/h 300mm"});
    test.study.MeanTemp = 12.5F;
    test.study.MeanVel = 0.75F;
    test.study.plant_section = 1;
    test.study.results_valid = true;
    for (int number = 1; number <= 3; ++number) {
      test.ChangeRow(number, [](SectionRow& row) { row.MeanTemp = 12.5F, row.MeanVel = 0.75F; });
    }
  }
  void Open() {
    form.Load();
    form.Derive();
  }
  void ExpectUntouched() {
    EXPECT_TRUE(test.study.results_valid);
    EXPECT_FALSE(test.study.unsaved_changes);
  }
  FrmGenData form{desk};
};

TEST_F(GeneralDataForm, ShowsTheStudyAndItsFluid) {
  Open();
  EXPECT_EQ(form.CboPipes.selected, 0);
  EXPECT_EQ(form.LblMaterial.text, "Υλικό Σωλήνων : ΧΑΛΥΒΑΣ");
  EXPECT_EQ(form.Text2.text, "2,0") << "the emitters' flow while nothing is calculated";
  EXPECT_EQ(form.Text4.text, "12,5");
  EXPECT_EQ(form.Text6.text, "0,8");
  EXPECT_EQ(form.Text8.text, "1");
  EXPECT_EQ(form.Text10.text, "3");
  EXPECT_EQ(form.Text11.text, "Ρέον Μέσον : Νερό");
  EXPECT_EQ(form.Text12.text, "Μέση Θερμοκρασία (°C) : 12,5");
  EXPECT_EQ(form.Text13.text,
            "Πυκνότης Μέσου (Kg/m³) : ΘΑ ΥΠΟΛΟΓΙΣΘΕΙ ΚΑΤΑ ΤΗ ΦΑΣΗ ΤΩΝ ΥΠΟΛΟΓΙΣΜΩΝ");

  ASSERT_TRUE(WriteStudyFluid(test.bench, (*ReadFluids(test.workspace))[1]).ok());
  FrmGenData other(desk);
  other.Load();
  EXPECT_EQ(other.Text12.text, "Μέση Θερμοκρασία (°C) : -6");
  EXPECT_EQ(other.Text14.text, "Κινηματικό Ιξώδες (cSt) : 0,00085");
}

TEST_F(GeneralDataForm, BeginsEmptyForANewStudy) {
  test.study.MeanTemp = test.study.MeanVel = 0;
  test.study.plant_section = test.study.SectionCount = 0;
  ASSERT_TRUE(test.workspace.Write(work_file::kRows, "").ok());
  ASSERT_TRUE(test.workspace.Write(work_file::kFluid, "").ok());
  ASSERT_TRUE(test.workspace.Write(work_file::kGeneralData, "1,2,3,4,5\n").ok());
  Open();
  EXPECT_EQ(form.Text2.text, "ΘΑ ΥΠΟΛ.");
  EXPECT_EQ(form.Text4.text, "");
  EXPECT_EQ(form.Text10.text, "ΘΑ ΥΠΟΛ.");
  EXPECT_EQ(form.Text12.text, "Μέση Θερμοκρασία (°C) : ΘΑ ΚΑΤΑΧΩΡΗΘΕΙ ΚΑΤΩΤΕΡΩ");
  EXPECT_FALSE(form.ChkChiller.on);
  EXPECT_TRUE(form.Text8.locked);
  for (const char* gone : {work_file::kRows, work_file::kFluid, work_file::kGeneralData}) {
    EXPECT_FALSE(test.workspace.Exists(gone)) << gone;
  }
  TypeInto(form, form.Text4, "0");
  TypeInto(form, form.Text6, "4,5");
  form.Press(Ctrl(KeyCode::kEnter));
  EXPECT_TRUE(test.prompter.codes().empty()) << "zero degrees pass when they are typed";
  EXPECT_EQ(test.study.MeanVel, 4.5F);
  ExpectUntouched();
}

TEST_F(GeneralDataForm, NotesWhatItOpenedWith) {
  test.study.TotalFlowM3h = 3.25F;
  Open();
  EXPECT_EQ(test.Bytes(work_file::kGeneralData), "3.25,12.5,0.75,1,1\n");
}

TEST_F(GeneralDataForm, AcceptedUntouchedItChangesNothing) {
  Open();
  form.MoveFocus(&form.Text6);
  const std::string rows = test.Bytes();
  Click(form, form.Cmd_Back);
  EXPECT_EQ(test.study.MeanVel, 0.75F) << "0,8 is only how it is shown";
  EXPECT_EQ(test.study.TotalFlowM3h, 0.0F) << "a sum that is shown is not stored";
  EXPECT_EQ(test.Bytes(), rows);
  ExpectUntouched();
  EXPECT_EQ(navigator.log.back(), "close FrmGenData");
}

TEST_F(GeneralDataForm, CarriesAChangeIntoEveryRow) {
  Open();
  TypeInto(form, form.Text4, "45");
  TypeInto(form, form.Text8, "2");
  form.CboPipes.Select(1);
  Click(form, form.Cmd_Back);
  EXPECT_EQ(test.Column(&SectionRow::MeanTemp), Floats({45, 45, 45}));
  EXPECT_EQ(test.Column(&SectionRow::MeanVel), Floats({0.75F, 0.75F, 0.75F}));
  EXPECT_EQ(test.Column(&SectionRow::FileNumber), Numbers({2, 2, 2}));
  EXPECT_EQ(test.Column(&SectionRow::Auxi), Numbers({0, 2, 0}));
  EXPECT_EQ(test.study.plant_section, 2);
  EXPECT_EQ(test.study.pipe_material, "COPPER");
  EXPECT_FALSE(test.study.results_valid);
  EXPECT_TRUE(test.study.unsaved_changes);
}

TEST_F(GeneralDataForm, AMissingNoteCountsAsAChange) {
  Open();
  test.workspace.Delete(work_file::kGeneralData);
  Click(form, form.Cmd_Back);
  EXPECT_EQ(test.Column(&SectionRow::Auxi), Numbers({1, 0, 0}));
  EXPECT_FALSE(test.study.results_valid);
}

TEST_F(GeneralDataForm, LeavingStoresNothing) {
  for (const bool by_box : {false, true}) {
    Open();
    TypeInto(form, form.Text6, "2");
    form.CboPipes.Select(1);
    EXPECT_EQ(test.study.pipe_system_number, 2) << "the main menu follows at once";
    if (by_box) {
      EXPECT_TRUE(form.MayClose());
    } else {
      form.Press(Plain(KeyCode::kEscape));
    }
    EXPECT_EQ(test.study.pipe_system_number, 1);
    EXPECT_EQ(test.study.pipe_material, "STEEL");
    EXPECT_EQ(test.study.MeanVel, 0.75F);
    ExpectUntouched();
  }
}

TEST_F(GeneralDataForm, KeepsTheFocusOnAValueOutsideItsLimits) {
  Open();
  TypeInto(form, form.Text4, "100,5");
  EXPECT_FALSE(form.MoveFocus(&form.Text6));
  EXPECT_EQ(form.Text4.text, "");
  TypeInto(form, form.Text4, "100");
  TypeInto(form, form.Text6, "5,1");
  form.Press(Plain(KeyCode::kEnter));
  EXPECT_EQ(form.focus(), &form.Text6);
  TypeInto(form, form.Text6, "0");
  Click(form, form.Cmd_Back);
  EXPECT_EQ(test.prompter.codes(), (std::vector{20, 21, 21}));
  TypeInto(form, form.Text6, "5");
  EXPECT_TRUE(form.MoveFocus(&form.Text4));
  EXPECT_TRUE(navigator.log.empty());
}

TEST_F(GeneralDataForm, TellsWhatIsMissingInItsField) {
  Open();
  TypeInto(form, form.Text4, "");
  Click(form, form.Cmd_Back);
  EXPECT_EQ(form.focus(), &form.Text4);
  TypeInto(form, form.Text4, "20");
  TypeInto(form, form.Text8, "");
  Click(form, form.Cmd_Back);
  EXPECT_EQ(form.focus(), &form.Text8);
  test.study.MeanTemp = test.study.MeanVel = 0;
  FrmGenData fresh(desk);
  fresh.Load();
  TypeInto(fresh, fresh.Text4, "20");
  Click(fresh, fresh.Cmd_Back);
  EXPECT_EQ(test.prompter.codes(), (std::vector{3, 5, 4}));
  EXPECT_TRUE(navigator.log.empty());
}

TEST_F(GeneralDataForm, RefusesAPlantPastTheLastSectionUnlessItWasThereBefore) {
  Open();
  TypeInto(form, form.Text8, "4");
  Click(form, form.Cmd_Back);
  EXPECT_EQ(test.prompter.codes(), std::vector{400});
  EXPECT_EQ(form.focus(), &form.Text8);
  EXPECT_EQ(test.study.plant_section, 1);
  ExpectUntouched();
  TypeInto(form, form.Text8, "3");
  Click(form, form.Cmd_Back);
  EXPECT_EQ(test.Column(&SectionRow::Auxi), Numbers({0, 0, 2}));

  test.study.plant_section = 9;
  FrmGenData standing(desk);
  standing.Load();
  TypeInto(standing, standing.Text4, "30");
  Click(standing, standing.Cmd_Back);
  EXPECT_EQ(test.study.plant_section, 9);

  test.study.plant_section = 0;
  test.workspace.Delete(work_file::kRows);
  FrmGenData without_rows(desk);
  without_rows.Load();
  without_rows.ChkChiller.Set(true);
  TypeInto(without_rows, without_rows.Text8, "12");
  Click(without_rows, without_rows.Cmd_Back);
  EXPECT_EQ(test.study.plant_section, 12);
  EXPECT_EQ(test.prompter.codes(), std::vector{400});
}

TEST_F(GeneralDataForm, EnterLeadsThroughTheFieldsAndTurnsTheOption) {
  Open();
  const Key enter = Plain(KeyCode::kEnter);
  for (Control* next : std::initializer_list<Control*>{&form.Text6, &form.Text8, &form.Cmd_Back}) {
    form.Press(enter);
    EXPECT_EQ(form.focus(), next);
  }
  form.MoveFocus(&form.ChkChiller);
  EXPECT_TRUE(form.Press(Typed(U'x')));
  form.Press(enter);
  EXPECT_FALSE(form.ChkChiller.on);
  EXPECT_EQ(form.Text8.text, "");
  EXPECT_FALSE(form.Text8.CanEdit());
  form.MoveFocus(&form.Text6);
  form.Press(enter);
  EXPECT_EQ(form.focus(), &form.Cmd_Back);
  form.MoveFocus(&form.ChkChiller);
  form.Press(enter);
  EXPECT_EQ(form.focus(), &form.Text8);
  form.ChkChiller.Set(false);
  Click(form, form.Cmd_Back);
  EXPECT_EQ(test.study.plant_section, 0);
  EXPECT_EQ(test.Column(&SectionRow::Auxi), Numbers({0, 0, 0}));
}

TEST_F(GeneralDataForm, AnOpenSystemHasNoPlant) {
  test.study.system_kind = SystemKind::kOpen;
  test.study.plant_section = 0;
  Open();
  EXPECT_FALSE(form.ChkChiller.visible);
  EXPECT_FALSE(form.Text8.visible);
  Click(form, form.Cmd_Back);
  EXPECT_EQ(test.study.plant_section, 0);
}

}  // namespace
}  // namespace kalvo
