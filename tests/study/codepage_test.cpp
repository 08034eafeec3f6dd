#include "study/codepage.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

#include "study/letter_case.h"
#include "study/text_lines.h"

namespace kalvo {
namespace {

std::string AllBytes() {
  std::string bytes;
  for (int i = 0; i < 256; ++i) {
    bytes += static_cast<char>(i);
  }
  return bytes;
}

TEST(CodePage, EveryByteHasAPartnerOfItsOwn) {
  const std::string bytes = AllBytes();
  const std::string text = FromCodePage(bytes);
  EXPECT_TRUE(IsUtf8(text));
  EXPECT_EQ(CountCharacters(text), 256U);
  EXPECT_EQ(ToCodePage(text), bytes);
  std::set<char32_t> characters;
  for (std::string_view rest = text; !rest.empty();) {
    characters.insert(TakeCharacter(rest));
  }
  EXPECT_EQ(characters.size(), 256U);
}

TEST(CodePage, GreekLettersAndSignsStandAtTheirBytes) {
  EXPECT_EQ(ToCodePage("ΑΩαως"), "\xC1\xD9\xE1\xF9\xF2");
  EXPECT_EQ(ToCodePage("ΆΈΉΊΌΎΏ"), "\xA2\xB8\xB9\xBA\xBC\xBE\xBF");
  EXPECT_EQ(ToCodePage("άέήίόύώΐΰϊϋ"), "\xDC\xDD\xDE\xDF\xFC\xFD\xFE\xC0\xE0\xFA\xFB");
  EXPECT_EQ(ToCodePage("°²³½€΄"), "\xB0\xB2\xB3\xBD\x80\xB4");
}

TEST(CodePage, MicroSignAndGreekMuAreTwoCharacters) {
  EXPECT_EQ(ToCodePage("\u00B5\u03BC"), "\xB5\xEC");
  EXPECT_EQ(FromCodePage("\xB5\xEC"), "\u00B5\u03BC");
}

TEST(CodePage, WhatItLacksBecomesAQuestionMark) {
  EXPECT_EQ(ToCodePage("aé漢😀b"), "a???b");
  EXPECT_EQ(CodePageByte(U'é'), std::nullopt);
  EXPECT_EQ(CodePageByte(U'Ώ'), '\xBF');
}

TEST(CodePage, BrokenUtf8BecomesAQuestionMarkForEachByte) {
  EXPECT_EQ(ToCodePage("a\xCE"), "a?");               // cut short
  EXPECT_EQ(ToCodePage("\x80z"), "?z");               // no lead byte
  EXPECT_EQ(ToCodePage("\xC0\x80"), "??");            // overlong
  EXPECT_EQ(ToCodePage("\xED\xA0\x80"), "???");       // surrogate
  EXPECT_EQ(ToCodePage("\xF4\x90\x80\x80"), "????");  // past the last character
  EXPECT_FALSE(IsUtf8("a\xCE"));
  EXPECT_TRUE(IsUtf8("\uFFFD"));
}

TEST(LetterCase, GreekAndLatinLettersMeetWhateverTheirCase) {
  EXPECT_TRUE(EqualIgnoringCase("ΚΤΊΡΙΟ ΟΔΌΣ.PCK", "κτίριο οδός.pck"));
  EXPECT_TRUE(EqualIgnoringCase("ΆΈΉΊΌΎΏΪΫ", "άέήίόύώϊϋ"));
  EXPECT_FALSE(EqualIgnoringCase("Α", "A"));  // Greek and Latin
  EXPECT_FALSE(EqualIgnoringCase("ά", "α"));
}

TEST(TextLines, Utf8AndCodePageTextsAreBothRead) {
  const std::vector<std::string> lines = {"Ένα", "", "δύο"};
  EXPECT_EQ(SplitLines("Ένα\n\nδύο\n"), lines);
  EXPECT_EQ(SplitLines(ToCodePage("Ένα\r\n\r\nδύο")), lines);
  EXPECT_TRUE(SplitLines("").empty());
  EXPECT_EQ(Unquoted("\"α\"b\""), "α\"b");
  EXPECT_EQ(Unquoted("\""), "\"");
}

}  // namespace
}  // namespace kalvo
