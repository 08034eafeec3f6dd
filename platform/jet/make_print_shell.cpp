// A new database. What the tables of the system hold is said in docs/file-formats.md.

#include <algorithm>

#include "platform/jet/jet_bytes.h"
#include "platform/jet/jet_format.h"
#include "platform/jet/jet_page.h"
#include "platform/jet/jet_table.h"
#include "platform/jet/print_shell.h"

namespace kalvo {
namespace jet {
namespace {

struct ColumnPlan {
  std::string_view name;
  std::uint8_t type = 0;
  unsigned length = 0;  ///< bytes
};

struct TablePlan {
  std::string_view name;
  bool is_system = true;
  std::vector<ColumnPlan> columns;
};

constexpr unsigned kLongestText = 510;
constexpr unsigned kLongestBinary = 255;

// The objects that tables and databases are within, and that of the database itself.
constexpr std::int32_t kTables = 0x0F000001;
constexpr std::int32_t kDatabases = 0x0F000002;
constexpr std::int32_t kRelationships = 0x0F000003;
constexpr std::int32_t kRoot = 0x0F000000;
constexpr std::int32_t kDatabase = 0x10000000;
constexpr std::int32_t kDatabaseObject = 2;
constexpr std::int32_t kContainerObject = 3;
constexpr auto kSystemFlag = static_cast<std::int32_t>(0x80000000U);

std::vector<TablePlan> SystemTables() {
  return {{"MSysObjects",
           true,
           {{"Id", kLong, 4},
            {"ParentId", kLong, 4},
            {"Name", kText, kLongestText},
            {"Type", kInteger, 2},
            {"DateCreate", kDateTime, 8},
            {"DateUpdate", kDateTime, 8},
            {"Owner", kBinary, kLongestBinary},
            {"Flags", kLong, 4},
            {"Database", kMemo, 0},
            {"Connect", kMemo, 0},
            {"ForeignName", kText, kLongestText},
            {"RmtInfoShort", kBinary, kLongestBinary},
            {"RmtInfoLong", kOle, 0},
            {"Lv", kOle, 0},
            {"LvProp", kOle, 0},
            {"LvModule", kOle, 0},
            {"LvExtra", kOle, 0}}},
          {"MSysACEs",
           true,
           {{"ObjectId", kLong, 4},
            {"ACM", kLong, 4},
            {"FInheritable", kBoolean, 1},
            {"SID", kBinary, kLongestBinary}}},
          {"MSysQueries",
           true,
           {{"ObjectId", kLong, 4},
            {"Attribute", kByte, 1},
            {"Order", kBinary, kLongestBinary},
            {"Name1", kText, kLongestText},
            {"Name2", kText, kLongestText},
            {"Expression", kMemo, 0},
            {"Flag", kInteger, 2},
            {"LvExtra", kOle, 0}}},
          {"MSysRelationships",
           true,
           {{"szRelationship", kText, kLongestText},
            {"grbit", kLong, 4},
            {"ccolumn", kLong, 4},
            {"icolumn", kLong, 4},
            {"szObject", kText, kLongestText},
            {"szColumn", kText, kLongestText},
            {"szReferencedObject", kText, kLongestText},
            {"szReferencedColumn", kText, kLongestText}}}};
}

ColumnPlan PlanOf(const PrintColumn& column) {
  switch (column.type) {
    case PrintType::kInteger:
      return {column.name, kInteger, 2};
    case PrintType::kSingle:
      return {column.name, kSingle, 4};
    case PrintType::kText:
      break;
  }
  return {column.name, kText, 2 * static_cast<unsigned>(column.width)};
}

bool IsVariable(std::uint8_t type) {
  return type == kBinary || type == kText || type == kOle || type == kMemo;
}

JetTable TableOf(const TablePlan& plan, std::uint32_t page) {
  JetTable table;
  table.page = page;
  unsigned fixed_end = 0;
  for (const ColumnPlan& column : plan.columns) {
    const bool fixed = !IsVariable(column.type);
    table.columns.push_back({std::string(column.name), column.type, fixed, column.length,
                             table.numbers++, fixed ? fixed_end : 0, table.variable_numbers});
    if (!fixed) {
      ++table.variable_numbers;
    } else if (column.type != kBoolean) {
      fixed_end += column.length;
    }
  }
  return table;
}

// Lays out the pages: the tables' definitions from the catalog's on, the usage maps, the catalog.
class ShellMaker {
 public:
  explicit ShellMaker(std::vector<TablePlan> plans) : plans_(std::move(plans)) {
    maps_page_ = kCatalogPage + static_cast<std::uint32_t>(plans_.size());
    for (const TablePlan& plan : plans_) {
      tables_.push_back(TableOf(plan, kCatalogPage + static_cast<std::uint32_t>(tables_.size())));
    }
  }

