#include "platform/jet/jet_file.h"

#include <algorithm>

#include "platform/jet/jet_bytes.h"
#include "platform/jet/jet_format.h"
#include "platform/jet/jet_page.h"
#include "platform/jet/jet_reasons.h"
#include "study/letter_case.h"

namespace kalvo {
namespace {

constexpr std::size_t kMostObjects = 65536;  // that are looked through for a table

// Why the first page is not that of a database that can be read; empty: it is.
std::string_view ReasonAgainstJet(std::string_view bytes) {
  using namespace jet;
  if (bytes.empty()) return jet_reason::kEmpty;
  const std::string_view start = bytes.substr(0, kSignature.size());
  if (start == kNewSignature) return jet_reason::kNewer;
  if (start != kSignature.substr(0, start.size())) return jet_reason::kOtherKind;
  if (bytes.size() > kVersionAt && bytes[kVersionAt] != kJet4) {
    return bytes[kVersionAt] < kJet4 ? jet_reason::kOlder : jet_reason::kNewer;
  }
  if (bytes.size() % kPageSize != 0 || bytes.size() / kPageSize <= kCatalogPage) {
    return jet_reason::kCut;
  }
  const std::string head = Scrambled(bytes.substr(kScrambledAt, kScrambledSize), kScramblingKey);
  return U32At(head, kKeyAt - kScrambledAt) != 0 ? jet_reason::kEncrypted : std::string_view();
}

std::string TextIn(const PrintLine& line, std::size_t column) {
  const auto* text = std::get_if<std::string>(&line[column]);
  return text != nullptr ? *text : std::string();
}

std::optional<std::int32_t> NumberIn(const PrintLine& line, std::size_t column) {
  const auto* number = std::get_if<std::int32_t>(&line[column]);
  return number != nullptr ? std::optional(*number) : std::nullopt;
}

std::size_t ColumnNamed(const JetTable& table, std::string_view name) {
  return static_cast<std::size_t>(std::ranges::find(table.columns, name, &JetColumn::name) -
                                  table.columns.begin());
}

}  // namespace

Result<JetFile> JetFile::Open(std::string bytes) {
  if (bytes.size() > kMostJetBytes) return JetError(jet_reason::kTooLarge);
  if (const auto reason = ReasonAgainstJet(bytes); !reason.empty()) return JetError(reason);
  return JetFile(std::move(bytes));
}

std::uint32_t JetFile::PageCount() const {
  return static_cast<std::uint32_t>(bytes_.size() / jet::kPageSize);
}

std::string_view JetFile::Page(std::uint32_t number) const {
  return std::string_view(bytes_).substr(number * jet::kPageSize, jet::kPageSize);
}

Result<JetTable> JetFile::ReadTable(std::uint32_t page) const {
  using namespace jet;
  constexpr std::size_t kMostPages = 32;  // far more than 255 columns take
  std::string definition;
  std::uint32_t next = page;
  for (std::size_t i = 0; next != 0 || i == 0; ++i) {
    if (next >= PageCount() || Page(next)[0] != kTablePage || i == kMostPages) {
      return JetError(jet_reason::kDamaged);
    }
    definition += Page(next).substr(i == 0 ? 0 : kTableHead);
    next = U32At(Page(next), kNextPageAt);
  }
  auto table = ReadJetTable(definition);
  if (table) table->page = page;
  return table;
}

Result<std::optional<JetTable>> JetFile::FindTable(std::string_view name) const {
  auto catalog = ReadTable(jet::kCatalogPage);
  if (!catalog) return catalog.error();
  const std::size_t name_column = ColumnNamed(*catalog, "Name");
  const std::size_t id_column = ColumnNamed(*catalog, "Id");
  const std::size_t type_column = ColumnNamed(*catalog, "Type");
  if (std::max({name_column, id_column, type_column}) >= catalog->columns.size()) {
    return JetError(jet_reason::kDamaged);
  }
  std::optional<std::uint32_t> page;
  std::size_t left = kMostObjects;
  const Outcome visited = VisitLines(*catalog, [&](const PrintLine& object) {
    const auto id = NumberIn(object, id_column);
    if (id && NumberIn(object, type_column) == jet::kTableObject &&
        EqualIgnoringCase(TextIn(object, name_column), name)) {
      page = static_cast<std::uint32_t>(*id) & jet::kPageOfId;
    }
    return !page && --left > 0;
  });
  if (!visited) return visited.error();
  if (left == 0) return JetError(jet_reason::kDamaged);
  if (!page) return std::optional<JetTable>();
  auto table = ReadTable(*page);
  if (!table) return table.error();
  return std::optional(std::move(*table));
}

Result<std::vector<PrintLine>> JetFile::ReadLines(const JetTable& table) const {
  std::vector<PrintLine> lines;
  const Outcome visited = VisitLines(table, [&lines](PrintLine& line) {
    lines.push_back(std::move(line));
    return true;
  });
  if (!visited) return visited.error();
  return lines;
}

Outcome JetFile::VisitLines(const JetTable& table,
                            const std::function<bool(PrintLine&)>& visit) const {
  for (std::uint32_t page = 1; page < PageCount(); ++page) {
    const std::string_view bytes = Page(page);
    if (bytes[0] != jet::kDataPage || jet::U32At(bytes, jet::kOwnerAt) != table.page) continue;
    for (unsigned i = 0; i < CountJetRows(bytes); ++i) {
      const auto row = RowAt({page, i});
      if (!row) return row.error();
      if (!*row) continue;
      auto line = ReadJetRow(table, **row);
      if (!line) return line.error();
      if (!visit(*line)) return Done{};
    }
  }
  return Done{};
}

Result<std::optional<std::string_view>> JetFile::RowAt(const JetRowPlace& place) const {
  const FileError damaged = JetError(jet_reason::kDamaged);
  std::string_view page = Page(place.page);
  auto row = FindJetRow(page, place.row);
  if (!row) return damaged;
  if (row->deleted) return std::optional<std::string_view>();
  if (row->elsewhere) {
    if (row->size < 4) return damaged;
    const std::uint32_t moved = jet::U32At(page, row->begin);
    if (moved >> 8U >= PageCount()) return damaged;
    page = Page(moved >> 8U);
    row = FindJetRow(page, moved & 0xFFU);
    if (!row) return damaged;
  }
  return std::optional(page.substr(row->begin, row->size));
}

Outcome JetFile::Append(const JetTable& table, const std::vector<PrintLine>& lines) {
  if (lines.empty()) return Done{};
  const std::uint32_t first = PageCount();
  if (Outcome added = AppendPages(table, lines); !added) return added;
  const auto count = table.lines + static_cast<std::uint32_t>(lines.size());
  jet::PutU32(bytes_, table.page * jet::kPageSize + jet::kLinesAt, count);
  if (Outcome marked = MarkPages(table.own_pages, first, PageCount()); !marked) return marked;
  return MarkPages(table.free_pages, PageCount() - 1, PageCount());
}

Outcome JetFile::AppendPages(const JetTable& table, const std::vector<PrintLine>& lines) {
  JetPageWriter pages(table.page);
  for (const PrintLine& line : lines) {
    if (!pages.Add(WriteJetRow(table, line))) return JetError(jet_reason::kDoesNotFit);
  }
  bytes_ += pages.Take();
  return Done{};
}

// Enters the pages in a usage map; an empty one begins with the first of them. The second kind of
// map is of databases with more than 512 pages and is not known here.
Outcome JetFile::MarkPages(const JetRowPlace& map, std::uint32_t first, std::uint32_t end) {
  using namespace jet;
  if (map.page >= PageCount() || Page(map.page)[0] != kDataPage) {
    return JetError(jet_reason::kDamaged);
  }
  const auto row = FindJetRow(Page(map.page), map.row);
  if (!row || row->size <= kMapHead) return JetError(jet_reason::kDamaged);
  const std::size_t at = map.page * kPageSize + row->begin;
  if (bytes_[at] != kInlineMap) return JetError(jet_reason::kDoesNotFit);
  const auto bits = std::string_view(bytes_).substr(at + kMapHead, row->size - kMapHead);
  if (std::ranges::all_of(bits, [](char byte) { return byte == 0; })) {
    PutU32(bytes_, at + 1, first / 8 * 8);
  }
  const std::uint32_t start = U32At(bytes_, at + 1);
  if (first < start || end - start > 8 * bits.size()) return JetError(jet_reason::kDoesNotFit);
  for (std::uint32_t page = first - start; page < end - start; ++page) {
    char& byte = bytes_[at + kMapHead + page / 8];
    byte = static_cast<char>(static_cast<unsigned char>(byte) | 1U << page % 8);
  }
  return Done{};
}

}  // namespace kalvo
