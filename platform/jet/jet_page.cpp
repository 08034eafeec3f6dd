#include "platform/jet/jet_page.h"

#include <utility>

#include "platform/jet/jet_bytes.h"
#include "platform/jet/jet_format.h"

namespace kalvo {

std::size_t CountJetRows(std::string_view page) { return jet::U16At(page, jet::kRowCountAt); }

// Source: HACKING, "Data Pages": offsets from the head on, rows from the end of the page backwards.
std::optional<JetPageRow> FindJetRow(std::string_view page, std::size_t row) {
  using namespace jet;
  const std::size_t count = CountJetRows(page);
  const std::size_t offsets_end = kDataHead + 2 * count;
  if (row >= count || offsets_end > page.size()) return std::nullopt;
  const auto offset_of = [page](std::size_t at) { return U16At(page, kDataHead + 2 * at); };
  const unsigned offset = offset_of(row);
  const std::size_t begin = offset & kRowMask;
  const std::size_t end = row == 0 ? page.size() : offset_of(row - 1) & kRowMask;
  if (begin < offsets_end || begin > end || end > page.size()) return std::nullopt;
  return JetPageRow{begin, end - begin, (offset & kRowDeleted) != 0, (offset & kRowElsewhere) != 0};
}

bool JetPageWriter::Add(std::string_view row) {
  const std::size_t size = row.size() + 2;
  if (jet::kDataHead + size > jet::kPageSize) return false;
  if (jet::kDataHead + used_ + size > jet::kPageSize) EndPage();
  rows_.emplace_back(row);
  used_ += size;
  return true;
}

std::string JetPageWriter::Take() {
  if (!rows_.empty()) EndPage();
  return std::move(pages_);
}

void JetPageWriter::EndPage() {
  using namespace jet;
  std::string page(kPageSize, '\0');
  page[0] = kDataPage;
  page[1] = 1;
  PutU16(page, kFreeSpaceAt, static_cast<unsigned>(kPageSize - kDataHead - used_));
  PutU32(page, kOwnerAt, owner_);
  PutU16(page, kRowCountAt, static_cast<unsigned>(rows_.size()));
  std::size_t end = kPageSize;
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    end -= rows_[i].size();
    page.replace(end, rows_[i].size(), rows_[i]);
    PutU16(page, kDataHead + 2 * i, static_cast<unsigned>(end));
  }
  pages_ += page;
  rows_.clear();
  used_ = 0;
}

}  // namespace kalvo
