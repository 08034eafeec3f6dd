#pragma once

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

namespace kalvo {

/// A print service of which the test says what it does with a file.
class PrintServiceScript {
 public:
  explicit PrintServiceScript(const char* script) {
    QFile lp(folder_.filePath("lp"));
    EXPECT_TRUE(lp.open(QIODevice::WriteOnly));
    lp.write(QByteArray("#!/bin/sh\ncd '") + QFile::encodeName(folder_.path()) + "'\n" + script);
    lp.close();
    lp.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    qputenv("PATH", QFile::encodeName(folder_.path()) + ":" + path_);
  }
  ~PrintServiceScript() { qputenv("PATH", path_); }
  PrintServiceScript(const PrintServiceScript&) = delete;
  PrintServiceScript& operator=(const PrintServiceScript&) = delete;

  [[nodiscard]] QByteArray Got(const char* name) const {
    QFile file(folder_.filePath(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  }

 private:
  QTemporaryDir folder_;
  QByteArray path_ = qgetenv("PATH");
};

}  // namespace kalvo
