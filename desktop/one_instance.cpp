#include "desktop/one_instance.h"

#include <QCryptographicHash>
#include <QDir>
#include <QLocalSocket>

namespace kalvo {
namespace {

constexpr int kAnswerMs = 1000;

// A name of its own for each folder, short enough for a socket.
QString ServerName(const QString& folder) {
  const QByteArray digest =
      QCryptographicHash::hash(QDir(folder).canonicalPath().toUtf8(), QCryptographicHash::Sha1);
  return QStringLiteral("kalvoflume-") + QString::fromLatin1(digest.toHex().left(16));
}

}  // namespace

OneInstance::OneInstance(const QString& program_folder)
    : lock_(program_folder + QStringLiteral("/kalvoflume.lock")),
      server_name_(ServerName(program_folder)) {
  lock_.setStaleLockTime(0);
}

bool OneInstance::Take() {
  if (lock_.tryLock(0)) return true;
  if (lock_.error() != QLockFile::LockFailedError) return true;  // the folder cannot be locked
  QLocalSocket socket;
  socket.connectToServer(server_name_);
  if (socket.waitForConnected(kAnswerMs)) socket.disconnectFromServer();
  return false;
}

void OneInstance::Listen(std::function<void()> come) {
  QLocalServer::removeServer(server_name_);
  QObject::connect(&server_, &QLocalServer::newConnection, &server_,
                   [this, come = std::move(come)] {
                     delete server_.nextPendingConnection();
                     come();
                   });
  server_.listen(server_name_);
}

}  // namespace kalvo
