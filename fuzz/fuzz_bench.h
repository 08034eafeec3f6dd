#pragma once

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "study/codepage.h"
#include "study/fluid_library.h"
#include "study/load_study.h"
#include "tests/support/program_in_memory.h"

namespace kalvo {

/// Ends the program, which the fuzzer takes for a find, unless the property holds.
inline void Require(bool holds, const char* what) {
  if (!holds) {
    std::fprintf(stderr, "does not hold: %s\n", what);
    std::abort();
  }
}

inline std::string_view AsText(const std::uint8_t* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

/// Takes the first byte off `bytes`; 0 when none is left.
inline unsigned TakeByte(std::string_view& bytes) {
  if (bytes.empty()) {
    return 0;
  }
  const auto byte = static_cast<unsigned char>(bytes.front());
  bytes.remove_prefix(1);
  return byte;
}

/// A user who reads what is shown.
class Reader : public Prompter {
 public:
  Answer ShowMessage(int /*code*/, const Study& /*study*/) override { return Answer::kNone; }
  Answer Ask(const Box& box) override {
    boxes.push_back(box);
    return Answer::kNone;
  }

  std::vector<Box> boxes;
};

/// A program whose folders lie in memory, with one pipe system of three sizes.
class FuzzBench : public ProgramInMemory<Reader> {
 public:
  explicit FuzzBench(SystemKind kind) {
    pipes = {{1, "0001.WPT", "", "STEEL", 3}};
    std::vector<PipeRow> sizes(3);
    for (std::size_t i = 0; i < sizes.size(); ++i) {
      sizes[i].pipe_id = static_cast<std::int16_t>(i + 1);
      sizes[i].material = FixedText<30>::FromBytes("STEEL");
      sizes[i].area = 200.0F * static_cast<float>(i + 1);
    }
    Require(RowFile<PipeRow>(outer_disk, "/library/0001.WPT").WriteAll(sizes).ok(), "pipes");
    Require(CreateFluidLibrary(workspace).ok(), "fluids");
    study.system_kind = kind;
    study.pipe_system_number = 1;
  }
  void PutStudyFile(const std::string& name, std::string_view bytes) {
    const auto path = kStudies / name;
    Require(outer_disk.Write(path, std::string(bytes)).ok(), "study file");
  }

  [[nodiscard]] std::string StudyFile(const std::string& name) const {
    const auto bytes = outer_disk.Read(kStudies / name);
    return bytes ? *bytes : "(missing)";
  }

  /// Loads the study; false when it was refused, with an error that names its file.
  bool Load(const std::string& name) {
    study.study_path = kStudies / name;
    prompter.boxes.clear();
    const Result<bool> loaded = LoadStudy(bench, RecentList::kLeave);
    Require(prompter.boxes.empty(), "a load shows nothing");
    Require(loaded || loaded.error().Line().find(kStudies.string()) != std::string::npos,
            "the file is named");
    return loaded.ok();
  }
};

/// Whether no field in use of a record in `bytes` is a NaN or an infinity.
template <typename Row>
bool AllFinite(std::string_view bytes) {
  bool finite = true;
  for (const Row& row : DecodeRows<Row>(bytes)) {
    ForEachField(row, [&finite](std::string_view name, const auto& value) {
      if constexpr (std::is_same_v<std::decay_t<decltype(value)>, float>) {
        finite = finite && (name.starts_with("reserved") || std::isfinite(value));
      }
    });
  }
  return finite;
}

/// Any bytes as the companion `name` of a good study: whole records of numbers are taken over as
/// they are, anything else is refused with the open study untouched. Reserved fields hold anything.
/// True when it was taken.
template <typename Row>
bool LoadCompanion(FuzzBench& bench, const std::string& name, std::string_view work_name,
                   std::string_view bytes) {
  SectionRow row;
  SetKind(row, SystemKind::kClosed);
  row.FileNumber = 1;
  std::vector<SectionRow> rows(2, row);
  rows[0].RecordNumber = 1;
  rows[1].RecordNumber = 2;
  bench.PutStudyFile("b.PCK", EncodeRows<SectionRow>(rows));
  bench.PutStudyFile(name, bytes);
  const auto work = ImageOf(bench.work_disk, "/program");
  const bool loaded = bench.Load("b.PCK");
  const bool whole = bytes.size() % RecordSize<Row>() == 0;
  Require(loaded == (whole && AllFinite<Row>(bytes)), "whole records and no others load");
  Require(bench.StudyFile(name) == bytes, "a load changes no file of the study");
  if (!loaded) {
    Require(ImageOf(bench.work_disk, "/program") == work, "the open study stays");
    return false;
  }
  Require(bench.workspace.Read(work_name).value() == bytes, "the companion is taken as it is");
  return true;
}

}  // namespace kalvo
