#include "platform/xls/shared_strings.h"

#include <gtest/gtest.h>

#include "platform/xls/workbook_reasons.h"
#include "study/codepage.h"
#include "tests/platform/biff_stream.h"

namespace kalvo {
namespace {

Record WrittenOf(const SharedTexts& texts, std::uint32_t references) {
  std::vector<const SharedText*> all;
  for (std::size_t i = 0; i < texts.size(); ++i) all.push_back(&texts[i]);
  return WriteSharedTexts(all, references);
}

// Read off the bytes that a record and its CONTINUE records have in a file.
SharedTexts AgainOf(const Record& record) {
  std::string stream = BiffStream().Add(biff::kBof, kGlobalsBof).bytes();
  AppendRecord(stream, record);
  stream += BiffStream().Add(biff::kEof).bytes();
  return *ReadSharedTexts(ReadSubstream(stream, 0)->records[1]);
}

TEST(SharedTexts, AreReadAndWrittenByteByByte) {
  // "ab", "Ω" with a font from its first character on, "c" with four bytes of phonetic text.
  const Record record{biff::kSst,
                      BytesOf("05 00 00 00  03 00 00 00  02 00 00 61 62"
                              "  01 00 09 01 00 A9 03 00 00 06 00"
                              "  01 00 04 04 00 00 00 63 01 02 03 04"),
                      {}};
  const auto texts = ReadSharedTexts(record);
  ASSERT_TRUE(texts);
  EXPECT_EQ((*texts)[1].text, "Ω");
  EXPECT_EQ((*texts)[1].runs, BytesOf("00 00 06 00"));
  EXPECT_EQ(WrittenOf(*texts, 5), record);
}

TEST(SharedTexts, AreThereOnce) {
  SharedTexts texts;
  EXPECT_EQ(texts.Add("α"), 0U);
  EXPECT_EQ(texts.Add("β"), 1U);
  EXPECT_EQ(texts.Add("α"), 0U);
  EXPECT_EQ(texts.Append({"γ", "1234", {}}), 2U);
  EXPECT_EQ(texts.Add("γ"), 3U) << "a text with fonts of its own is another";
}

TEST(SharedTexts, AreCutWhereACellEnds) {
  SharedTexts texts;
  std::string longest;
  for (std::size_t i = 0; i < kMostCharacters; ++i) longest += "ω";
  texts.Add(longest);
  texts.Add(longest + "ψψ");
  ASSERT_EQ(texts.size(), 1U);
  EXPECT_EQ(CountCharacters(AgainOf(WrittenOf(texts, 1))[0].text), kMostCharacters);
}

// Ends of records fall on every place of a text, of its runs and its phonetic bytes.
TEST(SharedTexts, GoOnInFurtherRecords) {
  for (const std::string_view letter : {"a", "ω"}) {
    for (std::size_t shift = 0; shift < 20; ++shift) {
      SharedTexts texts;
      texts.Append({std::string(8200 + shift, 'x'), {}, {}});
      std::string text;
      for (int i = 0; i < 9000; ++i) text += letter;
      texts.Append({text, std::string(8400, 'r'), std::string(8300, 'e')});
      texts.Append({"end", {}, {}});
      const Record record = WrittenOf(texts, 3);
      std::size_t begin = 0;
      for (const std::size_t joint : record.joints) {
        EXPECT_LE(joint - begin, biff::kMostBytes);
        begin = joint;
      }
      EXPECT_LE(record.body.size() - begin, biff::kMostBytes);
      const SharedTexts again = AgainOf(record);
      ASSERT_EQ(again.size(), 3U);
      for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(again[i].text, texts[i].text) << shift;
        EXPECT_EQ(again[i].runs, texts[i].runs) << shift;
        EXPECT_EQ(again[i].extension, texts[i].extension) << shift;
      }
    }
  }
}

TEST(SharedTexts, ThatAreFewerThanToldAreRefused) {
  for (const std::string_view hex :
       {"", "01 00 00 00", "01 00 00 00 FF FF FF FF 01 00 00 61",
        "01 00 00 00 01 00 00 00 05 00 00", "01 00 00 00 01 00 00 00 01 00 04 FF FF FF FF 61"}) {
    const auto texts = ReadSharedTexts({biff::kSst, BytesOf(hex), {}});
    ASSERT_FALSE(texts) << hex;
    EXPECT_EQ(texts.error().reason, workbook_reason::kDamaged);
  }
}

}  // namespace
}  // namespace kalvo
