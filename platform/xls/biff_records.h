#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "study/result.h"

namespace kalvo {

/// The types of the records that are known by name.
/// Source: [MS-XLS], Record Enumeration.
namespace biff {
inline constexpr std::uint16_t kFormula = 0x0006;
inline constexpr std::uint16_t kEof = 0x000A;
inline constexpr std::uint16_t kProtect = 0x0012;
inline constexpr std::uint16_t kPassword = 0x0013;
inline constexpr std::uint16_t kHeader = 0x0014;
inline constexpr std::uint16_t kFooter = 0x0015;
inline constexpr std::uint16_t kName = 0x0018;
inline constexpr std::uint16_t kVerticalPageBreaks = 0x001A;
inline constexpr std::uint16_t kHorizontalPageBreaks = 0x001B;
inline constexpr std::uint16_t kSelection = 0x001D;
inline constexpr std::uint16_t kLeftMargin = 0x0026;
inline constexpr std::uint16_t kRightMargin = 0x0027;
inline constexpr std::uint16_t kTopMargin = 0x0028;
inline constexpr std::uint16_t kBottomMargin = 0x0029;
inline constexpr std::uint16_t kPrintGrid = 0x002B;
inline constexpr std::uint16_t kFilePass = 0x002F;
inline constexpr std::uint16_t kFont = 0x0031;
inline constexpr std::uint16_t kContinue = 0x003C;
inline constexpr std::uint16_t kPane = 0x0041;
inline constexpr std::uint16_t kPls = 0x004D;
inline constexpr std::uint16_t kDefColWidth = 0x0055;
inline constexpr std::uint16_t kObjectProtect = 0x0063;
inline constexpr std::uint16_t kColInfo = 0x007D;
inline constexpr std::uint16_t kWsBool = 0x0081;
inline constexpr std::uint16_t kHCenter = 0x0083;
inline constexpr std::uint16_t kVCenter = 0x0084;
inline constexpr std::uint16_t kBoundSheet = 0x0085;
inline constexpr std::uint16_t kSort = 0x0090;
inline constexpr std::uint16_t kPalette = 0x0092;
inline constexpr std::uint16_t kStandardWidth = 0x0099;
inline constexpr std::uint16_t kFilterMode = 0x009B;
inline constexpr std::uint16_t kAutoFilterInfo = 0x009D;
inline constexpr std::uint16_t kScale = 0x00A0;
inline constexpr std::uint16_t kSetup = 0x00A1;
inline constexpr std::uint16_t kScenarios = 0x00AE;
inline constexpr std::uint16_t kMulRk = 0x00BD;
inline constexpr std::uint16_t kMulBlank = 0x00BE;
inline constexpr std::uint16_t kDbCell = 0x00D7;
inline constexpr std::uint16_t kScenarioProtect = 0x00DD;
inline constexpr std::uint16_t kXf = 0x00E0;
inline constexpr std::uint16_t kMergeCells = 0x00E5;
inline constexpr std::uint16_t kSst = 0x00FC;
inline constexpr std::uint16_t kLabelSst = 0x00FD;
inline constexpr std::uint16_t kExtSst = 0x00FF;
inline constexpr std::uint16_t kUserViewBegin = 0x01AA;
inline constexpr std::uint16_t kUserViewEnd = 0x01AB;
inline constexpr std::uint16_t kDimensions = 0x0200;
inline constexpr std::uint16_t kBlank = 0x0201;
inline constexpr std::uint16_t kNumber = 0x0203;
inline constexpr std::uint16_t kLabel = 0x0204;
inline constexpr std::uint16_t kBoolErr = 0x0205;
inline constexpr std::uint16_t kString = 0x0207;
inline constexpr std::uint16_t kRow = 0x0208;
inline constexpr std::uint16_t kIndex = 0x020B;
inline constexpr std::uint16_t kArray = 0x0221;
inline constexpr std::uint16_t kDefaultRowHeight = 0x0225;
inline constexpr std::uint16_t kTable = 0x0236;
inline constexpr std::uint16_t kWindow2 = 0x023E;
inline constexpr std::uint16_t kRk = 0x027E;
inline constexpr std::uint16_t kFormat = 0x041E;
inline constexpr std::uint16_t kSharedFormula = 0x04BC;
inline constexpr std::uint16_t kBof = 0x0809;

/// The most bytes of a record; what is longer goes on in CONTINUE records ([MS-XLS], Record).
inline constexpr std::size_t kMostBytes = 8224;
}  // namespace biff

/// A record with its CONTINUE records joined to it.
struct Record {
  std::uint16_t type = 0;
  std::string body;
  std::vector<std::size_t> joints;  ///< where in `body` a CONTINUE record began

  bool operator==(const Record&) const = default;
};

/// Appends little-endian values.
class ByteWriter {
 public:
  ByteWriter& U8(unsigned value);
  ByteWriter& U16(unsigned value);
  ByteWriter& U32(std::uint32_t value);
  ByteWriter& F64(double value);
  ByteWriter& Bytes(std::string_view bytes);

  [[nodiscard]] std::size_t size() const { return bytes_.size(); }
  /// Hands over what was written.
  std::string Take() { return std::move(bytes_); }

 private:
  std::string bytes_;
};

/// Reads little-endian values off a record. Past its end everything is 0 and ok() is false.
class RecordReader {
 public:
  explicit RecordReader(const Record& record) : record_(record) {}

  unsigned U8();
  unsigned U16();
  std::uint32_t U32();
  double F64();
  std::string_view Bytes(std::size_t count);
  void Skip(std::size_t count) { Bytes(count); }
  /// So many UTF-16 characters as UTF-8, of one byte each or `wide`. Where a CONTINUE record begins
  /// among them a byte says anew which.
  /// Source: [MS-XLS], XLUnicodeRichExtendedString.
  std::string Characters(std::size_t count, bool wide);
  /// A text with its count (of two bytes) and flags before it: XLUnicodeString ([MS-XLS]).
  std::string Text();
  /// The same with a count of one byte: ShortXLUnicodeString ([MS-XLS]).
  std::string ShortText();

  [[nodiscard]] bool ok() const { return ok_; }
  [[nodiscard]] std::size_t left() const { return record_.body.size() - at_; }

 private:
  std::uint64_t Unsigned(std::size_t bytes);
  void AppendUnits(std::u16string& units, std::size_t& count, bool wide);

  const Record& record_;
  std::size_t at_ = 0;
  std::size_t next_joint_ = 0;
  bool ok_ = true;
};

/// `utf8` in UTF-16, at most `most` units, no pair of surrogates cut in two.
std::u16string ToUtf16(std::string_view utf8, std::size_t most);
/// UTF-16 in UTF-8; a surrogate without its partner becomes U+FFFD.
std::string FromUtf16(std::u16string_view units);
/// Whether one byte for each character does.
bool FitsBytes(std::u16string_view units);

/// The records from a BOF record to the EOF record of the same level, both included, and how many
/// bytes they take.
struct Substream {
  std::vector<Record> records;
  std::size_t length = 0;
};

/// The substream that begins at `offset`. Errors, without a file: it is cut, is none, or is older
/// than BIFF8.
Result<Substream> ReadSubstream(std::string_view stream, std::size_t offset);

/// Appends a record to a stream, its CONTINUE records where its joints are.
void AppendRecord(std::string& stream, const Record& record);

}  // namespace kalvo
