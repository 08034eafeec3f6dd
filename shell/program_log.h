#pragma once

#include <filesystem>

#include "study/disk.h"
#include "study/record.h"

namespace kalvo {

/// A record of `VamoProgs.log`, the log of installed programs: 250 bytes.
struct ProgramRow {
  FixedText<30> program;
  FixedText<200> folder;
  FixedText<20> display_name;

  static constexpr auto kFields = std::make_tuple(
      RecordField{"program", &ProgramRow::program}, RecordField{"folder", &ProgramRow::folder},
      RecordField{"display_name", &ProgramRow::display_name});
};
static_assert(RecordSize<ProgramRow>() == 250);

/// Records the program in the log of that folder: its own record is rewritten, else one is added.
/// Records of other programs, and a rest that is no record, stay. That it fails is no error.
void RecordProgram(Disk& disk, const std::filesystem::path& state_folder,
                   const std::filesystem::path& program_folder);

}  // namespace kalvo
