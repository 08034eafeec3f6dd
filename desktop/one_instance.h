#pragma once

#include <QLocalServer>
#include <QLockFile>
#include <QString>
#include <functional>

namespace kalvo {

/// Sees to it that one program only works in a program folder. A lock of a process that is gone
/// does not count.
class OneInstance {
 public:
  explicit OneInstance(const QString& program_folder);

  /// Takes the folder. False: another instance works in it; it has been asked to come to the front.
  bool Take();
  /// Calls `come` when another start asks for it.
  void Listen(std::function<void()> come);

 private:
  QLockFile lock_;
  QString server_name_;
  QLocalServer server_;
};

}  // namespace kalvo
