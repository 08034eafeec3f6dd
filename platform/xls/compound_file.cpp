#include "platform/xls/compound_file.h"

#include <gsf/gsf.h>

#include <algorithm>
#include <memory>

#include "platform/xls/workbook_reasons.h"

namespace kalvo {

namespace {

constexpr std::string_view kSignature = "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1";
constexpr std::size_t kDirectoryEntryBytes = 128;
constexpr std::size_t kTypeInEntry = 66;
constexpr std::size_t kMostDirectoryEntries = 4096;
constexpr int kMostLevels = 16;

struct Unref {
  void operator()(gpointer object) const { g_object_unref(object); }
};
template <typename Object>
using Held = std::unique_ptr<Object, Unref>;

// The library notes what is wrong with a file on the error output; here its reader is told.
class QuietLibrary {
 public:
  QuietLibrary() : before_(g_log_set_default_handler(&Ignore, nullptr)) {}
  QuietLibrary(const QuietLibrary&) = delete;
  QuietLibrary& operator=(const QuietLibrary&) = delete;
  ~QuietLibrary() { g_log_set_default_handler(before_, nullptr); }

 private:
  static void Ignore(const gchar* /*domain*/, GLogLevelFlags /*level*/, const gchar* /*text*/,
                     gpointer /*data*/) {}
  GLogFunc before_;
};

// The library walks the directory by calling itself, so a chain of very many entries would take it
// past the end of its stack. Sectors begin at whole multiples of an entry: those that could be
// entries are counted where they can be.
// Source: [MS-CFB], Compound File Directory Entry.
bool HasTooManyEntries(std::string_view bytes) {
  std::size_t count = 0;
  for (std::size_t at = kTypeInEntry; at < bytes.size(); at += kDirectoryEntryBytes) {
    const char type = bytes[at];
    count += type == 1 || type == 2 || type == 5 ? 1 : 0;
  }
  return count > kMostDirectoryEntries;
}

// Reads entries, no more bytes than the file itself has.
class EntryReader {
 public:
  explicit EntryReader(std::size_t most_bytes) : bytes_left_(most_bytes) {}

  Result<CompoundEntry> Storage(GsfInfile* infile, std::string name, int level) {
    if (level > kMostLevels) return Because(workbook_reason::kDamaged);
    CompoundEntry storage{std::move(name), true, {}, {}, {}};
    gsf_infile_msole_get_class_id(GSF_INFILE_MSOLE(infile), storage.class_id.data());
    const int count = gsf_infile_num_children(infile);
    for (int i = 0; i < count; ++i) {
      const Held<GsfInput> child(gsf_infile_child_by_index(infile, i));
      const char* child_name = gsf_infile_name_by_index(infile, i);
      if (child == nullptr || child_name == nullptr) return Because(workbook_reason::kCut);
      auto entry = GSF_IS_INFILE_MSOLE(child.get()) && IsStorage(child.get())
                       ? Storage(GSF_INFILE(child.get()), child_name, level + 1)
                       : Stream(child.get(), child_name);
      if (!entry) return entry;
      storage.entries.push_back(std::move(*entry));
    }
    return storage;
  }

 private:
  // The library gives streams as storages without entries too; those have no size.
  static bool IsStorage(GsfInput* input) { return gsf_infile_num_children(GSF_INFILE(input)) >= 0; }

  Result<CompoundEntry> Stream(GsfInput* input, std::string name) {
    const gsf_off_t size = gsf_input_size(input);
    if (size < 0) return Because(workbook_reason::kDamaged);
    const auto length = static_cast<std::size_t>(size);
    if (length > bytes_left_) return Because(workbook_reason::kCut);
    bytes_left_ -= length;
    CompoundEntry stream{std::move(name), false, std::string(length, '\0'), {}, {}};
    auto* data = reinterpret_cast<guint8*>(stream.bytes.data());
    if (length > 0 && gsf_input_read(input, length, data) == nullptr) {
      return Because(workbook_reason::kCut);
    }
    return stream;
  }

  std::size_t bytes_left_;
};

bool WriteEntries(GsfOutfile* outfile, const CompoundEntry& storage) {
  gsf_outfile_msole_set_class_id(GSF_OUTFILE_MSOLE(outfile), storage.class_id.data());
  bool written = true;
  for (const CompoundEntry& entry : storage.entries) {
    const gboolean is_storage = entry.is_storage ? TRUE : FALSE;
    const Held<GsfOutput> child(gsf_outfile_new_child(outfile, entry.name.c_str(), is_storage));
    if (child == nullptr) return false;
    if (entry.is_storage) {
      written = written && WriteEntries(GSF_OUTFILE(child.get()), entry);
    } else {
      const auto* data = reinterpret_cast<const guint8*>(entry.bytes.data());
      written = written && gsf_output_write(child.get(), entry.bytes.size(), data) != FALSE;
    }
    written = gsf_output_close(child.get()) != FALSE && written;
  }
  return written;
}

}  // namespace

const CompoundEntry* CompoundEntry::Find(std::string_view entry) const {
  const auto found = std::ranges::find(entries, entry, &CompoundEntry::name);
  return found == entries.end() ? nullptr : &*found;
}

CompoundEntry* CompoundEntry::Find(std::string_view entry) {
  const auto found = std::ranges::find(entries, entry, &CompoundEntry::name);
  return found == entries.end() ? nullptr : &*found;
}

bool IsCompoundFile(std::string_view bytes) { return bytes.starts_with(kSignature); }

Result<CompoundEntry> ReadCompoundFile(std::string_view bytes) {
  if (bytes.size() > kMostCompoundBytes) return Because(workbook_reason::kTooLarge);
  if (HasTooManyEntries(bytes)) return Because(workbook_reason::kDamaged);
  const QuietLibrary quiet;
  const auto* data = reinterpret_cast<const guint8*>(bytes.data());
  const Held<GsfInput> input(
      gsf_input_memory_new(data, static_cast<gsf_off_t>(bytes.size()), FALSE));
  const Held<GsfInfile> infile(input == nullptr ? nullptr
                                                : gsf_infile_msole_new(input.get(), nullptr));
  if (infile == nullptr) return Because(workbook_reason::kCut);
  return EntryReader(bytes.size()).Storage(infile.get(), {}, 0);
}

Result<std::string> WriteCompoundFile(const CompoundEntry& root) {
  const QuietLibrary quiet;
  const Held<GsfOutput> output(gsf_output_memory_new());
  bool written = false;
  {
    const Held<GsfOutfile> outfile(gsf_outfile_msole_new(output.get()));
    written = WriteEntries(outfile.get(), root);
    written = gsf_output_close(GSF_OUTPUT(outfile.get())) != FALSE && written;
  }
  const guint8* bytes = gsf_output_memory_get_bytes(GSF_OUTPUT_MEMORY(output.get()));
  if (!written || bytes == nullptr) return Because(workbook_reason::kTooLarge);
  const auto length = static_cast<std::size_t>(gsf_output_size(output.get()));
  return std::string(reinterpret_cast<const char*>(bytes), length);
}

}  // namespace kalvo
