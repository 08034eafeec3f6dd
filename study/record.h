#pragma once

#include <bit>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <tuple>

#include "study/fixed_text.h"

namespace kalvo {

/// One field of a record: its name and where it lives in the row.
template <typename Row, typename Type>
struct RecordField {
  std::string_view name;
  Type Row::*member;
};

template <typename Row, typename Type>
RecordField(const char*, Type Row::*) -> RecordField<Row, Type>;

/// A row type states its fields once, in file order, as a static tuple `Row::kFields`; the byte
/// image, sizes, comparison and listings all walk that tuple.
template <typename Row>
constexpr std::size_t RecordSize();

namespace record_detail {

constexpr std::size_t WidthOf(const std::int16_t* /*type*/) { return 2; }
constexpr std::size_t WidthOf(const float* /*type*/) { return 4; }
template <std::size_t N>
constexpr std::size_t WidthOf(const FixedText<N>* /*type*/) {
  return N;
}

template <typename Row, typename Type>
constexpr std::size_t WidthOfField(const RecordField<Row, Type>& /*field*/) {
  return WidthOf(static_cast<const Type*>(nullptr));
}

// Little endian whatever the host is; written out so that compilers make one load or store of it.
constexpr std::uint32_t ByteAt(const char* bytes, int index) {
  return static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[index])) << (8 * index);
}

inline void Load(const char* bytes, std::int16_t& value) {
  value = static_cast<std::int16_t>(ByteAt(bytes, 0) | ByteAt(bytes, 1));
}
inline void Load(const char* bytes, float& value) {
  value = std::bit_cast<float>(ByteAt(bytes, 0) | ByteAt(bytes, 1) | ByteAt(bytes, 2) |
                               ByteAt(bytes, 3));
}
template <std::size_t N>
void Load(const char* bytes, FixedText<N>& value) {
  std::memcpy(value.data(), bytes, N);
}

inline void Store(char* bytes, std::int16_t value) {
  const auto bits = static_cast<std::uint16_t>(value);
  bytes[0] = static_cast<char>(bits & 0xFFU);
  bytes[1] = static_cast<char>(bits >> 8U);
}
inline void Store(char* bytes, float value) {
  const auto bits = std::bit_cast<std::uint32_t>(value);
  bytes[0] = static_cast<char>(bits & 0xFFU);
  bytes[1] = static_cast<char>((bits >> 8U) & 0xFFU);
  bytes[2] = static_cast<char>((bits >> 16U) & 0xFFU);
  bytes[3] = static_cast<char>(bits >> 24U);
}
template <std::size_t N>
void Store(char* bytes, const FixedText<N>& value) {
  std::memcpy(bytes, value.bytes().data(), N);
}

}  // namespace record_detail

template <typename Row>
constexpr std::size_t RecordSize() {
  return std::apply([](const auto&... field) { return (record_detail::WidthOfField(field) + ...); },
                    Row::kFields);
}

/// Calls `visit(name, value)` for every field of `row` in file order.
template <typename Row, typename Visit>
void ForEachField(Row& row, Visit&& visit) {
  using Plain = std::remove_const_t<Row>;
  std::apply([&](const auto&... field) { (visit(field.name, row.*(field.member)), ...); },
             Plain::kFields);
}

/// Fills `row` from the image at `bytes` (RecordSize<Row>() bytes).
template <typename Row>
void DecodeRecord(const char* bytes, Row& row) {
  ForEachField(row, [&bytes](std::string_view /*name*/, auto& value) {
    record_detail::Load(bytes, value);
    bytes += record_detail::WidthOf(&value);
  });
}

template <typename Row>
Row DecodeRecord(const char* bytes) {
  Row row;
  DecodeRecord(bytes, row);
  return row;
}

/// Writes the image of `row` to `bytes` (RecordSize<Row>() bytes).
template <typename Row>
void EncodeRecord(const Row& row, char* bytes) {
  ForEachField(row, [&bytes](std::string_view /*name*/, const auto& value) {
    record_detail::Store(bytes, value);
    bytes += record_detail::WidthOf(&value);
  });
}

}  // namespace kalvo
