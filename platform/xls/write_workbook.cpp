#include "platform/xls/write_workbook.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace kalvo {

namespace {

constexpr int kRowsOfBlock = 32;  // rows are written before the cells of so many
constexpr std::size_t kMostMergesOfRecord = 1027;

void Append(std::string& stream, std::uint16_t type, ByteWriter& body) {
  AppendRecord(stream, {type, body.Take(), {}});
}

// Gives the texts that cells refer to their numbers in the file, in the order of the cells.
class TextNumbers {
 public:
  explicit TextNumbers(const Workbook& workbook) : numbers_(workbook.texts.size()) {
    for (const Sheet& sheet : workbook.sheets) {
      for (const auto& [number, row] : sheet.rows) {
        for (const Cell& cell : row.cells) Count(workbook, cell);
      }
    }
  }
  [[nodiscard]] std::uint32_t Of(TextRef text) const { return numbers_[text.index].value_or(0); }
  [[nodiscard]] Record Sst() const { return WriteSharedTexts(texts_, references_); }

 private:
  void Count(const Workbook& workbook, const Cell& cell) {
    const auto* text = std::get_if<TextRef>(&cell.value);
    if (text == nullptr || cell.formula != nullptr) return;
    ++references_;
    auto& number = numbers_[text->index];
    if (number) return;
    number = static_cast<std::uint32_t>(texts_.size());
    texts_.push_back(&workbook.texts[text->index]);
  }

  std::vector<std::optional<std::uint32_t>> numbers_;
  std::vector<const SharedText*> texts_;
  std::uint32_t references_ = 0;
};

struct UsedArea {
  int rows = 0;  // the last one and one more
  int first_row = 0;
  int columns = 0;
  int first_column = 0;
};

UsedArea AreaOf(const Sheet& sheet) {
  UsedArea area;
  if (sheet.rows.empty()) return area;
  area.first_row = sheet.rows.begin()->first;
  area.rows = sheet.rows.rbegin()->first + 1;
  area.first_column = kMostColumns;
  for (const auto& [number, row] : sheet.rows) {
    if (row.cells.empty()) continue;
    area.first_column = std::min(area.first_column, int{row.cells.front().column});
    area.columns = std::max(area.columns, row.cells.back().column + 1);
  }
  area.first_column = std::min(area.first_column, area.columns);
  return area;
}

class SheetWriter {
 public:
  SheetWriter(std::string& stream, const Sheet& sheet, const TextNumbers& texts)
      : stream_(stream), sheet_(sheet), texts_(texts) {}

  void Write() {
    WriteAround(sheet_.head);
    if (!sheet_.is_worksheet) return;
    WriteDimensions();
    auto row = sheet_.rows.begin();
    while (row != sheet_.rows.end()) {
      const auto begin = row;
      const int end = (begin->first / kRowsOfBlock + 1) * kRowsOfBlock;
      for (; row != sheet_.rows.end() && row->first < end; ++row) WriteRow(row->first, row->second);
      for (auto in_block = begin; in_block != row; ++in_block) {
        WriteCells(in_block->first, in_block->second);
      }
      for (auto in_block = begin; in_block != row; ++in_block) {
        for (const Record& record : in_block->second.carried) AppendRecord(stream_, record);
      }
    }
    WriteAround(sheet_.tail);
  }

 private:
  void WriteAround(const std::vector<Record>& records) {
    for (const Record& record : records) {
      const bool is_place = sheet_.is_worksheet && record.body.empty();
      if (is_place && record.type == biff::kHorizontalPageBreaks) {
        WriteBreaks();
      } else if (is_place && record.type == biff::kProtect) {
        WriteProtection();
      } else if (is_place && record.type == biff::kMergeCells) {
        WriteMerges();
      } else {
        AppendRecord(stream_, record);
      }
    }
  }

  void WriteBreaks() {
    if (sheet_.breaks.empty()) return;
    const std::size_t count = std::min(sheet_.breaks.size(), kMostPageBreaks);
    ByteWriter body;
    body.U16(static_cast<unsigned>(count));
    for (std::size_t i = 0; i < count; ++i) {
      const PageBreak& at = sheet_.breaks[i];
      body.U16(static_cast<unsigned>(at.row));
      body.U16(static_cast<unsigned>(at.first_column)).U16(static_cast<unsigned>(at.last_column));
    }
    Append(stream_, biff::kHorizontalPageBreaks, body);
  }

  void WriteFlag(std::uint16_t type, unsigned value) {
    if (value == 0) return;
    ByteWriter body;
    body.U16(value);
    Append(stream_, type, body);
  }

