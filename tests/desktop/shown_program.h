#pragma once

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "desktop/program.h"
#include "shell/data_folder.h"

namespace kalvo {

/// The whole program on folders of its own, with the delivered libraries and samples.
struct ShownProgram {
  ShownProgram() {
    EXPECT_TRUE(program.Prepare(std::filesystem::path(KALVO_LIBRARY_DIR).parent_path()));
  }

  QTemporaryDir folder;
  ProgramPlaces places{
      folder.path().toStdString() + "/program", folder.path().toStdString() + "/state", {}, {}};
  Program program{places, Separators{',', '.'}};
  Windows& windows = program.windows();
  Study& study = program.desk().bench.study;

  /// A sample among the studies of the program folder.
  [[nodiscard]] std::filesystem::path Sample(const char* name) const {
    return places.folder / kStudiesFolder / name;
  }
};

}  // namespace kalvo
