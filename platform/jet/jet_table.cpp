#include "platform/jet/jet_table.h"

#include <algorithm>
#include <bit>
#include <optional>
#include <utility>

#include "platform/jet/jet_bytes.h"
#include "platform/jet/jet_format.h"
#include "platform/jet/jet_reasons.h"

namespace kalvo {
namespace jet {
namespace {

bool IsLongValue(std::uint8_t type) { return type == kOle || type == kMemo; }

JetRowPlace RowPlaceAt(std::string_view bytes, std::size_t at) {
  const std::uint32_t place = U32At(bytes, at);
  return {place >> 8U, place & 0xFFU};
}

void PutRowPlace(std::string& bytes, std::size_t at, const JetRowPlace& place) {
  PutU32(bytes, at, place.page << 8U | place.row);
}

// Source: HACKING, "Jet4 Table Definition Block", the 25 bytes of a column.
JetColumn ReadColumn(std::string_view bytes) {
  JetColumn column;
  column.type = static_cast<std::uint8_t>(bytes[0]);
  column.number = U16At(bytes, 5);
  column.variable_number = U16At(bytes, 7);
  column.fixed = (static_cast<unsigned char>(bytes[15]) & kFixedFlag) != 0;
  column.fixed_offset = U16At(bytes, 21);
  column.length = U16At(bytes, 23);
  return column;
}

void AppendColumn(std::string& bytes, const JetColumn& column) {
  const bool is_text = column.type == kText || column.type == kMemo;
  std::string entry(kColumnSize, '\0');
  entry[0] = static_cast<char>(column.type);
  PutU16(entry, 5, column.number);
  PutU16(entry, 7, column.variable_number);
  PutU16(entry, 9, column.number);
  PutU16(entry, 11, is_text ? kGeneralSortOrder : 0);
  entry[15] = static_cast<char>(kNullableFlag | (column.fixed ? kFixedFlag : 0U));
  PutU16(entry, 21, column.fixed_offset);
  PutU16(entry, 23, column.length);
  bytes += entry;
}

// Where a fixed column's bytes end; a truth value has none.
std::size_t FixedEnd(const JetColumn& column) {
  if (!column.fixed || column.type == kBoolean) return 0;
  return column.fixed_offset + column.length;
}

std::size_t FixedSize(const JetTable& table) {
  std::size_t size = 0;
  for (const JetColumn& column : table.columns) size = std::max(size, FixedEnd(column));
  return size;
}

// Of the types of numbers that are written and read.
std::size_t BytesOf(std::uint8_t type) {
  switch (type) {
    case kByte:
      return 1;
    case kInteger:
      return 2;
    case kLong:
    case kSingle:
      return 4;
    default:
      return 0;
  }
}

bool MakesSense(const JetTable& table) {
  const bool columns = std::ranges::all_of(table.columns, [&table](const JetColumn& column) {
    if (column.number >= table.numbers) return false;
    return column.fixed ? column.length >= BytesOf(column.type)
                        : column.variable_number < table.variable_numbers;
  });
  return columns && FixedSize(table) < kPageSize;
}

// The bytes of a value in a column that holds its type; empty: it is missing.
std::string Encoded(const JetColumn& column, const PrintValue& value) {
  std::string bytes;
  if (const auto* whole = std::get_if<std::int32_t>(&value)) {
    if (column.type == kInteger) AppendU16(bytes, static_cast<unsigned>(*whole));
    if (column.type == kLong) AppendU32(bytes, static_cast<std::uint32_t>(*whole));
  } else if (const auto* single = std::get_if<float>(&value)) {
    if (column.type == kSingle) AppendU32(bytes, std::bit_cast<std::uint32_t>(*single));
  } else if (const auto* text = std::get_if<std::string>(&value)) {
    if (column.type == kText) bytes = ToJetText(*text, column.length / 2);
  }
  return bytes;
}

PrintValue Decoded(const JetColumn& column, std::string_view bytes) {
  if (column.type == kText) return FromJetText(bytes);
  if (bytes.size() < BytesOf(column.type)) return {};
  switch (column.type) {
    case kByte:
      return std::int32_t{static_cast<unsigned char>(bytes[0])};
    case kInteger:
      return std::int32_t{static_cast<std::int16_t>(U16At(bytes, 0))};
    case kLong:
      return static_cast<std::int32_t>(U32At(bytes, 0));
    case kSingle:
      return std::bit_cast<float>(U32At(bytes, 0));
    default:
      return {};
  }
}

// The parts of a row. Source: HACKING, "Jet4 Row Definition".
class RowParts {
 public:
  RowParts(const JetTable& table, std::string_view row) : row_(row) {
    if (row.size() < 2) return;
    stored_ = U16At(row, 0);
    const std::size_t mask = (stored_ + 7) / 8;
    const std::size_t tail = mask + (table.variable_numbers == 0 ? 0 : 4);
    if (stored_ > kMostColumns || row.size() < 2 + tail) return;
    mask_at_ = row.size() - mask;
    ok_ = table.variable_numbers == 0 || FindVariables();
    if (table.variable_numbers == 0) fixed_end_ = mask_at_;
  }

