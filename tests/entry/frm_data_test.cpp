#include "entry/frm_data.h"

#include <gtest/gtest.h>

#include "tests/entry/section_user.h"

namespace kalvo {
namespace {

const std::vector<std::string_view> kRing = {"ANT/1 5m", "1/2 5,5m 300l/h soma 800mm", "2/ANT 5m"};
const std::vector<std::string_view> kPipeTree = {"1/ANT 5m", "2/1 6m 300l/h soma 2000mm",
                                                 "3/1 7m 200l/h soma 2000mm"};

TEST(SectionForm, FromNothingToTheEmitters) {
  SectionUser user;
  user.Open();
  EXPECT_EQ(user.form->title, "ΚΑΤΑΧΩΡΗΣΗ ΔΕΔΟΜΕΝΩΝ ΤΜΗΜΑΤΩΝ ΣΩΛΗΝΩΝ");
  EXPECT_EQ(user.Shown(), "1 : ANT/1 · ");
  user.Type("5.5 - 2");
  user.Next();
  EXPECT_EQ(user.Shown(), "2 : 1/2 · 5,5");
  EXPECT_EQ(user.Numbers(), "5,5|0|2|0|0|0|0|0|0|0|0|0|0");
  EXPECT_EQ(user.form->focus(), &user.form->Txt0);
  user.Next();
  user.Type("- a 4");
  user.Run(user.form->Cmd_End);
  EXPECT_EQ(Joined(user.user.test.Names()), "ANT/1  |  1/2  |  2/ANT");
  EXPECT_EQ(user.LastScreen(), "show FrmSoma");
  EXPECT_TRUE(user.study().unsaved_changes);
  EXPECT_EQ(user.user.test.Bytes(work_file::kFirstRows), "(missing)");
}

TEST(SectionForm, GoesThroughRowsAndStoresWhatChanged) {
  SectionUser user(SystemKind::kOpen, kPipeTree);
  user.study().results_valid = true;
  user.Open();
  EXPECT_EQ(user.form->title, "ΔΙΟΡΘΩΣΗ ΔΕΔΟΜΕΝΩΝ ΤΜΗΜΑΤΩΝ ΣΩΛΗΝΩΝ");
  const std::string before = user.user.test.Bytes();
  user.Next();
  EXPECT_EQ(user.Shown(), "2 : 2/1 · 6");
  EXPECT_EQ(user.user.test.Bytes(), before) << "nothing changed, nothing written";
  EXPECT_TRUE(user.study().results_valid);
  user.TypeIn(user.form->Txt2, "9");
  user.Next();
  EXPECT_EQ(user.user.test.Row(2).Length, 9);
  EXPECT_EQ(user.user.test.Row(2).SomaDrop, 2000);
  EXPECT_FALSE(user.study().results_valid);
  EXPECT_EQ(user.form->focus(), &user.form->Txt2) << "a move keeps the field";
  user.Next();
  EXPECT_EQ(user.Shown(), "3 : 3/1 · 7") << "the last row is the last";
  user.Run(user.form->Cmd_End);
  EXPECT_EQ(user.LastScreen(), "show FrmMain");
}

}  // namespace
}  // namespace kalvo
