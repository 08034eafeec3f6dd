#include "shell/program_log.h"

#include <algorithm>
#include <string>

namespace kalvo {
namespace {

constexpr std::string_view kProgram = "KALVO.EXE";
constexpr std::string_view kDisplayName = "Kalvoflume";
constexpr const char* kLogFile = "VamoProgs.log";

}  // namespace

void RecordProgram(Disk& disk, const std::filesystem::path& state_folder,
                   const std::filesystem::path& program_folder) {
  constexpr std::size_t kSize = RecordSize<ProgramRow>();
  if (!disk.MakeFolder(state_folder)) return;
  const auto path = state_folder / kLogFile;
  const auto read = disk.Read(path);
  if (!read && !read.error().IsMissing()) return;
  std::string bytes = read ? *read : std::string();
  std::size_t at = 0;
  while (at + kSize <= bytes.size() &&
         DecodeRecord<ProgramRow>(bytes.data() + at).program.Trimmed() != kProgram) {
    at += kSize;
  }
  // A rest that is no record must not shift the new one off its place.
  bytes.resize(std::max(bytes.size(), at + kSize), ' ');
  ProgramRow row;
  row.program = FixedText<30>::FromUtf8(kProgram);
  row.folder = FixedText<200>::FromUtf8(program_folder.string());
  row.display_name = FixedText<20>::FromUtf8(kDisplayName);
  EncodeRecord(row, bytes.data() + at);
  static_cast<void>(ReplaceFile(disk, path, std::move(bytes)));
}

}  // namespace kalvo
