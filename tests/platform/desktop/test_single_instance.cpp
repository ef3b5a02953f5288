#include "platform/desktop/single_instance.h"

#include <sys/stat.h>

#include <QEventLoop>
#include <QLocalServer>
#include <QLocalSocket>
#include <QTimer>

#include "platform/desktop/per_user_store.h"
#include "support/temp_folder.h"

namespace ruvo::desktop {
namespace {

class Instances : public testing::Test {
 protected:
  QString folder() const { return QString::fromStdString(temp_.path().string()); }
  // What an instance passes on, in order.
  static std::shared_ptr<QStringList> receivedBy(SingleInstance& instance) {
    auto texts = std::make_shared<QStringList>();
    QObject::connect(&instance, &SingleInstance::received, [texts](const QString& text) { *texts << text; });
    return texts;
  }
  QString address() const { return store_.text("ActiveWindow", "AsPrevInst"); }

  test::TempFolder temp_;
  PerUserStore store_{QString::fromStdString((temp_ / "store.conf").string())};
};

TEST_F(Instances, ASecondStartHandsItsTextsOverAndEachOneActs) {
  SingleInstance first(store_, folder());
  ASSERT_EQ(first.claim(), SingleInstance::Role::First);
  EXPECT_TRUE(address().startsWith(folder()));
  struct stat info {};
  ASSERT_EQ(::stat(address().toUtf8().constData(), &info), 0);
  EXPECT_EQ(info.st_mode & 077, 0u) << "nobody else may speak to it";

  const auto received = receivedBy(first);
  PerUserStore sameStore(QString::fromStdString((temp_ / "store.conf").string()));
  SingleInstance second(sameStore, folder());
  ASSERT_EQ(second.claim(), SingleInstance::Role::Second);
  const QString path = QString::fromUtf8("/p/\xC3\xA9 \"x\"\n\xE6\x97\xA5.png");
  EXPECT_EQ(second.handOver(path), SingleInstance::HandOver::Taken);
  EXPECT_EQ(second.handOver(path), SingleInstance::HandOver::Taken);
  EXPECT_EQ(received->size(), 0) << "kept until the program is ready";
  first.deliver();
  ASSERT_EQ(received->size(), 2);
  EXPECT_EQ(received->at(0), path);
  EXPECT_EQ(second.handOver("/p/3.png"), SingleInstance::HandOver::Taken);
  ASSERT_EQ(received->size(), 3);
  EXPECT_EQ(received->at(2), "/p/3.png");
}

TEST_F(Instances, TheFirstTellsWhetherAnAnimationIsOpen) {
  SingleInstance first(store_, folder());
  ASSERT_EQ(first.claim(), SingleInstance::Role::First);
  SingleInstance second(store_, folder());
  EXPECT_FALSE(second.firstShowsAnimation());
  bool open = true;
  first.setAnimationTest([&] { return open; });
  EXPECT_TRUE(second.firstShowsAnimation());
  open = false;
  EXPECT_FALSE(second.firstShowsAnimation());
}

TEST_F(Instances, AnAddressWhereNobodyAnswersIsNoInstance) {
  store_.setText("ActiveWindow", "AsPrevInst", folder() + "/instance-gone");
  auto first = std::make_unique<SingleInstance>(store_, folder());
  EXPECT_EQ(first->claim(), SingleInstance::Role::First);
  SingleInstance second(store_, folder());
  EXPECT_EQ(second.claim(), SingleInstance::Role::Second);
  first.reset();
  EXPECT_EQ(second.handOver("/p/1.png"), SingleInstance::HandOver::Gone);
  EXPECT_EQ(second.claim(), SingleInstance::Role::First);
}

TEST_F(Instances, AnAnswerThatNeverComesIsNotWaitedForLong) {
  QLocalServer silent;
  ASSERT_TRUE(silent.listen(folder() + "/silent"));
  store_.setText("ActiveWindow", "AsPrevInst", silent.fullServerName());
  SingleInstance second(store_, folder());
  second.setPatience(std::chrono::milliseconds(1));
  EXPECT_EQ(second.claim(), SingleInstance::Role::Second);
  EXPECT_FALSE(second.firstShowsAnimation());
  EXPECT_EQ(second.handOver("/p/1.png"), SingleInstance::HandOver::Taken);
}

TEST_F(Instances, StrangersOnTheChannelAreCutOff) {
  SingleInstance first(store_, folder());
  ASSERT_EQ(first.claim(), SingleInstance::Role::First);
  const auto received = receivedBy(first);
  first.deliver();
  for (const QByteArray& noise : {QByteArray("GET / HTTP/1.1\n"), QByteArray(200000, 'x')}) {
    QLocalSocket stranger;
    QEventLoop untilCutOff;
    QObject::connect(&stranger, &QLocalSocket::disconnected, &untilCutOff, &QEventLoop::quit);
    QTimer::singleShot(5000, &untilCutOff, [&] { untilCutOff.exit(1); });
    stranger.connectToServer(address());
    ASSERT_TRUE(stranger.waitForConnected());
    stranger.write(noise);
    EXPECT_EQ(untilCutOff.exec(), 0);
  }
  EXPECT_EQ(received->size(), 0);
  SingleInstance second(store_, folder());
  EXPECT_EQ(second.handOver("/p/1.png"), SingleInstance::HandOver::Taken);
  EXPECT_EQ(received->size(), 1);
}

TEST_F(Instances, WithoutAChannelTheProgramStillRuns) {
  SingleInstance first(store_, folder() + "/missing");
  first.setPatience(std::chrono::milliseconds(1));
  EXPECT_EQ(first.claim(), SingleInstance::Role::First);
  EXPECT_EQ(address(), "");
}

}  // namespace
}  // namespace ruvo::desktop
