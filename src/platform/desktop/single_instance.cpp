#include "platform/desktop/single_instance.h"

#include <QCoreApplication>
#include <QDir>
#include <QEventLoop>
#include <QFileInfo>
#include <QLocalServer>
#include <QLocalSocket>
#include <QLockFile>
#include <QTimer>
#include <QUuid>

#include "platform/desktop/per_user_store.h"

namespace ruvo::desktop {
namespace {

const char kSection[] = "ActiveWindow";
const char kKey[] = "AsPrevInst";
// One line a message. A text travels in base 64, so that any path fits in a line.
const QByteArray kAskAnimation = "animation?";
const QByteArray kOpen = "open ";
const QByteArray kYes = "yes";
const QByteArray kNo = "no";
const QByteArray kTaken = "taken";
constexpr qint64 kMaxLine = 1 << 16;

// Lets events through until `done` or the time is over. Events must run: both ends may live in one thread.
void waitFor(QObject* context, std::chrono::milliseconds time, const std::function<bool()>& done,
             const std::function<void(QEventLoop&)>& connectTo) {
  QEventLoop loop;
  connectTo(loop);
  QTimer::singleShot(time, context, [&loop, alive = QPointer<QEventLoop>(&loop)] {
    if (alive) loop.quit();
  });
  if (!done()) loop.exec(QEventLoop::ExcludeUserInputEvents);
}

}  // namespace

SingleInstance::SingleInstance(PerUserStore& store, QString channelFolder, QObject* parent)
    : QObject(parent), store_(store), channelFolder_(std::move(channelFolder)) {}

SingleInstance::~SingleInstance() = default;

SingleInstance::Role SingleInstance::claim() {
  // Two starts at the same moment must not both find nobody.
  QLockFile turn(channelFolder_ + "/start.lock");
  turn.setStaleLockTime(0);
  turn.tryLock(static_cast<int>(patience_.count()));
  if (someoneAnswers(store_.text(kSection, kKey))) return Role::Second;
  if (openChannel()) store_.setText(kSection, kKey, server_->fullServerName());
  return Role::First;
}

bool SingleInstance::someoneAnswers(const QString& address) {
  if (address.isEmpty()) return false;
  QLocalSocket socket;
  socket.connectToServer(address);
  if (socket.waitForConnected(static_cast<int>(patience_.count()))) return true;
  // What a crashed program left; only in the folder that is ours.
  if (QFileInfo(address).absolutePath() == QFileInfo(channelFolder_).absoluteFilePath())
    QLocalServer::removeServer(address);
  return false;
}

bool SingleInstance::openChannel() {
  server_ = new QLocalServer(this);
  server_->setSocketOptions(QLocalServer::UserAccessOption);
  connect(server_, &QLocalServer::newConnection, this, &SingleInstance::takeConnection);
  const QString name = "instance-" + QUuid::createUuid().toString(QUuid::WithoutBraces).left(8);
  return server_->listen(QDir(channelFolder_).absoluteFilePath(name));
}

void SingleInstance::takeConnection() {
  while (QLocalSocket* peer = server_->nextPendingConnection()) {
    connect(peer, &QLocalSocket::disconnected, peer, &QObject::deleteLater);
    connect(peer, &QLocalSocket::readyRead, this, [this, peer] { readFrom(peer); });
    readFrom(peer);
  }
}

void SingleInstance::readFrom(QLocalSocket* peer) {
  while (peer->canReadLine()) answer(peer, peer->readLine().trimmed());
  if (peer->bytesAvailable() > kMaxLine) peer->abort();
}

void SingleInstance::answer(QLocalSocket* peer, const QByteArray& line) {
  const bool opens = line.startsWith(kOpen);
  if (!opens && line != kAskAnimation) {
    peer->abort();
    return;
  }
  const QByteArray reply = opens ? kTaken : showsAnimation_ && showsAnimation_() ? kYes : kNo;
  peer->write(reply + '\n');
  peer->flush();
  if (!opens) return;
  const QString text = QString::fromUtf8(QByteArray::fromBase64(line.mid(kOpen.size())));
  if (delivering_) {
    Q_EMIT received(text);
  } else {
    waiting_ << text;
  }
}

void SingleInstance::deliver() {
  delivering_ = true;
  for (const QString& text : std::exchange(waiting_, {})) Q_EMIT received(text);
}

QByteArray SingleInstance::ask(const QByteArray& line, bool* gone) {
  QLocalSocket socket;
  socket.connectToServer(store_.text(kSection, kKey));
  *gone = !socket.waitForConnected(static_cast<int>(patience_.count()));
  if (*gone) return {};
  socket.write(line + '\n');
  const auto finished = [&] { return socket.canReadLine() || socket.state() != QLocalSocket::ConnectedState; };
  waitFor(this, patience_, finished, [&](QEventLoop& loop) {
    connect(&socket, &QLocalSocket::readyRead, &loop, &QEventLoop::quit);
    connect(&socket, &QLocalSocket::disconnected, &loop, &QEventLoop::quit);
  });
  if (socket.canReadLine()) return socket.readLine().trimmed();
  *gone = socket.state() != QLocalSocket::ConnectedState;
  return {};
}

bool SingleInstance::firstShowsAnimation() {
  bool gone = false;
  return ask(kAskAnimation, &gone) == kYes;
}

SingleInstance::HandOver SingleInstance::handOver(const QString& text) {
  bool gone = false;
  ask(kOpen + text.toUtf8().toBase64(), &gone);
  return gone ? HandOver::Gone : HandOver::Taken;
}

}  // namespace ruvo::desktop
