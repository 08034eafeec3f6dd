#include "desktop/one_instance.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QLocalSocket>
#include <QSysInfo>
#include <QThread>

namespace kalvo {
namespace {

constexpr int kAnswerMs = 1000;
constexpr int kTries = 5;

// A name of its own for each folder, short enough for a socket.
QString ServerName(const QString& folder) {
  const QByteArray digest =
      QCryptographicHash::hash(QDir(folder).canonicalPath().toUtf8(), QCryptographicHash::Sha1);
  return QStringLiteral("kalvoflume-") + QString::fromLatin1(digest.toHex().left(16));
}

}  // namespace

OneInstance::OneInstance(const QString& program_folder)
    : lock_path_(program_folder + QStringLiteral("/kalvoflume.lock")),
      lock_(lock_path_),
      server_name_(ServerName(program_folder)) {
  lock_.setStaleLockTime(0);
}

bool OneInstance::Take() {
  if (lock_.tryLock(0)) return true;
  return lock_.error() != QLockFile::LockFailedError;  // true: the folder cannot be locked
}

QString OneInstance::OtherMachine() const {
  qint64 process = 0;
  QString machine;
  QString program;
  const bool known = lock_.getLockInfo(&process, &machine, &program);
  return known && machine != QSysInfo::machineHostName() ? machine : QString();
}

bool OneInstance::TakeOver() {
  QFile::remove(lock_path_);
  return Take();
}

bool OneInstance::Call(const QString& study) {
  QLocalSocket socket;
  // The first one may be at its start still.
  for (int tries = 0; tries < kTries; ++tries) {
    socket.connectToServer(server_name_);
    if (socket.waitForConnected(kAnswerMs)) break;
    QThread::msleep(kAnswerMs / kTries);
  }
  if (socket.state() != QLocalSocket::ConnectedState) return false;
  socket.write(study.toUtf8());
  socket.flush();
  socket.disconnectFromServer();
  if (socket.state() != QLocalSocket::UnconnectedState) socket.waitForDisconnected(kAnswerMs);
  return true;
}

void OneInstance::Listen(std::function<void(const QString& study)> come) {
  QLocalServer::removeServer(server_name_);
  QObject::connect(&server_, &QLocalServer::newConnection, &server_, [this, come] {
    QLocalSocket* caller = server_.nextPendingConnection();
    const auto read = [caller, come] {
      const QString study = QString::fromUtf8(caller->readAll());
      caller->deleteLater();
      come(study);
    };
    if (caller->state() == QLocalSocket::UnconnectedState) {
      read();
    } else {
      QObject::connect(caller, &QLocalSocket::disconnected, caller, read);
    }
  });
  server_.listen(server_name_);
}

}  // namespace kalvo
