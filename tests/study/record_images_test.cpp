#include <gtest/gtest.h>

#include <string>

#include "study/fluid_row.h"
#include "study/pipe_row.h"
#include "study/row_file.h"
#include "study/section_row.h"
#include "study/stat_row.h"

namespace kalvo {
namespace {

using namespace std::string_literals;

std::string Padded(const std::string& text, std::size_t width) {
  return text + std::string(width - text.size(), ' ');
}

// Whole numbers as they stand in a file; 32-bit values of small whole numbers end in these bytes.
const std::string kOne = "\x00\x00\x80\x3F"s;
const std::string kTwo = "\x00\x00\x00\x40"s;
const std::string kThree = "\x00\x00\x40\x40"s;
const std::string kFour = "\x00\x00\x80\x40"s;
const std::string kFive = "\x00\x00\xA0\x40"s;
const std::string kSix = "\x00\x00\xC0\x40"s;
const std::string kSeven = "\x00\x00\xE0\x40"s;
const std::string kEight = "\x00\x00\x00\x41"s;
const std::string kTenth = "\xCD\xCC\xCC\x3D"s;
const std::string kMinusTenThousand = "\x00\x40\x1C\xC6"s;

template <typename Row>
std::string ImageOf(const Row& row) {
  return EncodeRows<Row>({&row, 1});
}

// Both ways: the row gives the image, and the image gives a row that gives the image again.
template <typename Row>
void ExpectImage(const Row& row, const std::string& image) {
  ASSERT_EQ(image.size(), RecordSize<Row>());
  EXPECT_EQ(ImageOf(row), image);
  EXPECT_EQ(ImageOf(DecodeRecord<Row>(image.data())), image);
}

// Every byte pattern survives reading and writing, odd numbers and unpadded texts too.
template <typename Row>
void ExpectAnyBytesSurvive() {
  for (int seed = 0; seed < 256; ++seed) {
    std::string bytes(RecordSize<Row>(), '\0');
    for (std::size_t i = 0; i < bytes.size(); ++i) {
      bytes[i] = static_cast<char>(static_cast<std::size_t>(seed) + i * 7);
    }
    ASSERT_EQ(ImageOf(DecodeRecord<Row>(bytes.data())), bytes) << seed;
  }
}

template <std::size_t N>
FixedText<N> Text(const std::string& text) {
  return FixedText<N>::FromUtf8(text);
}

const SectionRow kSection = {258,
                             258,
                             Text<51>("Μελετητής"),
                             Text<78>("Θέμα"),
                             Text<8>("u"),
                             Text<78>("STEEL"),
                             1,
                             3,
                             0,
                             -1,
                             12,
                             259,
                             0.1F,
                             4,
                             2,
                             3,
                             1,
                             MakeName("1", "2"),
                             4,
                             5,
                             6,
                             7,
                             11,
                             12,
                             13,
                             14,
                             15,
                             16,
                             17,
                             18,
                             8,
                             1,
                             Text<15>("1 1/4"),
                             2,
                             3,
                             -10000,
                             4,
                             5,
                             6,
                             7,
                             -1000,
                             8,
                             1,
                             0.1F};

const std::string kSectionImage =
    "\x02\x01\x02\x01"s + Padded("\xCC\xE5\xEB\xE5\xF4\xE7\xF4\xDE\xF2", 51) +
    Padded("\xC8\xDD\xEC\xE1", 78) + "u       " + Padded("STEEL", 78) + kOne + "\x03\x00"s +
    "\x00\x00"s + "\xFF\xFF" + "\x0C\x00"s + "\x03\x01" + kTenth + "\x04\x00"s + kTwo + kThree +
    kOne + "  1/2  " + kFour + kFive + kSix + kSeven + "\x0B\x00\x0C\x00\x0D\x00\x0E\x00"s +
    "\x0F\x00\x10\x00\x11\x00\x12\x00"s + kEight + kOne + Padded("1 1/4", 15) + kTwo + kThree +
    kMinusTenThousand + kFour + kFive + kSix + kSeven + "\x18\xFC" + kEight + kOne + kTenth;

TEST(RecordImages, SectionRowStandsInItsBytes) { ExpectImage(kSection, kSectionImage); }

TEST(RecordImages, PipeRowStandsInItsBytes) {
  ExpectImage(
      PipeRow{Text<78>("Σωλήνες"), 513, Text<30>("COPPER"), Text<12>("12x1"), 1, 2, 3, 4, 0.1F, 5},
      Padded("\xD3\xF9\xEB\xDE\xED\xE5\xF2", 78) + "\x01\x02" + Padded("COPPER", 30) +
          Padded("12x1", 12) + kOne + kTwo + kThree + kFour + kTenth + kFive);
}

TEST(RecordImages, FluidRowStandsInItsBytes) {
  ExpectImage(FluidRow{1, Text<50>("Νερό"), kComputed, 1, kComputed, 1000, 2},
              "\x01\x00"s + Padded("\xCD\xE5\xF1\xFC", 50) + kMinusTenThousand + kOne +
                  kMinusTenThousand + "\x00\x00\x7A\x44"s + kTwo);
}

TEST(RecordImages, StatRowStandsInItsBytes) {
  ExpectImage(StatRow{5, Text<51>("a"), Text<78>("b"), Text<8>("c"), Text<78>("d"), Text<12>("e"),
                      1, 2, 3, 4, 5, 6, 7, 8, 0.1F},
              "\x05\x00"s + Padded("a", 51) + Padded("b", 78) + Padded("c", 8) + Padded("d", 78) +
                  Padded("e", 12) + kOne + kTwo + kThree + kFour + kFive + kSix + kSeven + kEight +
                  kTenth);
}

TEST(RecordImages, PostponedRowStandsInItsBytes) {
  ExpectImage(PostponedRow{Text<5>("17")}, "17   ");
}

TEST(RecordImages, AnyBytesSurviveReadingAndWriting) {
  ExpectAnyBytesSurvive<SectionRow>();
  ExpectAnyBytesSurvive<PipeRow>();
  ExpectAnyBytesSurvive<FluidRow>();
  ExpectAnyBytesSurvive<StatRow>();
  ExpectAnyBytesSurvive<PostponedRow>();
}

TEST(RecordImages, NamesKeepTheirPaddingAndTextsAreCutAtTheRight) {
  EXPECT_EQ(MakeName(" 1 ", "2").bytes(), "  1/2  ");
  EXPECT_EQ(MakeName("12", "ANT").bytes(), " 12/ANT");
  EXPECT_EQ(Text<8>("123456789").bytes(), "12345678");
  EXPECT_EQ(Text<4>("Ωμέγα").Utf8(), "Ωμέγ");
}

}  // namespace
}  // namespace kalvo
