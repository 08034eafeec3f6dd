#include "study/designer_names.h"

#include <algorithm>

#include "study/fault.h"

namespace kalvo {
namespace {

constexpr std::string_view kKey = "40731862";

// Both powers are below 2^23, so every term has its place in 32 bits.
constexpr std::uint32_t SeedOf(std::string_view key) {
  unsigned a = 0;
  unsigned b = 0;
  std::uint32_t seed = 0;
  for (const char character : key) {
    const std::uint32_t code = static_cast<unsigned char>(character);
    a = (a + 7) % 19;
    b = (b + 13) % 23;
    seed ^= code << a;
    seed ^= code << b;
  }
  return seed;
}

// A linear congruential generator; its high bits are the ones that vary well.
class Noise {
 public:
  unsigned Next() {
    state_ = state_ * 1664525U + 1013904223U;
    return state_ >> 24U;
  }

 private:
  std::uint32_t state_ = SeedOf(kKey);
};

template <std::size_t N>
FixedText<N> ScrambledText(std::string_view utf8) {
  return FixedText<N>::FromBytes(Scrambled(FixedText<N>::FromUtf8(utf8).bytes()));
}

template <std::size_t N>
FixedText<N> UnscrambledText(const FixedText<N>& text) {
  return FixedText<N>::FromBytes(Unscrambled(text.bytes()));
}

template <std::size_t N>
bool IsTyped(const FixedText<N>& text) {
  return std::ranges::none_of(text.bytes(), [](char character) {
    const auto code = static_cast<unsigned char>(character);
    return code < ' ' || code == 0x7F;
  });
}

FileError Foreign(const std::filesystem::path& file) {
  return {file, "Το αρχείο δεν περιέχει ονόματα μελετητών"};
}

}  // namespace

bool DesignerList::Has(std::string_view name) const {
  return std::ranges::find(names, name) != names.end();
}

std::string ListedDesigner(std::string_view name) {
  const auto text = FixedText<kDesignerNameSize>::FromUtf8(Trim(name));
  return IsTyped(text) ? text.Utf8() : std::string();
}

std::string Scrambled(std::string_view bytes) {
  Noise noise;
  std::string scrambled;
  for (const char byte : bytes) {
    scrambled += static_cast<char>((static_cast<unsigned char>(byte) + noise.Next()) % 256);
  }
  return scrambled;
}

std::string Unscrambled(std::string_view bytes) {
  Noise noise;
  std::string plain;
  for (const char byte : bytes) {
    plain += static_cast<char>((static_cast<unsigned char>(byte) + 256 - noise.Next()) % 256);
  }
  return plain;
}

Result<DesignerList> ReadDesigners(const Workspace& workspace) {
  const RowReader<DesignerRow> file = workspace.Rows<DesignerRow>(work_file::kDesigners);
  const auto rows = file.ReadAll();
  if (!rows) return rows.error();
  DesignerList list;
  for (const DesignerRow& row : *rows) {
    const auto name = UnscrambledText(row.Name);
    const auto password = UnscrambledText(row.Password);
    const bool first = list.names.empty();
    if (!IsTyped(name) || (first && !IsTyped(password))) return Foreign(file.path());
    if (first) list.password = password.Utf8();
    list.names.push_back(name.Utf8());
    const bool once = std::ranges::count(list.names, list.names.back()) == 1;
    const bool in_place = row.Number == static_cast<int>(list.names.size());
    if (!in_place || !once || list.names.back().empty()) return Foreign(file.path());
  }
  return list;
}

Outcome WriteDesigners(Workspace& workspace, const DesignerList& list) {
  std::vector<DesignerRow> rows;
  for (const std::string& name : list.names) {
    DesignerRow row;
    row.Number = ToInt16(static_cast<double>(rows.size() + 1));
    row.Name = ScrambledText<kDesignerNameSize>(name);
    row.Password = ScrambledText<kDesignerPasswordSize>(list.password);
    rows.push_back(row);
  }
  return workspace.Rows<DesignerRow>(work_file::kDesigners).WriteAll(rows);
}

}  // namespace kalvo
