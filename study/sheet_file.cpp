#include "study/sheet_file.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <limits>
#include <optional>
#include <utility>

#include "study/digest.h"

namespace kalvo {
namespace {

constexpr std::string_view kFormat = "KALVOFLUME SHEET";
constexpr std::string_view kVersion = "1";
constexpr std::string_view kFoot = "TELOS ";
constexpr std::size_t kLeftColumn = 0;
constexpr std::size_t kRightColumn = 2;
constexpr int kMostRows = std::numeric_limits<std::int16_t>::max();

constexpr const char* kNoSheet = "Δεν είναι αρχείο φύλλου Τμημάτων";
constexpr const char* kOtherVersion = "Το φύλλο Τμημάτων είναι άλλης έκδοσης του Προγράμματος";
constexpr const char* kDamaged = "Το φύλλο Τμημάτων είναι ελλιπές ή αλλοιωμένο";

constexpr std::array<std::pair<SystemKind, std::string_view>, 3> kKindWords = {
    {{SystemKind::kNone, "NONE"}, {SystemKind::kClosed, "CLOSED"}, {SystemKind::kOpen, "OPEN"}}};

// Fields are parted by tabs and lines by line ends: neither is in a field, whatever the text is.
void AppendField(std::string& line, std::string_view text) {
  if (text.find_first_of("\\\t\n") == std::string_view::npos) {
    line += text;
    return;
  }
  for (const char byte : text) {
    switch (byte) {
      case '\\':
        line += "\\\\";
        break;
      case '\t':
        line += "\\t";
        break;
      case '\n':
        line += "\\n";
        break;
      default:
        line += byte;
    }
  }
}

std::string TextOfField(std::string_view field) {
  if (field.find('\\') == std::string_view::npos) return std::string(field);
  std::string text;
  text.reserve(field.size());
  for (std::size_t i = 0; i < field.size(); ++i) {
    if (field[i] != '\\' || i + 1 == field.size()) {
      text += field[i];
      continue;
    }
    const char byte = field[++i];
    text += byte == 't' ? '\t' : byte == 'n' ? '\n' : byte;
  }
  return text;
}

// Takes what comes before `end`, and `end`, off `rest`; without an `end` all of it.
std::string_view Take(std::string_view& rest, char end) {
  const std::size_t at = rest.find(end);
  const std::string_view taken = rest.substr(0, at);
  rest.remove_prefix(at == std::string_view::npos ? rest.size() : at + 1);
  return taken;
}

// Nothing unless it is a count of rows, or the number of one.
std::optional<int> CountIn(std::string_view field) {
  int count = 0;
  const auto [end, error] = std::from_chars(field.data(), field.data() + field.size(), count);
  const bool whole = error == std::errc{} && end == field.data() + field.size();
  return whole && count >= 0 && count <= kMostRows ? std::optional(count) : std::nullopt;
}

std::string FootOf(std::string_view body) {
  std::array<char, 17> hex{};
  const auto written = std::to_chars(hex.data(), hex.data() + hex.size(), Digest(body), 16);
  return std::string(kFoot) + std::string(hex.data(), written.ptr) + "\n";
}

// What the foot vouches for; nothing when the bytes do not end in the foot of what is before it.
std::optional<std::string_view> BodyOf(std::string_view bytes) {
  if (!bytes.ends_with('\n')) return std::nullopt;
  const std::size_t end = bytes.substr(0, bytes.size() - 1).rfind('\n');
  if (end == std::string_view::npos) return std::nullopt;
  const std::string_view body = bytes.substr(0, end + 1);
  return bytes.substr(end + 1) == FootOf(body) ? std::optional(body) : std::nullopt;
}

struct Head {
  SystemKind kind = SystemKind::kNone;
  char decimal = '.';
  int base_rows = 0;
  int rows = 0;
};

std::optional<Head> HeadIn(std::string_view line) {
  const std::string_view kind = Take(line, '\t');
  const std::string_view decimal = Take(line, '\t');
  const auto base_rows = CountIn(Take(line, '\t'));
  const auto rows = CountIn(line);
  if (decimal.size() != 1 || !base_rows || !rows) return std::nullopt;
  for (const auto& [known, word] : kKindWords) {
    if (kind == word) return Head{known, decimal.front(), *base_rows, *rows};
  }
  return std::nullopt;
}

std::optional<SheetRow> RowIn(std::string_view line) {
  SheetRow row;
  const auto origin = CountIn(Take(line, '\t'));
  if (!origin) return std::nullopt;
  row.origin = *origin;
  row.origin_name = FixedText<7>::FromUtf8(TextOfField(Take(line, '\t')));
  for (std::size_t i = 0; i < row.texts.size(); ++i) {
    const bool last = i + 1 == row.texts.size();
    if (last == (line.find('\t') != std::string_view::npos)) return std::nullopt;
    row.texts[i] = TextOfField(Take(line, '\t'));
  }
  return row;
}

// The same number under the other decimal sign. That sign parted thousands until now.
void ChangeDecimal(std::string& text, char from, char to) {
  if (to == ',' || to == '.') std::erase(text, to);
  for (char& byte : text) {
    if (byte == from) byte = to;
  }
}

// Row `number` holds what the user typed, read or pasted, and not only the names it began with.
bool IsSection(const SheetRow& row, SystemKind kind, int number) {
  const bool open = kind == SystemKind::kOpen;
  const std::string left = open ? std::to_string(number) : number == 1 ? std::string(kSource) : "";
  const std::string_view right = open && number == 1 ? kSource : "";
  if (!row.texts[kLeftColumn].empty() && row.texts[kLeftColumn] != left) return true;
  if (!row.texts[kRightColumn].empty() && row.texts[kRightColumn] != right) return true;
  return std::any_of(row.texts.begin() + kFirstNumberColumn, row.texts.end(),
                     [](const std::string& text) { return !text.empty(); });
}

}  // namespace

int CountSections(const SheetImage& sheet) {
  auto count = static_cast<int>(sheet.rows.size());
  while (count > 0 &&
         !IsSection(sheet.rows[static_cast<std::size_t>(count - 1)], sheet.kind, count)) {
    --count;
  }
  return count;
}

std::string EncodeSheet(const SheetImage& sheet, char decimal) {
  std::string text = std::string(kFormat) + "\t" + std::string(kVersion) + "\t";
  for (const auto& [kind, word] : kKindWords) {
    if (kind == sheet.kind) text += word;
  }
  text += std::string("\t") + decimal + "\t" + std::to_string(sheet.base_rows) + "\t" +
          std::to_string(sheet.rows.size()) + "\n";
  for (const SheetRow& row : sheet.rows) {
    text += std::to_string(row.origin);
    text += '\t';
    AppendField(text, FromCodePage(row.origin_name.bytes()));
    for (const std::string& cell : row.texts) {
      text += '\t';
      AppendField(text, cell);
    }
    text += '\n';
  }
  return text + FootOf(text);
}

Result<SheetImage> DecodeSheet(std::string_view bytes, const std::filesystem::path& file,
                               char decimal) {
  const FileError damaged{file, kDamaged};
  std::string_view begin = bytes;
  std::string_view head_line = Take(begin, '\n');
  if (Take(head_line, '\t') != kFormat) return FileError{file, kNoSheet};
  if (Take(head_line, '\t') != kVersion) return FileError{file, kOtherVersion};
  const auto body = BodyOf(bytes);
  const auto head = HeadIn(head_line);
  if (!body || !head) return damaged;
  SheetImage sheet{head->kind, head->base_rows, {}};
  std::string_view rest = *body;
  Take(rest, '\n');
  sheet.rows.reserve(std::min(static_cast<std::size_t>(head->rows), rest.size() / kSheetColumns));
  while (!rest.empty()) {
    auto row = RowIn(Take(rest, '\n'));
    if (!row || static_cast<int>(sheet.rows.size()) == head->rows) return damaged;
    if (head->decimal != decimal) {
      for (std::size_t i = kFirstNumberColumn; i < row->texts.size(); ++i) {
        ChangeDecimal(row->texts[i], head->decimal, decimal);
      }
    }
    sheet.rows.push_back(std::move(*row));
  }
  if (static_cast<int>(sheet.rows.size()) != head->rows) return damaged;
  return sheet;
}

}  // namespace kalvo
