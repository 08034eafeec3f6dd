#include "platform/xls/shared_strings.h"

#include <algorithm>

#include "platform/xls/workbook_reasons.h"

namespace kalvo {

namespace {

constexpr unsigned kWide = 1;
constexpr unsigned kWithExtension = 4;
constexpr unsigned kWithRuns = 8;
constexpr std::size_t kRunBytes = 4;

// The body of a record that goes on in a CONTINUE record whenever one is full.
class ContinuedBody {
 public:
  [[nodiscard]] std::size_t Room() const {
    const std::size_t begin = record_.joints.empty() ? 0 : record_.joints.back();
    return biff::kMostBytes - (record_.body.size() - begin);
  }
  void GoOn() { record_.joints.push_back(record_.body.size()); }
  void Append(std::string_view bytes) { record_.body += bytes; }
  // Bytes that may be parted anywhere between units of that size.
  void AppendUnits(std::string_view bytes, std::size_t unit) {
    while (!bytes.empty()) {
      if (Room() < unit) GoOn();
      const std::size_t taken = std::min(bytes.size(), Room() / unit * unit);
      Append(bytes.substr(0, taken));
      bytes.remove_prefix(taken);
    }
  }
  Record Take(std::uint16_t type) {
    record_.type = type;
    return std::move(record_);
  }

 private:
  Record record_;
};

std::string HeadOf(const SharedText& text, std::size_t characters, bool wide) {
  const bool has_runs = !text.runs.empty();
  const bool has_extension = !text.extension.empty();
  ByteWriter head;
  head.U16(static_cast<unsigned>(characters));
  head.U8((wide ? kWide : 0) | (has_runs ? kWithRuns : 0) | (has_extension ? kWithExtension : 0));
  if (has_runs) head.U16(static_cast<unsigned>(text.runs.size() / kRunBytes));
  if (has_extension) head.U32(static_cast<std::uint32_t>(text.extension.size()));
  return head.Take();
}

// Characters may go on in the next record, which then says first how wide they are.
void AppendCharacters(ContinuedBody& body, std::u16string_view units, bool wide) {
  const std::size_t width = wide ? 2 : 1;
  while (!units.empty()) {
    if (body.Room() < width) {
      body.GoOn();
      body.Append(std::string_view(wide ? "\1" : "\0", 1));
    }
    const std::size_t taken = std::min(units.size(), body.Room() / width);
    ByteWriter characters;
    for (const char16_t unit : units.substr(0, taken)) {
      if (wide) {
        characters.U16(unit);
      } else {
        characters.U8(unit);
      }
    }
    body.Append(characters.Take());
    units.remove_prefix(taken);
  }
}

void AppendShared(ContinuedBody& body, const SharedText& text) {
  const std::u16string units = ToUtf16(text.text, 0xFFFF);
  const bool wide = !FitsBytes(units);
  const std::string head = HeadOf(text, units.size(), wide);
  // A head is in one record, together with the first character.
  if (body.Room() < head.size() + 2) body.GoOn();
  body.Append(head);
  AppendCharacters(body, units, wide);
  body.AppendUnits(text.runs, kRunBytes);
  body.AppendUnits(text.extension, 1);
}

SharedText ReadShared(RecordReader& reader) {
  SharedText text;
  const unsigned count = reader.U16();
  const unsigned flags = reader.U8();
  const std::size_t runs = (flags & kWithRuns) != 0 ? reader.U16() * kRunBytes : 0;
  const std::size_t extension = (flags & kWithExtension) != 0 ? reader.U32() : 0;
  text.text = reader.Characters(count, (flags & kWide) != 0);
  text.runs = reader.Bytes(runs);
  text.extension = reader.Bytes(extension);
  return text;
}

}  // namespace

std::uint32_t SharedTexts::Add(std::string_view text) {
  std::string kept(text);
  // A character of UTF-16 takes at least a byte of UTF-8.
  if (text.size() > kMostCharacters) kept = FromUtf16(ToUtf16(text, kMostCharacters));
  const auto known = plain_.find(kept);
  return known != plain_.end() ? known->second : Append({std::move(kept), {}, {}});
}

std::uint32_t SharedTexts::Append(SharedText text) {
  const auto index = static_cast<std::uint32_t>(texts_.size());
  if (text.runs.empty() && text.extension.empty()) plain_.try_emplace(text.text, index);
  texts_.push_back(std::move(text));
  return index;
}

Result<SharedTexts> ReadSharedTexts(const Record& record) {
  RecordReader reader(record);
  reader.U32();  // how often cells refer to them; counted anew
  const std::uint32_t count = reader.U32();
  SharedTexts texts;
  for (std::uint32_t i = 0; i < count && reader.ok(); ++i) texts.Append(ReadShared(reader));
  if (!reader.ok()) return Because(workbook_reason::kDamaged);
  return texts;
}

Record WriteSharedTexts(const std::vector<const SharedText*>& texts, std::uint32_t references) {
  ContinuedBody body;
  ByteWriter head;
  head.U32(references).U32(static_cast<std::uint32_t>(texts.size()));
  body.Append(head.Take());
  for (const SharedText* text : texts) AppendShared(body, *text);
  return body.Take(biff::kSst);
}

}  // namespace kalvo
