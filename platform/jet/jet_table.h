#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "results/printing/print_columns.h"
#include "study/result.h"

namespace kalvo {

/// A column of a table; `type` as jet_format.h numbers it.
struct JetColumn {
  std::string name;
  std::uint8_t type = 0;
  bool fixed = false;            ///< at the same place in every row
  unsigned length = 0;           ///< bytes, of a text the most
  unsigned number = 0;           ///< its bit among those that tell what is missing
  unsigned fixed_offset = 0;     ///< of a fixed one
  unsigned variable_number = 0;  ///< of any other: which one it is
};

/// A row of a page.
struct JetRowPlace {
  std::uint32_t page = 0;
  unsigned row = 0;
};

/// What a table's definition says.
struct JetTable {
  std::uint32_t page = 0;         ///< where the definition begins
  std::uint32_t lines = 0;        ///< how many rows it has
  unsigned numbers = 0;           ///< one more than any column's number ever was
  unsigned variable_numbers = 0;  ///< likewise
  bool has_index = false;
  JetRowPlace own_pages;   ///< usage map of its pages
  JetRowPlace free_pages;  ///< and of those with room
  std::vector<JetColumn> columns;
};

/// The table that the definition's bytes describe: its first page, and of further ones what is
/// below their heads. Error, without a file: they do not make sense.
Result<JetTable> ReadJetTable(std::string_view definition);

/// The page that defines the table, `kind` being jet::kUserTable or jet::kSystemTable. It must fit.
/// `long_values` are two usage maps for each column of long values, in their order.
std::string WriteJetTable(const JetTable& table, char kind,
                          const std::vector<JetRowPlace>& long_values);

/// The bytes of a row with a value for each of the table's columns. A value that the column's type
/// does not hold is missing, a text is cut to its length.
std::string WriteJetRow(const JetTable& table, const PrintLine& values);

/// The values of a row: numbers of 16 and 32 bits, singles and texts; what else is there counts as
/// missing. Error, without a file.
Result<PrintLine> ReadJetRow(const JetTable& table, std::string_view row);

}  // namespace kalvo
