#include "study/unicode_form.h"

#include <gtest/gtest.h>

#include "tests/support/sample_study.h"

namespace kalvo {
namespace {

// "Κτίριο" with its accent as a mark of its own.
const std::string kApart = "Κτι\u0301ριο";

TEST(UnicodeForm, MarksGoIntoTheirLetters) {
  EXPECT_EQ(ComposedForm(kApart), "Κτίριο");
  EXPECT_EQ(ComposedForm("Α\u0301 ι\u0308\u0301 υ\u0308 cafe\u0301 n\u0303"), "Ά ΐ ϋ café ñ");
  EXPECT_EQ(ComposedForm("\u0301χ\u0301"), "\u0301χ\u0301") << "no letter that takes the mark";
  EXPECT_EQ(ComposedForm("Κτίριο 1"), "Κτίριο 1");
  EXPECT_EQ(ComposedForm("Κτ\u1F77ριο \u2126 ι\u0308\u0341"), "Κτίριο Ω ΐ") << "twins of the same";
}

TEST(UnicodeForm, StudiesAreFoundInEitherFormWithTheirCompanions) {
  for (const auto& [on_disk, asked] :
       {std::pair(kApart, std::string("Κτίριο")), std::pair(std::string("ΚΤΊΡΙΟ"), kApart)}) {
    TestBench bench;
    SaveSample(bench, on_disk + ".PCK", "Σχολείο");
    ASSERT_TRUE(Load(bench, asked + ".pck"));
    EXPECT_EQ(bench.study.study_short_name, on_disk + ".PCK");
    EXPECT_EQ(bench.study.fluid_name, "Σχολείο");
    EXPECT_TRUE(bench.workspace.Exists(work_file::kWinter));
  }
}

}  // namespace
}  // namespace kalvo
