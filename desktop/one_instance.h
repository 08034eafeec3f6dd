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

  /// Takes the folder. False: another instance works in it.
  bool Take();
  /// The machine whose program has the folder; empty when it is this one.
  [[nodiscard]] QString OtherMachine() const;
  /// Takes the folder from a program that is no longer there, as the user knows.
  bool TakeOver();
  /// Asks the other instance to come to the front, and hands it a study's path, if it is not empty.
  /// False: it does not answer.
  bool Call(const QString& study);
  /// Calls `come` with the study that another start hands over, or with an empty path.
  void Listen(std::function<void(const QString& study)> come);

 private:
  QString lock_path_;
  QLockFile lock_;
  QString server_name_;
  QLocalServer server_;
};

}  // namespace kalvo
