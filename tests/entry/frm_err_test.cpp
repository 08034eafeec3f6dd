#include "entry/general/frm_err.h"

#include <gtest/gtest.h>

#include "tests/support/test_desk.h"

namespace kalvo {
namespace {

TEST(MissingValuesForm, TakesTheFindingsOverAndShowsTheirCopy) {
  TestDesk user;
  user.desk.state_folder = "/state";
  ASSERT_TRUE(user.test.workspace.Write(work_file::kErrors, "πρώτο\r\nδεύτερο\r\n").ok());
  FrmERR form(user.desk);
  form.Load();
  EXPECT_EQ(form.LstERR.lines(), (std::vector<std::string>{"πρώτο", "δεύτερο"}));
  EXPECT_FALSE(user.test.workspace.Exists(work_file::kErrors));
  EXPECT_EQ(*user.test.outer_disk.Read("/state/~vamo_P.txt"), "πρώτο\nδεύτερο\n");
  Click(form, form.Cmd_Print);
  EXPECT_EQ(user.viewer.files, std::vector<std::filesystem::path>{"/state/~vamo_P.txt"});
  FrmERR without_findings(user.desk);
  without_findings.Load();
  const std::size_t told = user.test.prompter.boxes().size();
  Click(without_findings, without_findings.Cmd_Print);
  EXPECT_EQ(user.test.prompter.boxes().size(), told + 1) << "an older copy is not shown for it";
  EXPECT_EQ(user.viewer.files.size(), 1U);
  form.Press(Plain(KeyCode::kEscape));
  EXPECT_EQ(user.navigator.log.back(), "close FrmERR");
}

}  // namespace
}  // namespace kalvo
