// One running program for each user: the first opens a local channel and leaves its address in the per-user store; a
// later start finds it there and hands its file over.
#pragma once

#include <QObject>
#include <QString>
#include <QStringList>
#include <chrono>
#include <functional>

class QLocalServer;
class QLocalSocket;

namespace ruvo::desktop {

class PerUserStore;

class SingleInstance : public QObject {
  Q_OBJECT

 public:
  enum class Role { First, Second };
  enum class HandOver {
    Taken,  // or sent to a first instance that is too busy to say so at once
    Gone,   // the first one ended meanwhile: claim again
  };

  // `channelFolder` must be one that only this user may enter.
  SingleInstance(PerUserStore& store, QString channelFolder, QObject* parent = nullptr);
  ~SingleInstance() override;
  // How long a second start waits for an answer.
  void setPatience(std::chrono::milliseconds patience) { patience_ = patience; }

  // First when no address is stored or nobody answers there; the channel is open and its address stored then, and what
  // arrives is kept until deliver(). When no channel can be opened the program runs as first without one.
  Role claim();

  // --- As second
  bool firstShowsAnimation();
  HandOver handOver(const QString& text);

  // --- As first
  // Answers a second start's question whether an animation window is open here.
  void setAnimationTest(std::function<bool()> test) { showsAnimation_ = std::move(test); }
  // From now on texts are passed on as they arrive, first those that waited.
  void deliver();

 Q_SIGNALS:
  // Each text that was handed over, equal to the one before or not.
  void received(const QString& text);

 private:
  bool someoneAnswers(const QString& address);
  bool openChannel();
  void takeConnection();
  void readFrom(QLocalSocket* peer);
  void answer(QLocalSocket* peer, const QByteArray& line);
  // The line that came back; null when the other side was silent or gone (`gone` tells which).
  QByteArray ask(const QByteArray& line, bool* gone);

  PerUserStore& store_;
  QString channelFolder_;
  QLocalServer* server_ = nullptr;
  std::function<bool()> showsAnimation_;
  QStringList waiting_;
  bool delivering_ = false;
  std::chrono::milliseconds patience_{3000};
};

}  // namespace ruvo::desktop
