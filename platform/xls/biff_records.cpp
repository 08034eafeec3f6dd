#include "platform/xls/biff_records.h"

#include <algorithm>
#include <bit>

#include "platform/xls/workbook_reasons.h"
#include "study/codepage.h"

namespace kalvo {

namespace {

constexpr std::size_t kHeadBytes = 4;  // type and length
constexpr unsigned kBiff8 = 0x0600;

unsigned WordAt(std::string_view bytes, std::size_t at) {
  return static_cast<unsigned char>(bytes[at]) |
         static_cast<unsigned>(static_cast<unsigned char>(bytes[at + 1])) << 8U;
}

void AppendPart(std::string& stream, unsigned type, std::string_view part) {
  ByteWriter head;
  head.U16(type).U16(static_cast<unsigned>(part.size()));
  stream += head.Take();
  stream += part;
}

// Why a record cannot begin a substream of a workbook that is read; empty when it can.
std::string_view ReasonAgainstBof(const Record& record) {
  // In the versions before BIFF5 the type of this record is another.
  const unsigned type = record.type;
  if (type == 0x0009 || type == 0x0209 || type == 0x0409) return workbook_reason::kOlder;
  if (type != biff::kBof || record.body.size() < 4) return workbook_reason::kDamaged;
  return WordAt(record.body, 0) == kBiff8 ? std::string_view() : workbook_reason::kOlder;
}

constexpr bool IsHighSurrogate(char16_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
constexpr bool IsLowSurrogate(char16_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

}  // namespace

ByteWriter& ByteWriter::U8(unsigned value) {
  bytes_ += static_cast<char>(value & 0xFFU);
  return *this;
}

ByteWriter& ByteWriter::U16(unsigned value) { return U8(value).U8(value >> 8U); }

ByteWriter& ByteWriter::U32(std::uint32_t value) { return U16(value).U16(value >> 16U); }

ByteWriter& ByteWriter::F64(double value) {
  const auto bits = std::bit_cast<std::uint64_t>(value);
  return U32(static_cast<std::uint32_t>(bits)).U32(static_cast<std::uint32_t>(bits >> 32U));
}

ByteWriter& ByteWriter::Bytes(std::string_view bytes) {
  bytes_ += bytes;
  return *this;
}

std::uint64_t RecordReader::Unsigned(std::size_t bytes) {
  std::uint64_t value = 0;
  unsigned shift = 0;
  for (const char byte : Bytes(bytes)) {
    value |= std::uint64_t{static_cast<unsigned char>(byte)} << shift;
    shift += 8;
  }
  return value;
}

unsigned RecordReader::U8() { return static_cast<unsigned>(Unsigned(1)); }
unsigned RecordReader::U16() { return static_cast<unsigned>(Unsigned(2)); }
std::uint32_t RecordReader::U32() { return static_cast<std::uint32_t>(Unsigned(4)); }
double RecordReader::F64() { return std::bit_cast<double>(Unsigned(8)); }

std::string_view RecordReader::Bytes(std::size_t count) {
  if (count > left()) {
    ok_ = false;
    at_ = record_.body.size();
    return {};
  }
  const std::string_view bytes = std::string_view(record_.body).substr(at_, count);
  at_ += count;
  return bytes;
}

// Appends the characters up to the next joint, at most `count`, which is lowered by them.
void RecordReader::AppendUnits(std::u16string& units, std::size_t& count, bool wide) {
  const auto& joints = record_.joints;
  while (next_joint_ < joints.size() && joints[next_joint_] < at_) ++next_joint_;
  const std::size_t end = next_joint_ < joints.size() ? joints[next_joint_] : record_.body.size();
  const std::size_t width = wide ? 2 : 1;
  const std::size_t taken = std::min(count, (end - at_) / width);
  const std::string_view bytes = Bytes(taken * width);
  for (std::size_t i = 0; i < bytes.size(); i += width) {
    units += static_cast<char16_t>(wide ? WordAt(bytes, i) : static_cast<unsigned char>(bytes[i]));
  }
  count -= taken;
}

std::string RecordReader::Characters(std::size_t count, bool wide) {
  std::u16string units;
  AppendUnits(units, count, wide);
  while (count > 0 && ok_) {
    const bool at_joint = next_joint_ < record_.joints.size() && record_.joints[next_joint_] == at_;
    if (!at_joint) {
      ok_ = false;
      break;
    }
    const bool wide_again = (U8() & 1U) != 0;
    AppendUnits(units, count, wide_again);
  }
  return FromUtf16(units);
}

std::string RecordReader::Text() {
  const unsigned count = U16();
  const unsigned flags = count > 0 || left() > 0 ? U8() : 0;
  return Characters(count, (flags & 1U) != 0);
}

std::string RecordReader::ShortText() {
  const unsigned count = U8();
  const unsigned flags = count > 0 || left() > 0 ? U8() : 0;
  return Characters(count, (flags & 1U) != 0);
}

std::u16string ToUtf16(std::string_view utf8, std::size_t most) {
  std::u16string units;
  while (!utf8.empty()) {
    const char32_t character = TakeCharacter(utf8);
    const bool pair = character > 0xFFFF;
    if (units.size() + (pair ? 2 : 1) > most) break;
    if (pair) {
      units += static_cast<char16_t>(0xD800 + ((character - 0x10000) >> 10U));
      units += static_cast<char16_t>(0xDC00 + ((character - 0x10000) & 0x3FFU));
    } else {
      units += static_cast<char16_t>(character);
    }
  }
  return units;
}

std::string FromUtf16(std::u16string_view units) {
  std::string text;
  for (std::size_t i = 0; i < units.size(); ++i) {
    const char16_t unit = units[i];
    if (IsHighSurrogate(unit) && i + 1 < units.size() && IsLowSurrogate(units[i + 1])) {
      AppendUtf8(text, 0x10000U + ((unit - 0xD800U) << 10U) + (units[i + 1] - 0xDC00U));
      ++i;
    } else {
      AppendUtf8(text, IsHighSurrogate(unit) || IsLowSurrogate(unit) ? U'\uFFFD' : unit);
    }
  }
  return text;
}

bool FitsBytes(std::u16string_view units) {
  return std::ranges::all_of(units, [](char16_t unit) { return unit < 0x100; });
}

Result<Substream> ReadSubstream(std::string_view stream, std::size_t offset) {
  Substream found;
  std::size_t at = offset;
  int depth = 0;
  do {
    if (at > stream.size() || stream.size() - at < kHeadBytes) {
      return Because(workbook_reason::kCut);
    }
    const auto type = static_cast<std::uint16_t>(WordAt(stream, at));
    const std::size_t length = WordAt(stream, at + 2);
    at += kHeadBytes;
    if (length > stream.size() - at) return Because(workbook_reason::kCut);
    const std::string_view part = stream.substr(at, length);
    at += length;
    if (type == biff::kContinue && !found.records.empty()) {
      Record& last = found.records.back();
      last.joints.push_back(last.body.size());
      last.body += part;
      continue;
    }
    found.records.push_back({type, std::string(part), {}});
    if (found.records.size() == 1) {
      const std::string_view reason = ReasonAgainstBof(found.records.front());
      if (!reason.empty()) return Because(reason);
    }
    depth += type == biff::kBof ? 1 : 0;
    depth -= type == biff::kEof ? 1 : 0;
  } while (depth > 0);
  found.length = at - offset;
  return found;
}

void AppendRecord(std::string& stream, const Record& record) {
  unsigned type = record.type;
  std::size_t begin = 0;
  for (const std::size_t joint : record.joints) {
    AppendPart(stream, type, std::string_view(record.body).substr(begin, joint - begin));
    type = biff::kContinue;
    begin = joint;
  }
  AppendPart(stream, type, std::string_view(record.body).substr(begin));
}

}  // namespace kalvo
