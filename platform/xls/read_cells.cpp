#include "platform/xls/read_cells.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <utility>

#include "platform/xls/workbook_reasons.h"

namespace kalvo {

namespace {

constexpr auto kCellTypes = std::to_array<std::uint16_t>(
    {biff::kRow, biff::kBlank, biff::kNumber, biff::kLabel, biff::kLabelSst, biff::kBoolErr,
     biff::kRk, biff::kMulRk, biff::kMulBlank, biff::kFormula});
constexpr auto kFormulaParts =
    std::to_array<std::uint16_t>({biff::kString, biff::kSharedFormula, biff::kArray, biff::kTable});

// 30 bits of a whole number, or the upper ones of a double; one bit for hundredths.
// Source: [MS-XLS], RkNumber.
double RkValue(std::uint32_t bits) {
  double value = 0;
  if ((bits & 2U) != 0) {
    value = static_cast<std::int32_t>(bits) >> 2;
  } else {
    value = std::bit_cast<double>(std::uint64_t{bits & ~3U} << 32U);
  }
  return (bits & 1U) != 0 ? value / 100 : value;
}

CellValue BoolOrError(unsigned value, bool is_error) {
  if (is_error) return CellError{static_cast<std::uint8_t>(value)};
  return value != 0;
}

CellValue NumberOrNothing(double value) {
  return std::isfinite(value) ? CellValue(value) : CellValue();
}

// The last result of a formula; a text stands in a record of its own.
// Source: [MS-XLS], FormulaValue.
CellValue FormulaResult(RecordReader& reader) {
  const std::string_view bytes = reader.Bytes(8);
  const Record result{0, std::string(bytes), {}};
  RecordReader parts(result);
  const bool is_number = !bytes.ends_with("\xFF\xFF");
  if (is_number) return NumberOrNothing(parts.F64());
  const unsigned kind = parts.U8();
  parts.U8();
  const unsigned value = parts.U8();
  return kind == 1 || kind == 2 ? BoolOrError(value, kind == 2) : CellValue();
}

}  // namespace

bool IsCellRecord(std::uint16_t type) {
  return std::ranges::find(kCellTypes, type) != kCellTypes.end();
}

Outcome CellTableReader::Add(int row, unsigned column, unsigned format, CellValue value,
                             std::shared_ptr<const CellFormula> formula) {
  if (column >= unsigned{kMostColumns}) return Because(workbook_reason::kOutside);
  if (format >= workbook_.formats.size()) return Because(workbook_reason::kNoFormat);
  if (allowance_.left == 0) return Because(workbook_reason::kTooLarge);
  --allowance_.left;
  row_ = &sheet_.rows[row];
  auto& cells = row_->cells;
  const Cell cell{static_cast<std::uint16_t>(column), static_cast<std::uint16_t>(format), value,
                  std::move(formula)};
  auto place = cells.end();
  if (!cells.empty() && cells.back().column >= column) {
    place = std::ranges::lower_bound(cells, column, {}, &Cell::column);
  }
  if (place != cells.end() && place->column == column) {
    *place = cell;
  } else {
    place = cells.insert(place, cell);
  }
  formula_cell_ = &*place;
  return Done{};
}

Outcome CellTableReader::ReadRow(const Record& record) {
  RecordReader reader(record);
  row_ = &sheet_.rows[static_cast<int>(reader.U16())];
  reader.Skip(4);
  const unsigned height = reader.U16();
  reader.Skip(4);
  row_->options = reader.U32();
  const bool is_default = (height & 0x8000U) != 0 || height == 0;
  row_->height_twips = is_default ? std::nullopt : std::optional(static_cast<int>(height));
  if (!reader.ok()) return Because(workbook_reason::kDamaged);
  return Done{};
}

Outcome CellTableReader::ReadFormula(Record record) {
  RecordReader reader(record);
  const auto row = static_cast<int>(reader.U16());
  const unsigned column = reader.U16();
  const unsigned format = reader.U16();
  const CellValue value = FormulaResult(reader);
  if (!reader.ok() || reader.left() < 8) return Because(workbook_reason::kDamaged);
  formula_ = std::make_shared<CellFormula>(CellFormula{std::move(record), {}});
  return Add(row, column, format, value, formula_);
}

Outcome CellTableReader::ReadSeveral(const Record& record, bool numbers) {
  RecordReader reader(record);
  const auto row = static_cast<int>(reader.U16());
  unsigned column = reader.U16();
  const std::size_t bytes = numbers ? 6 : 2;
  // The number of the last column is at the end.
  for (; reader.left() >= bytes + 2; ++column) {
    const unsigned format = reader.U16();
    const CellValue value = numbers ? NumberOrNothing(RkValue(reader.U32())) : CellValue();
    Outcome added = Add(row, column, format, value);
    if (!added) return added;
  }
  if (!reader.ok()) return Because(workbook_reason::kDamaged);
  return Done{};
}

Result<CellValue> CellTableReader::ValueOf(std::uint16_t type, RecordReader& reader) {
  switch (type) {
    case biff::kNumber:
      return NumberOrNothing(reader.F64());
    case biff::kRk:
      return NumberOrNothing(RkValue(reader.U32()));
    case biff::kBoolErr: {
      const unsigned value = reader.U8();
      return BoolOrError(value, reader.U8() != 0);
    }
    case biff::kLabel:
      return CellValue(TextRef{workbook_.texts.Add(reader.Text())});
    case biff::kLabelSst: {
      const TextRef text{reader.U32()};
      if (text.index >= workbook_.texts.size()) return Because(workbook_reason::kNoText);
      return CellValue(text);
    }
    default:
      return CellValue();
  }
}

Outcome CellTableReader::ReadOne(const Record& record) {
  RecordReader reader(record);
  const auto row = static_cast<int>(reader.U16());
  const unsigned column = reader.U16();
  const unsigned format = reader.U16();
  const auto value = ValueOf(record.type, reader);
  if (!reader.ok()) return Because(workbook_reason::kDamaged);
  if (!value) return value.error();
  return Add(row, column, format, *value);
}

Outcome CellTableReader::Read(Record record) {
  formula_ = nullptr;
  switch (record.type) {
    case biff::kRow:
      return ReadRow(record);
    case biff::kMulRk:
      return ReadSeveral(record, true);
    case biff::kMulBlank:
      return ReadSeveral(record, false);
    case biff::kFormula:
      return ReadFormula(std::move(record));
    default:
      return ReadOne(record);
  }
}

bool CellTableReader::Carry(Record& record) {
  const bool of_formula = std::ranges::find(kFormulaParts, record.type) != kFormulaParts.end();
  if (formula_ != nullptr && of_formula) {
    if (record.type == biff::kString) {
      RecordReader reader(record);
      const std::string text = reader.Text();
      formula_cell_->value = TextRef{workbook_.texts.Add(text)};
    }
    formula_->after.push_back(std::move(record));
    return true;
  }
  formula_ = nullptr;
  if (row_ == nullptr) return false;
  row_->carried.push_back(std::move(record));
  return true;
}

}  // namespace kalvo
