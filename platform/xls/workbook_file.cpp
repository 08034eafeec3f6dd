#include "platform/xls/workbook_file.h"

#include <algorithm>
#include <utility>

#include "platform/xls/read_workbook.h"
#include "platform/xls/workbook_reasons.h"
#include "platform/xls/write_workbook.h"

namespace kalvo {

namespace {

// Names of streams ([MS-XLS], Compound File Streams).
constexpr std::string_view kWorkbookStream = "Workbook";
constexpr std::string_view kOldWorkbookStream = "Book";  // up to Excel 95
constexpr std::string_view kEncryptedStream = "EncryptedPackage";

// Before Excel 5 a workbook was no compound file: it begins with its BOF record.
bool IsBareWorkbook(std::string_view bytes) {
  return bytes.size() >= 2 && bytes[0] == 9 &&
         (bytes[1] == 0 || bytes[1] == 2 || bytes[1] == 4 || bytes[1] == 8);
}

std::string_view ReasonAgainst(std::string_view bytes) {
  if (bytes.empty()) return workbook_reason::kEmpty;
  if (bytes.starts_with("PK\x03\x04")) return workbook_reason::kNewer;
  if (IsBareWorkbook(bytes)) return workbook_reason::kOlder;
  return IsCompoundFile(bytes) ? std::string_view() : workbook_reason::kOtherKind;
}

std::string_view ReasonAgainst(const CompoundEntry& root) {
  if (root.Find(kWorkbookStream) != nullptr) return {};
  if (root.Find(kEncryptedStream) != nullptr) return workbook_reason::kEncrypted;
  return root.Find(kOldWorkbookStream) != nullptr ? workbook_reason::kOlder
                                                  : workbook_reason::kOtherKind;
}

}  // namespace

Result<WorkbookFile> ReadWorkbookFile(std::string_view bytes) {
  if (const auto reason = ReasonAgainst(bytes); !reason.empty()) return Because(reason);
  auto root = ReadCompoundFile(bytes);
  if (!root) return root.error();
  if (const auto reason = ReasonAgainst(*root); !reason.empty()) return Because(reason);
  CompoundEntry& stream = *root->Find(kWorkbookStream);
  auto workbook = ReadWorkbookStream(stream.bytes);
  if (!workbook) return workbook.error();
  stream.bytes.clear();
  // The same workbook for an older program, which would not know of what is filled in.
  std::erase_if(root->entries,
                [](const CompoundEntry& entry) { return entry.name == kOldWorkbookStream; });
  return WorkbookFile{std::move(*workbook), std::move(*root)};
}

Result<std::string> WriteWorkbookFile(const WorkbookFile& file) {
  CompoundEntry root = file.root;
  root.Find(kWorkbookStream)->bytes = WriteWorkbookStream(file.workbook);
  return WriteCompoundFile(root);
}

}  // namespace kalvo
