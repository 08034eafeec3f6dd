#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/jet/jet_table.h"

namespace kalvo {

/// The longest database that is read, in bytes.
constexpr std::size_t kMostJetBytes = 8U << 20U;

/// The pages of a Jet 4 database. Errors come without a file.
class JetFile {
 public:
  /// Errors: the bytes are no database, one of another version, cut or encrypted.
  static Result<JetFile> Open(std::string bytes);

  /// The table of that name, whatever its case; none: there is no such table.
  [[nodiscard]] Result<std::optional<JetTable>> FindTable(std::string_view name) const;
  /// All rows of a table, in the order of their pages.
  [[nodiscard]] Result<std::vector<PrintLine>> ReadLines(const JetTable& table) const;

  /// Adds rows with a value for each of the table's columns, on pages behind the last one. The
  /// table has no index. After an error the file is of no use.
  Outcome Append(const JetTable& table, const std::vector<PrintLine>& lines);

  /// Hands over the bytes.
  std::string Take() { return std::move(bytes_); }

 private:
  explicit JetFile(std::string bytes) : bytes_(std::move(bytes)) {}

  [[nodiscard]] std::uint32_t PageCount() const;
  [[nodiscard]] std::string_view Page(std::uint32_t number) const;
  [[nodiscard]] Result<JetTable> ReadTable(std::uint32_t page) const;
  /// Calls `visit` with every row of a table until it returns false.
  [[nodiscard]] Outcome VisitLines(const JetTable& table,
                                   const std::function<bool(PrintLine&)>& visit) const;
  /// The bytes of a row of a data page, wherever it has moved to; none: it is deleted.
  [[nodiscard]] Result<std::optional<std::string_view>> RowAt(const JetRowPlace& place) const;
  Outcome AppendPages(const JetTable& table, const std::vector<PrintLine>& lines);
  Outcome MarkPages(const JetRowPlace& map, std::uint32_t first, std::uint32_t end);

  std::string bytes_;
};

}  // namespace kalvo
