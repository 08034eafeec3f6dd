#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "study/pipe_row.h"
#include "study/workspace.h"

namespace kalvo {

/// The words by which a material is known to the fittings.
constexpr std::string_view kSteelWord = "STEEL";
constexpr std::string_view kCopperWord = "COPPER";

/// One pipe system of the list. Its number is its position in the list, not in the file's name.
struct PipeListEntry {
  int number = 0;
  std::string file_name;
  std::string title;     ///< trimmed, UTF-8
  std::string material;  ///< trimmed
  int sizes = 0;

  /// " 0001. title ", as the lists show it.
  [[nodiscard]] std::string Text() const;
};

using PipeList = std::vector<PipeListEntry>;

/// What becomes of an empty `.WPT` file; it takes no place in the list either way.
enum class EmptyLibraries { kDelete, kSkip };

/// The pipe systems of the library folder, in the listing's name order. Error: a file whose length
/// is no whole number of records (the program ends on it) or that cannot be read.
Result<PipeList> BuildPipeList(Workspace& workspace, EmptyLibraries empty);

/// The box that tells of an unsuitable library before the program ends.
struct Box UnsuitableLibraryBox(const FileError& error);

/// "0001.WPT" for 1.
std::string PipeFileName(int number);

/// All sizes of a pipe system, in file order; at least one.
/// Error: the file is missing, empty, or no whole number of records.
Result<std::vector<PipeRow>> ReadPipeSystem(const Workspace& workspace, int number);

/// "Υλικό Σωλήνων : ΧΑΛΥΒΑΣ" for "STEEL", "... ΧΑΛΚΟΣ" for "COPPER", else the word itself.
std::string MaterialLine(std::string_view material);

}  // namespace kalvo
