#include "cli/winter_values.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>
#include <set>

#include "cli/text_table.h"
#include "study/fixed_text.h"
#include "study/letter_case.h"
#include "study/text_lines.h"

namespace kalvo {

namespace {

struct Column {
  std::string_view name;
  std::string_view greek_name;
  float WinterLine::*value;  // none for the section's number
  bool required;
};

constexpr Column kColumns[] = {{"section", "τμήμα", nullptr, true},
                               {"flow", "παροχή", &WinterLine::flow_lh, true},
                               {"drop", "πτώση", &WinterLine::drop, true},
                               {"length", "μήκος", &WinterLine::length_m, false}};

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

char CellEndOf(std::string_view heading) {
  for (const char end : {';', '\t'}) {
    if (heading.find(end) != std::string_view::npos) {
      return end;
    }
  }
  return ',';
}

std::vector<std::string> CellsOf(std::string_view line, char end) {
  std::vector<std::string> cells(1);
  bool quoted = false;
  for (const char c : line) {
    if (c == '"') {
      quoted = !quoted;
    } else if (c == end && !quoted) {
      cells.emplace_back();
    } else {
      cells.back() += c;
    }
  }
  for (std::string& cell : cells) {
    cell = std::string(Trim(cell));
  }
  return cells;
}

// A number that is all of the cell, with "." or "," before its decimals.
std::optional<float> NumberOf(std::string cell) {
  std::replace(cell.begin(), cell.end(), ',', '.');
  float value = 0;
  const char* end = cell.data() + cell.size();
  const auto read = std::from_chars(cell.data(), end, value);
  const bool whole = read.ec == std::errc() && read.ptr == end && std::isfinite(value);
  return whole && value >= 0.0F ? std::optional(value) : std::nullopt;
}

class ValuesReader {
 public:
  ValuesReader(const std::filesystem::path& path, std::vector<WinterLine> summer)
      : path_(path), lines_(std::move(summer)) {}

  Result<std::vector<WinterLine>> Read(std::string_view text) {
    if (text.starts_with(kByteOrderMark)) {
      text.remove_prefix(kByteOrderMark.size());
    }
    for (const std::string& line : SplitLines(text)) {
      ++number_;
      if (Trim(line).empty() || line.front() == '#') {
        continue;
      }
      if (Outcome taken = columns_.empty() ? TakeHeading(line) : TakeLine(line); !taken) {
        return taken.error();
      }
    }
    if (columns_.empty()) {
      return FileError{path_, "Ο πίνακας τιμών του Χειμώνα είναι κενός"};
    }
    for (const WinterLine& line : lines_) {
      if (!seen_.contains(line.section)) {
        return FileError{path_, "Λείπει το Σώμα στο Τμήμα " + std::to_string(line.section)};
      }
    }
    return std::move(lines_);
  }

 private:
  [[nodiscard]] FileError Wrong(const std::string& what) const {
    return {path_, "Γραμμή " + std::to_string(number_) + ", " + what};
  }

  Outcome TakeHeading(const std::string& line) {
    cell_end_ = CellEndOf(line);
    for (const std::string& cell : CellsOf(line, cell_end_)) {
      const auto* const column =
          std::find_if(std::begin(kColumns), std::end(kColumns), [&cell](const Column& known) {
            return EqualIgnoringCase(cell, known.name) || EqualIgnoringCase(cell, known.greek_name);
          });
      if (column == std::end(kColumns)) {
        return Wrong("άγνωστη στήλη (section, flow, drop, length) \"" + Printable(cell) + "\"");
      }
      if (std::find(columns_.begin(), columns_.end(), column) != columns_.end()) {
        return Wrong("η στήλη " + std::string(column->name) + " είναι δύο φορές");
      }
      columns_.push_back(column);
    }
    for (const Column& column : kColumns) {
      if (column.required &&
          std::find(columns_.begin(), columns_.end(), &column) == columns_.end()) {
        return Wrong("λείπει η στήλη " + std::string(column.name));
      }
    }
    return Done{};
  }

  Outcome TakeLine(const std::string& text) {
    const std::vector<std::string> cells = CellsOf(text, cell_end_);
    if (cells.size() != columns_.size()) {
      return Wrong("τα κελιά είναι " + std::to_string(cells.size()) + " και όχι " +
                   std::to_string(columns_.size()));
    }
    WinterLine values;
    for (std::size_t i = 0; i < cells.size(); ++i) {
      const std::optional<float> number = NumberOf(cells[i]);
      if (!number) {
        return Wrong("δεν είναι αριθμός \"" + Printable(cells[i]) + "\"");
      }
      if (columns_[i]->value != nullptr) {
        values.*columns_[i]->value = *number;
      } else if (*number == std::floor(*number) && *number < 1e6F) {
        values.section = static_cast<int>(*number);
      }
    }
    return Put(values);
  }

  Outcome Put(const WinterLine& values) {
    const auto line = std::find_if(
        lines_.begin(), lines_.end(),
        [&values](const WinterLine& emitter) { return emitter.section == values.section; });
    if (line == lines_.end()) {
      return Wrong("το Τμήμα " + std::to_string(values.section) + " δεν έχει Σώμα");
    }
    if (!seen_.insert(values.section).second) {
      return Wrong("το Τμήμα " + std::to_string(values.section) + " είναι δύο φορές");
    }
    for (const Column* column : columns_) {
      if (column->value != nullptr) {
        (*line).*column->value = values.*column->value;
      }
    }
    return Done{};
  }

  std::filesystem::path path_;
  std::vector<WinterLine> lines_;
  std::vector<const Column*> columns_;  // in the order of the cells
  std::set<int> seen_;
  char cell_end_ = ',';
  int number_ = 0;
};

}  // namespace

Result<std::vector<WinterLine>> ReadWinterValues(const Disk& disk,
                                                 const std::filesystem::path& path,
                                                 std::vector<WinterLine> summer) {
  const Result<std::string> text = disk.Read(path);
  if (!text) {
    return text.error();
  }
  return ValuesReader(path, std::move(summer)).Read(*text);
}

}  // namespace kalvo
