#include "cli/winter_values.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <set>

#include "cli/number_text.h"
#include "cli/text_table.h"
#include "study/fixed_text.h"
#include "study/letter_case.h"
#include "study/text_lines.h"

namespace kalvo {

namespace {

struct Column {
  std::string_view name;
  std::string_view greek_name;  // without accents
  float WinterLine::*value;     // none for the section's number
  bool required;
};

constexpr Column kValueColumns[] = {{"section", "τμημα", nullptr, true},
                                    {"flow", "παροχη", &WinterLine::flow_lh, true},
                                    {"drop", "πτωση", &WinterLine::drop, true},
                                    {"length", "μηκος", &WinterLine::length_m, false}};

constexpr float kMostSections = 32767;
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

// Greek without its accents: headings are often written in capitals, which have none.
std::string WithoutAccents(std::string text) {
  constexpr std::pair<std::string_view, std::string_view> kPlain[] = {
      {"ά", "α"}, {"έ", "ε"}, {"ή", "η"}, {"ί", "ι"}, {"ό", "ο"}, {"ύ", "υ"}, {"ώ", "ω"}};
  for (const auto& [accented, plain] : kPlain) {
    for (std::size_t at = text.find(accented); at != std::string::npos; at = text.find(accented)) {
      text.replace(at, accented.size(), plain);
    }
  }
  return text;
}

// True for "1.200" where "." parts no decimals as a rule, and for "1,200" where "," does not: is it
// a thousand or one?
bool IsAmbiguous(std::string_view cell, char cell_end) {
  const std::size_t at = cell.find(cell_end == ',' ? ',' : '.');
  constexpr std::size_t kGroup = 3;
  return at != std::string_view::npos && at > 0 && at <= kGroup && cell.size() - at - 1 == kGroup;
}

// What a cell holds, short enough for a message.
std::string Shown(const std::string& cell) {
  constexpr std::size_t kMost = 40;
  return "\"" + (cell.size() > kMost ? "..." : Printable(cell)) + "\"";
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
      const std::string heading = WithoutAccents(LowerCase(cell));
      const auto* const column = std::find_if(
          std::begin(kValueColumns), std::end(kValueColumns), [&heading](const Column& known) {
            return heading == known.name || heading == known.greek_name;
          });
      if (column == std::end(kValueColumns)) {
        return Wrong("άγνωστη στήλη " + Shown(cell) +
                     ", δεκτές : section flow drop length ή τμήμα παροχή πτώση μήκος");
      }
      if (std::find(columns_.begin(), columns_.end(), column) != columns_.end()) {
        return Wrong("η στήλη " + std::string(column->name) + " είναι δύο φορές");
      }
      columns_.push_back(column);
    }
    for (const Column& column : kValueColumns) {
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
      const std::optional<float> number = PlainNumber(cells[i]);
      if (const std::string bad = BadNumber(cells[i], number); !bad.empty()) {
        return Wrong(bad + " " + Shown(cells[i]));
      }
      if (columns_[i]->value != nullptr) {
        values.*columns_[i]->value = *number;
      } else if (*number != std::floor(*number) || *number > kMostSections) {
        return Wrong("δεν είναι α/α Τμήματος " + Shown(cells[i]));
      } else {
        values.section = static_cast<int>(*number);
      }
    }
    return Put(values);
  }

  // What is wrong with a number; empty when nothing is.
  [[nodiscard]] std::string BadNumber(const std::string& cell, std::optional<float> number) const {
    if (!number) {
      return "δεν είναι αριθμός";
    }
    if (*number < 0.0F) {
      return "είναι αρνητικός αριθμός";
    }
    return IsAmbiguous(cell, cell_end_) ? "χωρίς διαχωριστικό χιλιάδων, ή με άλλο πλήθος δεκαδικών"
                                        : "";
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
