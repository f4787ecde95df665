#include "application/SingleStart.h"

#include <QCryptographicHash>
#include <QDeadlineTimer>
#include <QLocalSocket>
#include <QStandardPaths>
#include <QThread>

#include "core/foundation/Log.h"
#include "core/foundation/Paths.h"

namespace sanovia {
namespace {

constexpr int kPatience = 3000;  // milliseconds until the first program counts as mute
constexpr int kPause = 50;       // milliseconds between two attempts
constexpr int kDigits = 16;
constexpr qint64 kLongestToken = 512;

// The path without its ending under which the programs of one data folder meet.
QString meetingPlace() {
  const QByteArray digest =
      QCryptographicHash::hash(Paths::dataFolder().toUtf8(), QCryptographicHash::Sha256).toHex();
  return QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation) + QStringLiteral("/sanovia-") +
         QString::fromLatin1(digest.left(kDigits));
}

}  // namespace

SingleStart::SingleStart() : _name(meetingPlace()), _lock(_name + QStringLiteral(".lock")) {
  _lock.setStaleLockTime(0);  // held as long as the program runs
  connect(&_server, &QLocalServer::newConnection, this, &SingleStart::answer);
}

SingleStart::~SingleStart() {
  _server.close();
  _lock.unlock();
}

bool SingleStart::isFirst() {
  if (!_lock.tryLock(0)) {
    if (_lock.error() == QLockFile::LockFailedError && callFirst()) return false;
    logLine(QStringLiteral("No word from another start: this one runs beside it"));
    return true;
  }
  const QString socket = _name + QStringLiteral(".socket");
  QLocalServer::removeServer(socket);
  _server.setSocketOptions(QLocalServer::UserAccessOption);
  if (!_server.listen(socket)) logLine(QStringLiteral("Cannot listen for a second start"));
  return true;
}

// The first program may still be on its way up, so that its socket is not there yet.
bool SingleStart::callFirst() const {
  const QDeadlineTimer deadline(kPatience);
  while (!deadline.hasExpired()) {
    QLocalSocket socket;
    socket.connectToServer(_name + QStringLiteral(".socket"));
    const auto left = static_cast<int>(deadline.remainingTime());
    if (socket.waitForConnected(left)) {
      socket.write(qgetenv(kToken) + '\n');
      return socket.waitForReadyRead(left);
    }
    QThread::msleep(kPause);
  }
  return false;
}

void SingleStart::answer() {
  while (QLocalSocket* socket = _server.nextPendingConnection()) {
    connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
    const auto read = [this, socket] {
      if (socket->bytesAvailable() > kLongestToken) return socket->abort();
      if (!socket->canReadLine()) return;
      socket->write("here\n");
      emit secondStart(QString::fromUtf8(socket->readLine()).trimmed());
    };
    connect(socket, &QLocalSocket::readyRead, this, read);
    read();
  }
}

}  // namespace sanovia
