#include "platform/xls/biff_records.h"

#include <gtest/gtest.h>

#include "platform/xls/workbook_reasons.h"
#include "tests/platform/biff_stream.h"

namespace kalvo {
namespace {

std::string ReasonFor(std::string_view stream) {
  const auto substream = ReadSubstream(stream, 0);
  return substream ? "(read)" : substream.error().reason;
}

TEST(BiffRecords, AreReadWithWhatContinuesThem) {
  BiffStream stream;
  stream.Add(biff::kBof, kSheetBof).Add(0x1234, "01 02 03");
  stream.Add(biff::kContinue, "04 05").Add(biff::kContinue, "06").Add(biff::kEof);
  const auto substream = ReadSubstream(stream.bytes() + "rest", 0);
  ASSERT_TRUE(substream);
  EXPECT_EQ(substream->length, stream.bytes().size());
  ASSERT_EQ(substream->records.size(), 3U);
  EXPECT_EQ(substream->records[1], (Record{0x1234, BytesOf("01 02 03 04 05 06"), {3, 5}}));
  std::string again;
  for (const Record& record : substream->records) AppendRecord(again, record);
  EXPECT_EQ(again, stream.bytes());
}

TEST(BiffRecords, OfASheetWithinASheetBelongToIt) {
  BiffStream stream;
  stream.Add(biff::kBof, kSheetBof).Add(biff::kBof, "00 06 20 00").Add(biff::kEof);
  stream.Add(biff::kEof);
  EXPECT_EQ(ReadSubstream(stream.bytes(), 0)->records.size(), 4U);
}

TEST(BiffRecords, ThatAreCutOrNoneAreRefused) {
  BiffStream stream;
  stream.Add(biff::kBof, kSheetBof).Add(0x1234, "01 02 03").Add(biff::kEof);
  for (std::size_t length = 0; length < stream.bytes().size(); ++length) {
    EXPECT_EQ(ReasonFor(stream.bytes().substr(0, length)), workbook_reason::kCut) << length;
  }
  EXPECT_EQ(ReadSubstream(stream.bytes(), 10'000).error().reason, workbook_reason::kCut);
  EXPECT_EQ(ReasonFor(BiffStream().Add(0x1234, "00").bytes()), workbook_reason::kDamaged);
  EXPECT_EQ(ReasonFor(BiffStream().Add(biff::kBof, "00 05 05 00").bytes()),
            workbook_reason::kOlder);
  EXPECT_EQ(ReasonFor(BiffStream().Add(0x0409, "00 00 10 00").bytes()), workbook_reason::kOlder);
}

TEST(BiffTexts, AreOfOneByteOrTwoForACharacter) {
  const Record record{0, BytesOf("02 00 00 41 E9  02 00 01 91 03 AC 03  01 00 42  00"), {}};
  RecordReader reader(record);
  EXPECT_EQ(reader.Text(), "Aé");
  EXPECT_EQ(reader.Text(), "Αά");
  EXPECT_EQ(reader.ShortText(), "B");
  EXPECT_EQ(reader.ShortText(), "");
  EXPECT_TRUE(reader.ok());
  reader.Text();
  EXPECT_FALSE(reader.ok());
}

// "ab" in bytes, then "Γδ" in words, then "e" in bytes.
TEST(BiffTexts, ChangeTheirWidthWhereARecordContinues) {
  const Record record{0, BytesOf("05 00 00 61 62  01 93 03 B4 03  00 65"), {5, 10}};
  RecordReader reader(record);
  EXPECT_EQ(reader.Text(), "abΓδe");
  EXPECT_TRUE(reader.ok());
  EXPECT_EQ(reader.left(), 0U);
}

TEST(BiffTexts, MayBeginWhereARecordContinues) {
  const Record record{0, BytesOf("02 00 01  00 61 62"), {3}};
  RecordReader reader(record);
  EXPECT_EQ(reader.Text(), "ab");
}

TEST(BiffTexts, LeaveNoHalfOfAPair) {
  EXPECT_EQ(FromUtf16(ToUtf16("a😀ω", 10)), "a😀ω");
  EXPECT_EQ(ToUtf16("a😀ω", 2), u"a");
  const std::u16string half(1, static_cast<char16_t>(0xD83D));
  EXPECT_EQ(FromUtf16(half + u"a"), "\uFFFDa");
  EXPECT_TRUE(FitsBytes(u"°C é"));
  EXPECT_FALSE(FitsBytes(u"ω"));
}

}  // namespace
}  // namespace kalvo
