#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace kalvo::jet {

// Numbers of the Jet 4 format. Source: the notes "HACKING" of the mdbtools project, in the section
// named at each; docs/file-formats.md has them all.

inline constexpr std::size_t kPageSize = 4096;

// The first byte of a page ("Pages"); the second one is always 1.
inline constexpr char kDataPage = 1;
inline constexpr char kTablePage = 2;

// The first page ("Database Definition Page").
inline constexpr std::string_view kSignature{"\0\1\0\0Standard Jet DB\0", 20};
inline constexpr std::string_view kNewSignature{"\0\1\0\0Standard ACE DB\0", 20};
inline constexpr std::size_t kVersionAt = 0x14;
inline constexpr char kJet4 = 1;
inline constexpr std::size_t kScrambledAt = 0x18;
inline constexpr std::size_t kScrambledSize = 128;
inline constexpr std::size_t kCodePageAt = 0x3C;
inline constexpr std::size_t kKeyAt = 0x3E;
inline constexpr std::size_t kSortOrderAt = 0x6E;
/// Source: the article "Access" of fileformats.archiveteam.org: 0x6b39dac7.
inline constexpr std::string_view kScramblingKey = "\xC7\xDA\x39\x6B";

inline constexpr unsigned kGeneralSortOrder = 0x409;
inline constexpr unsigned kGreekCodePage = 1253;

// A data page ("Data Pages"): its head, and the flags of a row's offset.
inline constexpr std::size_t kFreeSpaceAt = 2;
inline constexpr std::size_t kOwnerAt = 4;
inline constexpr std::size_t kRowCountAt = 12;
inline constexpr std::size_t kDataHead = 14;
inline constexpr unsigned kRowMask = 0x1FFF;
inline constexpr unsigned kRowElsewhere = 0x4000;
inline constexpr unsigned kRowDeleted = 0x8000;

// A table's definition ("TDEF Pages"), by its bytes from the start of its first page.
inline constexpr std::size_t kTableHead = 8;
inline constexpr std::size_t kNextPageAt = 4;
inline constexpr std::size_t kLinesAt = 16;
inline constexpr std::size_t kTableKindAt = 40;
inline constexpr std::size_t kNumbersAt = 41;
inline constexpr std::size_t kVariablesAt = 43;
inline constexpr std::size_t kColumnCountAt = 45;
inline constexpr std::size_t kIndexesAt = 47;
inline constexpr std::size_t kIndexEntriesAt = 51;
inline constexpr std::size_t kOwnPagesAt = 55;
inline constexpr std::size_t kFreePagesAt = 59;
inline constexpr std::size_t kColumnsAt = 63;
inline constexpr std::size_t kIndexEntrySize = 12;
inline constexpr std::size_t kColumnSize = 25;
inline constexpr char kUserTable = 0x4E;
inline constexpr char kSystemTable = 0x53;
inline constexpr unsigned kMostColumns = 255;

// Types of columns ("Column Types") and flags ("Column flags").
inline constexpr std::uint8_t kBoolean = 1;
inline constexpr std::uint8_t kByte = 2;
inline constexpr std::uint8_t kInteger = 3;
inline constexpr std::uint8_t kLong = 4;
inline constexpr std::uint8_t kSingle = 6;
inline constexpr std::uint8_t kDateTime = 8;
inline constexpr std::uint8_t kBinary = 9;
inline constexpr std::uint8_t kText = 10;
inline constexpr std::uint8_t kOle = 11;
inline constexpr std::uint8_t kMemo = 12;
inline constexpr unsigned kFixedFlag = 1;
inline constexpr unsigned kNullableFlag = 2;

// A usage map within a row ("Type 0 Page Usage Map"): its kind, its first page, a bit a page.
inline constexpr char kInlineMap = 0;
inline constexpr std::size_t kMapHead = 5;
inline constexpr std::size_t kMapBytes = 64;

// The table of all objects ("Terminology"), and what its columns "Type" and "Flags" say.
inline constexpr std::uint32_t kCatalogPage = 2;
inline constexpr std::int32_t kTableObject = 1;
inline constexpr std::uint32_t kPageOfId = 0xFFFFFF;

}  // namespace kalvo::jet
