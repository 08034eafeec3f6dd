#pragma once

#include <span>
#include <string>
#include <vector>

#include "study/disk.h"
#include "study/record.h"

namespace kalvo {

/// Images of `rows`, one after the other.
template <typename Row>
std::string EncodeRows(std::span<const Row> rows) {
  std::string bytes(rows.size() * RecordSize<Row>(), '\0');
  char* at = bytes.data();
  for (const Row& row : rows) {
    EncodeRecord(row, at);
    at += RecordSize<Row>();
  }
  return bytes;
}

/// Rows whose images stand in `bytes`; a rest that is no whole record is left out.
template <typename Row>
std::vector<Row> DecodeRows(std::string_view bytes) {
  std::vector<Row> rows(bytes.size() / RecordSize<Row>());
  for (Row& row : rows) {
    DecodeRecord(bytes.data(), row);
    bytes.remove_prefix(RecordSize<Row>());
  }
  return rows;
}

/// A file of fixed records to be read. Record numbers begin at 1. A length that is no whole number
/// of records is an error and the file is left as it is; a missing file holds no row.
template <typename Row>
class RowReader {
 public:
  RowReader(const Disk& disk, std::filesystem::path path) : disk_(&disk), path_(std::move(path)) {}

  [[nodiscard]] const std::filesystem::path& path() const { return path_; }

  [[nodiscard]] Result<int> Count() const {
    const auto status = disk_->Status(path_);
    if (!status) {
      return status.error();
    }
    const std::uint64_t length = *status ? (*status)->length : 0;
    if (length % RecordSize<Row>() != 0) {
      return OddLength();
    }
    return static_cast<int>(length / RecordSize<Row>());
  }

  [[nodiscard]] Result<std::vector<Row>> ReadAll() const {
    const Result<std::string> bytes = ReadBytes();
    if (!bytes) {
      return bytes.error();
    }
    return DecodeRows<Row>(*bytes);
  }

  [[nodiscard]] Result<Row> Read(int number) const {
    const Result<std::string> bytes = ReadBytes();
    if (!bytes) {
      return bytes.error();
    }
    const auto at = static_cast<std::size_t>(number - 1) * RecordSize<Row>();
    if (number < 1 || at >= bytes->size()) {
      return FileError{path_, "Δεν υπάρχει η εγγραφή " + std::to_string(number)};
    }
    Row row;
    DecodeRecord(bytes->data() + at, row);
    return row;
  }

 private:
  // Whole records; none of a missing file.
  [[nodiscard]] Result<std::string> ReadBytes() const {
    Result<std::string> bytes = disk_->Read(path_);
    if (!bytes && bytes.error().IsMissing()) {
      return std::string();
    }
    if (bytes && bytes->size() % RecordSize<Row>() != 0) {
      return OddLength();
    }
    return bytes;
  }

  [[nodiscard]] FileError OddLength() const {
    return {path_, "Το μήκος του αρχείου δεν είναι ακέραιο πλήθος εγγραφών"};
  }

  const Disk* disk_;
  std::filesystem::path path_;
};

/// The same to be written as well, the only way to one. Writing is never visible half-done.
template <typename Row>
class RowFile : public RowReader<Row> {
 public:
  RowFile(Disk& disk, std::filesystem::path path)
      : RowReader<Row>(disk, std::move(path)), disk_(&disk) {}

  Outcome WriteAll(std::span<const Row> rows) {
    return ReplaceFile(*disk_, this->path(), EncodeRows(rows));
  }

  /// Writes one record; `number` is at most one past the last.
  Outcome Write(int number, const Row& row) {
    Result<std::vector<Row>> rows = this->ReadAll();
    if (!rows) {
      return rows.error();
    }
    const auto at = static_cast<std::size_t>(number - 1);
    if (number < 1 || at > rows->size()) {
      return FileError{this->path(), "Δεν υπάρχει η εγγραφή " + std::to_string(number)};
    }
    if (at == rows->size()) {
      rows.value().push_back(row);
    } else {
      rows.value()[at] = row;
    }
    return WriteAll(*rows);
  }

 private:
  Disk* disk_;
};

}  // namespace kalvo