  [[nodiscard]] bool ok() const { return ok_; }

  /// Nothing: the value is missing.
  [[nodiscard]] std::optional<std::string_view> Find(const JetColumn& column) const {
    if (column.number >= stored_ || !IsThere(column.number)) return std::nullopt;
    if (!column.fixed) return FindVariable(column.variable_number);
    if (2 + FixedEnd(column) > fixed_end_) return std::nullopt;
    return row_.substr(2 + column.fixed_offset, column.length);
  }

 private:
  [[nodiscard]] bool IsThere(unsigned number) const {
    const auto byte = static_cast<unsigned char>(row_[mask_at_ + number / 8]);
    return (byte >> number % 8 & 1U) != 0;
  }

  // The place of the offset of a variable value, or of where the last one ends.
  [[nodiscard]] std::size_t OffsetAt(std::size_t number) const { return mask_at_ - 4 - 2 * number; }

  bool FindVariables() {
    variables_ = U16At(row_, mask_at_ - 2);
    if (variables_ > kMostColumns || mask_at_ < 2 + 4 + 2 * variables_) return false;
    const std::size_t end = OffsetAt(variables_);
    std::size_t before = variables_ == 0 ? end : U16At(row_, OffsetAt(0));
    fixed_end_ = before;
    for (std::size_t i = 0; i <= variables_; ++i) {
      const std::size_t offset = U16At(row_, OffsetAt(i));
      if (offset < 2 || offset < before || offset > end) return false;
      before = offset;
    }
    return true;
  }

  [[nodiscard]] std::optional<std::string_view> FindVariable(unsigned number) const {
    if (number >= variables_) return std::nullopt;
    const std::size_t begin = U16At(row_, OffsetAt(number));
    return row_.substr(begin, U16At(row_, OffsetAt(number + 1)) - begin);
  }