  std::string Make() {
    const std::vector<PrintLine> objects = Objects();
    tables_.front().lines = static_cast<std::uint32_t>(objects.size());
    JetPageWriter catalog(kCatalogPage);
    for (const PrintLine& object : objects) catalog.Add(WriteJetRow(tables_.front(), object));
    std::string definitions;
    for (std::size_t i = 0; i < plans_.size(); ++i) definitions += Definition(i);
    JetPageWriter all_pages(0);
    all_pages.Add(UsageMap(std::nullopt));
    return FirstPage() + all_pages.Take() + definitions + maps_.Take() + catalog.Take();
  }

 private:
  static std::string FirstPage() {
    std::string page(kPageSize, '\0');
    page.replace(0, kSignature.size(), kSignature);
    page[kVersionAt] = kJet4;
    PutU16(page, kCodePageAt, kGreekCodePage);
    PutU32(page, kSortOrderAt, kGeneralSortOrder);
    const std::string scrambled =
        Scrambled(page.substr(kScrambledAt, kScrambledSize), kScramblingKey);
    return page.replace(kScrambledAt, kScrambledSize, scrambled);
  }

  // With one page or none.
  static std::string UsageMap(std::optional<std::uint32_t> page) {
    std::string map(kMapHead + kMapBytes, '\0');
    if (page) map[kMapHead + *page / 8] = static_cast<char>(1U << *page % 8);
    return map;
  }

  JetRowPlace AddMap(std::optional<std::uint32_t> page) {
    maps_.Add(UsageMap(page));
    return {maps_page_, map_count_++};
  }

  std::string Definition(std::size_t index) {
    JetTable& table = tables_[index];
    const auto pages = index == 0 ? std::optional(maps_page_ + 1) : std::nullopt;
    table.own_pages = AddMap(pages);
    table.free_pages = AddMap(pages);
    std::vector<JetRowPlace> long_values;
    for (const JetColumn& column : table.columns) {
      if (column.type != kMemo && column.type != kOle) continue;
      long_values.push_back(AddMap(std::nullopt));
      long_values.push_back(AddMap(std::nullopt));
    }
    return WriteJetTable(table, plans_[index].is_system ? kSystemTable : kUserTable, long_values);
  }

  PrintLine Object(std::int32_t id, std::int32_t parent, std::string_view name, std::int32_t type,
                   std::int32_t flags) const {
    PrintLine line(tables_.front().columns.size());
    const auto put = [this, &line](std::string_view column, PrintValue value) {
      const auto& columns = tables_.front().columns;
      const auto found = std::ranges::find(columns, column, &JetColumn::name);
      line[static_cast<std::size_t>(found - columns.begin())] = std::move(value);
    };
    put("Id", id);
    put("ParentId", parent);
    put("Name", std::string(name));
    put("Type", type);
    put("Flags", flags);
    return line;
  }

  [[nodiscard]] std::vector<PrintLine> Objects() const {
    std::vector<PrintLine> lines = {
        Object(kTables, kRoot, "Tables", kContainerObject, kSystemFlag),
        Object(kDatabases, kRoot, "Databases", kContainerObject, kSystemFlag),
        Object(kRelationships, kRoot, "Relationships", kContainerObject, kSystemFlag),
        Object(kDatabase, kDatabases, "MSysDb", kDatabaseObject, kSystemFlag)};
    for (std::size_t i = 0; i < plans_.size(); ++i) {
      lines.push_back(Object(static_cast<std::int32_t>(tables_[i].page), kTables, plans_[i].name,
                             kTableObject, plans_[i].is_system ? kSystemFlag : 0));
    }
    return lines;
  }

  std::vector<TablePlan> plans_;
  std::vector<JetTable> tables_;
  std::uint32_t maps_page_ = 0;
  unsigned map_count_ = 0;
  JetPageWriter maps_{0};
};

}  // namespace
}  // namespace jet

std::string MakePrintShell(const std::vector<PrintColumn>& columns) {
  std::vector<jet::TablePlan> plans = jet::SystemTables();
  jet::TablePlan& table = plans.emplace_back();
  table.name = kPrintTable;
  table.is_system = false;
  for (const PrintColumn& column : columns) table.columns.push_back(jet::PlanOf(column));
  return jet::ShellMaker(std::move(plans)).Make();
}

}  // namespace kalvo
