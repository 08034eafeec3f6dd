#include "shell/manual/manual_file.h"

#include <array>
#include <charconv>
#include <optional>

#include "form/tell.h"

namespace kalvo {
namespace {

constexpr std::string_view kMarkBegins = "% Kalvoflume ";
constexpr std::size_t kLongestMark = 80;

// FNV-1a, 64 bits (RFC draft "The FNV Non-Cryptographic Hash Algorithm").
std::uint64_t SumOf(std::string_view bytes) {
  std::uint64_t sum = 0xCBF29CE484222325U;
  for (const char byte : bytes) {
    sum ^= static_cast<unsigned char>(byte);
    sum *= 0x100000001B3U;
  }
  return sum;
}

using Version = std::array<int, 3>;

Version VersionOf(std::string_view text) {
  Version version{};
  const char* at = text.data();
  const char* const end = at + text.size();
  for (int& number : version) {
    const auto read = std::from_chars(at, end, number);
    at = read.ptr == end ? end : read.ptr + 1;
  }
  return version;
}

// The version of a manual that is as it was delivered; nothing of one that was changed.
std::optional<Version> DeliveredVersion(std::string_view bytes) {
  const std::size_t begin = bytes.rfind(kMarkBegins);
  if (begin == std::string_view::npos || bytes.size() - begin > kLongestMark) return std::nullopt;
  std::string_view version = bytes.substr(begin + kMarkBegins.size());
  version = version.substr(0, version.find(' '));
  const std::string_view pdf = bytes.substr(0, begin);
  if (bytes.substr(begin) != ManualMark(pdf, version)) return std::nullopt;
  return VersionOf(version);
}

// Whether the installed one shall replace a copy with other bytes.
bool IsNewer(const Disk& disk, const std::filesystem::path& source, std::string_view installed,
             const std::filesystem::path& target, std::string_view there) {
  const auto version_there = DeliveredVersion(there);
  const auto version = DeliveredVersion(installed);
  if (!version_there || !version) return false;
  if (*version != *version_there) return *version > *version_there;
  const auto status = disk.Status(source);
  const auto status_there = disk.Status(target);
  return status && *status && status_there && *status_there &&
         (*status)->modified > (*status_there)->modified;
}

}  // namespace

std::string ManualMark(std::string_view pdf, std::string_view version) {
  std::array<char, 17> digits{};
  constexpr int kHexadecimal = 16;
  const auto written =
      std::to_chars(digits.data(), digits.data() + digits.size(), SumOf(pdf), kHexadecimal);
  return std::string(kMarkBegins) + std::string(version) + ' ' +
         std::string(digits.data(), written.ptr) + '\n';
}

Outcome DeliverManual(Disk& disk, const std::filesystem::path& folder,
                      const std::filesystem::path& installed) {
  const std::filesystem::path target = folder / kManualFile;
  const std::filesystem::path source = installed / kManualPart / kManualFile;
  const bool missing = !disk.Exists(target);
  auto bytes = disk.Read(source);
  if (!bytes) return missing ? Outcome(bytes.error()) : Done{};
  if (!missing) {
    const auto there = disk.Read(target);
    // What cannot be read may hold notes.
    if (!there || *there == *bytes || !IsNewer(disk, source, *bytes, target, *there)) return Done{};
  }
  Outcome written = ReplaceFile(disk, target, std::move(*bytes));
  return missing ? written : Done{};
}

void OpenManualFile(Desk& desk) {
  Workbench& bench = desk.bench;
  // What kept it away at the start may be over, or can be told.
  const Outcome delivered =
      DeliverManual(bench.workspace.outer_disk(), desk.program_folder, desk.installed_folder);
  if (!TellIfFailed(bench, delivered)) return;
  TellIfFailed(bench, desk.viewer.Open(desk.program_folder / kManualFile));
}

}  // namespace kalvo