  void WriteProtection() {
    const SheetProtection& protection = sheet_.protection;
    WriteFlag(biff::kProtect, protection.cells ? 1 : 0);
    WriteFlag(biff::kScenarioProtect, protection.scenarios ? 1 : 0);
    WriteFlag(biff::kObjectProtect, protection.objects ? 1 : 0);
    WriteFlag(biff::kPassword, protection.password);
  }

  void WriteMerges() {
    const std::vector<CellRange>& merges = sheet_.merges;
    for (std::size_t first = 0; first < merges.size(); first += kMostMergesOfRecord) {
      const std::size_t end = std::min(merges.size(), first + kMostMergesOfRecord);
      ByteWriter body;
      body.U16(static_cast<unsigned>(end - first));
      for (std::size_t i = first; i < end; ++i) {
        const CellRange& range = merges[i];
        for (const int edge :
             {range.first_row, range.last_row, range.first_column, range.last_column}) {
          body.U16(static_cast<unsigned>(edge));
        }
      }
      Append(stream_, biff::kMergeCells, body);
    }
  }

  void WriteDimensions() {
    const UsedArea area = AreaOf(sheet_);
    ByteWriter body;
    body.U32(static_cast<std::uint32_t>(area.first_row));
    body.U32(static_cast<std::uint32_t>(area.rows));
    body.U16(static_cast<unsigned>(area.first_column)).U16(static_cast<unsigned>(area.columns));
    body.U16(0);
    Append(stream_, biff::kDimensions, body);
  }

  void WriteRow(int number, const WorkbookRow& row) {
    const bool any = !row.cells.empty();
    const int height = row.height_twips.value_or(sheet_.default_height_twips | 0x8000);
    ByteWriter body;
    body.U16(static_cast<unsigned>(number));
    body.U16(any ? row.cells.front().column : 0U).U16(any ? row.cells.back().column + 1U : 0U);
    body.U16(static_cast<unsigned>(height)).U32(0).U32(row.options);
    Append(stream_, biff::kRow, body);
  }

  void WriteCells(int number, const WorkbookRow& row) {
    for (const Cell& cell : row.cells) {
      if (cell.formula != nullptr) {
        WriteFormula(*cell.formula);
      } else {
        WriteValue(number, cell);
      }
    }
  }

  void WriteFormula(const CellFormula& formula) {
    Record record = formula.record;
    record.body[14] = static_cast<char>(record.body[14] | 1);  // calculate at opening
    AppendRecord(stream_, record);
    for (const Record& after : formula.after) AppendRecord(stream_, after);
  }

  void WriteValue(int number, const Cell& cell) {
    ByteWriter body;
    body.U16(static_cast<unsigned>(number)).U16(cell.column).U16(cell.format);
    std::uint16_t type = biff::kBlank;
    if (const auto* value = std::get_if<double>(&cell.value)) {
      type = biff::kNumber;
      body.F64(*value);
    } else if (const auto* text = std::get_if<TextRef>(&cell.value)) {
      type = biff::kLabelSst;
      body.U32(texts_.Of(*text));
    } else if (const auto* truth = std::get_if<bool>(&cell.value)) {
      type = biff::kBoolErr;
      body.U8(*truth ? 1 : 0).U8(0);
    } else if (const auto* error = std::get_if<CellError>(&cell.value)) {
      type = biff::kBoolErr;
      body.U8(error->code).U8(1);
    }
    Append(stream_, type, body);
  }

  std::string& stream_;
  const Sheet& sheet_;
  const TextNumbers& texts_;
};

// Writes where a sheet begins into the BOUNDSHEET record at `place` of the stream.
void PutOffset(std::string& stream, std::size_t place, std::size_t offset) {
  ByteWriter bytes;
  bytes.U32(static_cast<std::uint32_t>(offset));
  stream.replace(place, 4, bytes.Take());
}

}  // namespace

std::string WriteWorkbookStream(const Workbook& workbook) {
  const TextNumbers texts(workbook);
  std::string stream;
  std::vector<std::size_t> offset_places;
  for (const Record& record : workbook.globals) {
    if (record.type == biff::kBoundSheet) offset_places.push_back(stream.size() + 4);
    AppendRecord(stream, record.type == biff::kSst ? texts.Sst() : record);
  }
  for (std::size_t i = 0; i < workbook.sheets.size(); ++i) {
    PutOffset(stream, offset_places[i], stream.size());
    SheetWriter(stream, workbook.sheets[i], texts).Write();
  }
  return stream;
}

}  // namespace kalvo
