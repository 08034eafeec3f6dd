#include "study/sheet_file.h"

#include <charconv>
#include <optional>

#include "study/codepage.h"
#include "study/digest.h"

namespace kalvo {
namespace {

constexpr std::string_view kFormat = "KALVO-SHEET 1";
constexpr std::string_view kLastLine = "END";
constexpr int kMostRows = 32767;
constexpr int kFirstNumber = 3;

struct Header {
  SystemKind kind = SystemKind::kNone;
  char decimal = '.';
  int base_rows = 0;
  int rows = 0;
};

// Takes the text up to `end` off the front, and `end` with it; nothing when it is not there.
std::optional<std::string_view> TakeUntil(std::string_view& rest, char end) {
  const std::size_t at = rest.find(end);
  if (at == std::string_view::npos) return std::nullopt;
  const std::string_view taken = rest.substr(0, at);
  rest.remove_prefix(at + 1);
  return taken;
}

std::optional<int> WholeNumber(std::string_view text) {
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  const bool whole = error == std::errc() && end == text.data() + text.size();
  return whole && number >= 0 && number <= kMostRows ? std::optional(number) : std::nullopt;
}

// "CLOSED<tab>,<tab>20<tab>22": kind, sign of decimals, rows of the study, rows that follow.
std::optional<Header> ReadHeader(std::string_view line) {
  Header header;
  const auto kind = TakeUntil(line, '\t');
  const auto sign = TakeUntil(line, '\t');
  const auto base = TakeUntil(line, '\t');
  if (!kind || !sign || sign->size() != 1 || !base) return std::nullopt;
  if (*kind != "OPEN" && *kind != "CLOSED") return std::nullopt;
  header.kind = *kind == "OPEN" ? SystemKind::kOpen : SystemKind::kClosed;
  header.decimal = sign->front();
  const auto base_rows = WholeNumber(*base);
  const auto rows = WholeNumber(line);
  if (!base_rows || !rows) return std::nullopt;
  header.base_rows = *base_rows;
  header.rows = *rows;
  return header;
}

void ChangeSign(std::string& number, char from, char to) {
  for (char& character : number) {
    if (character == from) character = to;
  }
}

std::optional<SheetRow> ReadRow(std::string_view line, char from, char to) {
  SheetRow row;
  const auto origin_text = TakeUntil(line, '\t');
  const auto name = TakeUntil(line, '\t');
  const auto origin = origin_text ? WholeNumber(*origin_text) : std::nullopt;
  if (!origin || !name) return std::nullopt;
  row.origin = *origin;
  row.origin_name = FixedText<7>::FromBytes(ToCodePage(*name));
  for (int column = 0; column < kSheetColumns; ++column) {
    const auto text = column + 1 < kSheetColumns ? TakeUntil(line, '\t') : std::optional(line);
    if (!text || text->find('\t') != std::string_view::npos) return std::nullopt;
    std::string& kept = row.texts[static_cast<std::size_t>(column)];
    kept = *text;
    if (column >= kFirstNumber && from != to) ChangeSign(kept, from, to);
  }
  return row;
}

std::string HexDigest(std::string_view bytes) {
  std::array<char, 16> digits{};
  const auto [end, error] =
      std::to_chars(digits.data(), digits.data() + digits.size(), Digest(bytes), 16);
  static_cast<void>(error);  // 16 digits hold any
  return {digits.data(), end};
}

// A text of one line, as all are; what parts lines and cells becomes a blank all the same.
void AppendText(std::string& bytes, std::string_view text) {
  for (const char character : text) {
    bytes += character == '\t' || character == '\n' || character == '\r' ? ' ' : character;
  }
}

}  // namespace

std::string EncodeSheet(const SheetImage& image, char decimal) {
  std::string bytes(kFormat);
  bytes += image.kind == SystemKind::kOpen ? "\nOPEN\t" : "\nCLOSED\t";
  bytes += decimal;
  bytes += "\t" + std::to_string(image.base_rows) + "\t" + std::to_string(image.rows.size()) + "\n";
  for (const SheetRow& row : image.rows) {
    bytes += std::to_string(row.origin) + "\t";
    AppendText(bytes, FromCodePage(row.origin_name.bytes()));
    for (const std::string& text : row.texts) {
      bytes += '\t';
      AppendText(bytes, text);
    }
    bytes += '\n';
  }
  bytes += std::string(kLastLine) + " " + HexDigest(bytes) + "\n";
  return bytes;
}

Result<SheetImage> DecodeSheet(std::string_view bytes, const std::filesystem::path& file,
                               char decimal) {
  const FileError incomplete{file, "Το αρχείο του φύλλου είναι ελλιπές ή αλλοιωμένο"};
  const std::size_t last = bytes.rfind(kLastLine);
  if (last == std::string_view::npos) return incomplete;
  const std::string_view content = bytes.substr(0, last);
  if (bytes.substr(last) != std::string(kLastLine) + " " + HexDigest(content) + "\n") {
    return incomplete;
  }
  std::string_view rest = content;
  const auto format = TakeUntil(rest, '\n');
  if (!format || *format != kFormat) {
    return FileError{file, "Το αρχείο δεν είναι φύλλο αυτής της έκδοσης"};
  }
  const auto header_line = TakeUntil(rest, '\n');
  const auto header = header_line ? ReadHeader(*header_line) : std::nullopt;
  if (!header) return incomplete;
  SheetImage image{header->kind, header->base_rows, {}};
  for (int number = 0; number < header->rows; ++number) {
    const auto line = TakeUntil(rest, '\n');
    auto row = line ? ReadRow(*line, header->decimal, decimal) : std::nullopt;
    if (!row) return incomplete;
    image.rows.push_back(*std::move(row));
  }
  if (!rest.empty()) return incomplete;
  return image;
}

}  // namespace kalvo
