#include "tests/support/network.h"

#include <algorithm>
#include <charconv>
#include <sstream>
#include <stdexcept>
#include <variant>

#include "study/fault.h"

namespace kalvo {
namespace {

struct Word {
  std::string_view text;
  NumberField field;
};

const Word kWords[] = {
    {"m", &SectionRow::Length},           {"elbows", &SectionRow::AnglePOP},
    {"bends", &SectionRow::Elbow90},      {"valves", &SectionRow::GateValve},
    {"straight", &SectionRow::StrSwitch}, {"angled", &SectionRow::AngSwitch},
    {"branch", &SectionRow::DiaTee},      {"through", &SectionRow::DieTee},
    {"counter", &SectionRow::AntiTee},    {"joins", &SectionRow::SymboTee},
    {"checks", &SectionRow::CheckValve},  {"mm", &SectionRow::OtherDrop_mm},
    {"eqm", &SectionRow::OtherDrop_m},    {"l/h", &SectionRow::WaterFlow},
    {"up", &SectionRow::HeightDiff},
};

void SetValue(SectionRow& row, std::string_view word, double value, bool is_emitter) {
  if (is_emitter && (word == "mm" || word == "mwg")) {
    row.SomaDrop = ToSingle(value);
    return;
  }
  const auto* const known = std::ranges::find(kWords, word, &Word::text);
  if (known == std::end(kWords)) {
    throw std::invalid_argument("no such word: " + std::string(word));
  }
  if (const auto* single = std::get_if<float SectionRow::*>(&known->field)) {
    row.*(*single) = ToSingle(value);
  } else {
    row.*(std::get<std::int16_t SectionRow::*>(known->field)) = ToInt16(value);
  }
}

// A number, with its word behind it at once or as the next word of `words`.
void ReadValue(SectionRow& row, const std::string& text, std::istream& words, bool is_emitter) {
  double value = 0;
  const char* end = text.data() + text.size();
  const auto read = std::from_chars(text.data(), end, value, std::chars_format::fixed);
  if (read.ec != std::errc()) {
    throw std::invalid_argument("no number: " + text);
  }
  std::string word(read.ptr, end);
  if (word.empty() && !(words >> word)) {
    throw std::invalid_argument("no word behind " + text);
  }
  SetValue(row, word, value, is_emitter);
}

void ReadLine(SectionRow& row, std::string_view line) {
  std::istringstream words{std::string(line)};
  std::string word;
  words >> word;
  const std::size_t slash = word.find('/');
  if (slash == std::string::npos) {
    throw std::invalid_argument("no name: " + word);
  }
  row.Name = MakeName(ToCodePage(word.substr(0, slash)), ToCodePage(word.substr(slash + 1)));
  for (bool is_emitter = false; words >> word;) {
    if (word == "plant") {
      row.Auxi = PlantMark(row.RecordNumber);
    } else if (word == "soma" || word == "outlet") {
      is_emitter = true;
    } else {
      ReadValue(row, word, words, is_emitter);
    }
  }
}

SectionRow HeaderOf(const NetworkHeader& header) {
  SectionRow row;
  row.Thema = FixedText<78>::FromUtf8(header.title);
  row.Material = FixedText<78>::FromUtf8(header.material);
  row.MeanTemp = header.MeanTemp;
  row.MeanVel = header.MeanVel;
  row.FileNumber = ToInt16(header.pipe_system);
  SetKind(row, header.kind);
  return row;
}

}  // namespace

std::vector<std::string_view> Lines(std::string_view text) {
  std::vector<std::string_view> lines;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find(','), text.size());
    lines.push_back(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return lines;
}

std::vector<SectionRow> Network(const std::vector<std::string_view>& lines,
                                const NetworkHeader& header) {
  std::vector<SectionRow> rows;
  for (const std::string_view line : lines) {
    SectionRow& row = rows.emplace_back(HeaderOf(header));
    row.RecordNumber = row.SectionNo = static_cast<std::int16_t>(rows.size());
    ReadLine(row, line);
  }
  const auto plant = std::ranges::find_if(rows, &SectionRow::HasPlantMark);
  const auto outlets = std::ranges::count_if(rows, &SectionRow::HasEmitter);
  for (SectionRow& row : rows) {
    row.TOT = static_cast<std::int16_t>(rows.size());
    row.Outlets = static_cast<std::int16_t>(outlets);
    row.BurChil = plant == rows.end() ? std::int16_t{0} : plant->RecordNumber;
  }
  return rows;
}

}  // namespace kalvo
