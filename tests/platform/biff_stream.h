#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/xls/biff_records.h"
#include "platform/xls/compound_file.h"

namespace kalvo {

/// Bytes from their values: "06 00 FF".
inline std::string BytesOf(std::string_view hex) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string bytes;
  for (std::size_t i = 0; i + 1 < hex.size(); i += hex[i] == ' ' ? 1 : 2) {
    if (hex[i] == ' ') continue;
    bytes += static_cast<char>(kDigits.find(hex[i]) * 16 + kDigits.find(hex[i + 1]));
  }
  return bytes;
}

/// Records one after the other, each with the bytes of its body.
class BiffStream {
 public:
  BiffStream& Add(std::uint16_t type, std::string_view hex = {}) {
    return AddBytes(type, BytesOf(hex));
  }
  BiffStream& AddBytes(std::uint16_t type, std::string body) {
    AppendRecord(bytes_, {type, std::move(body), {}});
    return *this;
  }
  [[nodiscard]] const std::string& bytes() const { return bytes_; }

 private:
  std::string bytes_;
};

inline constexpr std::string_view kGlobalsBof = "00 06 05 00";
inline constexpr std::string_view kSheetBof = "00 06 10 00";

/// A "Workbook" stream: its own records, and a worksheet "Φ1" with the records given. Format 0 is
/// there, and what `extra` adds.
inline std::string StreamWith(const BiffStream& sheet, const BiffStream& extra = {}) {
  const auto globals = [&extra](std::size_t offset) {
    ByteWriter entry;
    entry.U32(static_cast<std::uint32_t>(offset)).Bytes(BytesOf("00 00 02 01 A6 03 31 00"));
    BiffStream stream;
    stream.Add(biff::kBof, kGlobalsBof);
    stream.Add(biff::kFont, "C8 00 00 00 FF 7F 90 01 00 00 00 00 00 00 05 00 41 72 69 61 6C");
    stream.Add(biff::kXf, "00 00 00 00 01 00 20 00 00 00 00 00 00 00 00 00 00 00 C0 20");
    stream.AddBytes(biff::kBoundSheet, entry.Take());
    return stream.bytes() + extra.bytes() + BiffStream().Add(biff::kEof).bytes();
  };
  BiffStream begin;
  begin.Add(biff::kBof, kSheetBof);
  return globals(globals(0).size()) + begin.bytes() + sheet.bytes() +
         BiffStream().Add(biff::kEof).bytes();
}

/// A compound file with one stream.
inline std::string CompoundWith(const std::string& name, std::string bytes) {
  CompoundEntry root{{}, true, {}, {}, {}};
  root.entries.push_back({name, false, std::move(bytes), {}, {}});
  const auto file = WriteCompoundFile(root);
  return file ? *file : std::string();
}

}  // namespace kalvo