  std::string_view row_;
  unsigned stored_ = 0;
  std::size_t mask_at_ = 0;
  std::size_t fixed_end_ = 0;
  std::size_t variables_ = 0;
  bool ok_ = false;
};

}  // namespace
}  // namespace jet

Result<JetTable> ReadJetTable(std::string_view definition) {
  using namespace jet;
  const FileError damaged = JetError(jet_reason::kDamaged);
  if (definition.size() < kColumnsAt) return damaged;
  JetTable table;
  table.lines = U32At(definition, kLinesAt);
  table.numbers = U16At(definition, kNumbersAt);
  table.variable_numbers = U16At(definition, kVariablesAt);
  const unsigned columns = U16At(definition, kColumnCountAt);
  const std::uint32_t indexes = U32At(definition, kIndexesAt);
  const std::uint32_t index_entries = U32At(definition, kIndexEntriesAt);
  table.has_index = indexes != 0 || index_entries != 0;
  table.own_pages = RowPlaceAt(definition, kOwnPagesAt);
  table.free_pages = RowPlaceAt(definition, kFreePagesAt);
  if (columns > kMostColumns || table.numbers > kMostColumns ||
      table.variable_numbers > kMostColumns || index_entries > definition.size()) {
    return damaged;
  }
  std::size_t at = kColumnsAt + kIndexEntrySize * index_entries;
  if (!Holds(definition, at, kColumnSize * columns)) return damaged;
  for (unsigned i = 0; i < columns; ++i, at += kColumnSize) {
    table.columns.push_back(ReadColumn(definition.substr(at, kColumnSize)));
  }
  for (JetColumn& column : table.columns) {
    const std::size_t size = Holds(definition, at, 2) ? U16At(definition, at) : kPageSize;
    if (!Holds(definition, at + 2, size)) return damaged;
    column.name = FromJetText(definition.substr(at + 2, size));
    at += 2 + size;
  }
  if (!MakesSense(table)) return damaged;
  return table;
}

std::string WriteJetTable(const JetTable& table, char kind,
                          const std::vector<JetRowPlace>& long_values) {
  using namespace jet;
  std::string page(kColumnsAt, '\0');
  page[0] = kTablePage;
  page[1] = 1;
  PutU32(page, kLinesAt, table.lines);
  page[kTableKindAt] = kind;
  PutU16(page, kNumbersAt, table.numbers);
  PutU16(page, kVariablesAt, table.variable_numbers);
  PutU16(page, kColumnCountAt, static_cast<unsigned>(table.columns.size()));
  PutRowPlace(page, kOwnPagesAt, table.own_pages);
  PutRowPlace(page, kFreePagesAt, table.free_pages);
  for (const JetColumn& column : table.columns) AppendColumn(page, column);
  for (const JetColumn& column : table.columns) {
    const std::string name = ToJetText(column.name, kMostColumns);
    AppendU16(page, static_cast<unsigned>(name.size()));
    page += name;
  }
  auto map = long_values.begin();
  for (const JetColumn& column : table.columns) {
    if (!IsLongValue(column.type)) continue;
    AppendU16(page, column.number);
    for (int i = 0; i < 2; ++i) {
      page.append(4, '\0');
      PutRowPlace(page, page.size() - 4, *map++);
    }
  }
  AppendU16(page, 0xFFFF);
  const auto size = static_cast<std::uint32_t>(page.size() - kTableHead);
  PutU16(page, kFreeSpaceAt, static_cast<unsigned>(kPageSize - 2 * kTableHead - size));
  PutU32(page, kTableHead, size);
  page.resize(kPageSize);
  return page;
}

std::string WriteJetRow(const JetTable& table, const PrintLine& values) {
  using namespace jet;
  std::string fixed(FixedSize(table), '\0');
  std::vector<std::string> variable(table.variable_numbers);
  std::string mask((table.numbers + 7) / 8, '\0');
  for (std::size_t i = 0; i < table.columns.size(); ++i) {
    const JetColumn& column = table.columns[i];
    std::string bytes = Encoded(column, values[i]);
    if (bytes.empty()) continue;
    char& byte = mask[column.number / 8];
    byte = static_cast<char>(static_cast<unsigned char>(byte) | 1U << column.number % 8);
    if (column.fixed) {
      fixed.replace(column.fixed_offset, bytes.size(), bytes);
    } else {
      variable[column.variable_number] = std::move(bytes);
    }
  }
  std::string row;
  AppendU16(row, table.numbers);
  row += fixed;
  if (!variable.empty()) {
    std::vector<std::size_t> offsets;
    for (const std::string& bytes : variable) {
      offsets.push_back(row.size());
      row += bytes;
    }
    offsets.push_back(row.size());
    for (auto offset = offsets.rbegin(); offset != offsets.rend(); ++offset) {
      AppendU16(row, static_cast<unsigned>(*offset));
    }
    AppendU16(row, table.variable_numbers);
  }
  return row + mask;
}

Result<PrintLine> ReadJetRow(const JetTable& table, std::string_view row) {
  using namespace jet;
  const RowParts parts(table, row);
  if (!parts.ok()) return JetError(jet_reason::kDamaged);
  PrintLine line;
  for (const JetColumn& column : table.columns) {
    const auto bytes = parts.Find(column);
    line.push_back(bytes ? Decoded(column, *bytes) : PrintValue());
  }
  return line;
}

}  // namespace kalvo
