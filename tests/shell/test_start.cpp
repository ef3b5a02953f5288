// The start of the program: its splash, and what a second start does, inside this process; and the built program
// itself, started as a user would.
#include <stdlib.h>
#include <sys/resource.h>

#include <QDir>
#include <QEventLoop>
#include <QFileSystemWatcher>
#include <QImage>
#include <QProcess>
#include <QPushButton>
#include <QSettings>
#include <QTimer>

#include "base/paths.h"
#include "platform/desktop/per_user_store.h"
#include "platform/desktop/single_instance.h"
#include "shell/basRuvoMain.h"
#include "shell/frmRuvoAbout.h"
#include "support/temp_folder.h"
#include "support_ui/scripted_desktop.h"

namespace ruvo {
namespace {

using std::chrono::milliseconds;

QString text(const std::filesystem::path& path) {
  return QString::fromStdString(utf8Of(path));
}

TEST(Splash, StandsForItsTimeByTheClockAlone) {
  milliseconds now{1000};
  std::vector<int> pumps;
  const SplashClock clock{[&] { return now; },
                          [&](milliseconds upTo) {
                            pumps.push_back(static_cast<int>(upTo.count()));
                            now += milliseconds(700);  // an event took longer, or woke it earlier, than asked for
                          }};
  bool cut = false;
  waitWithEvents(clock, kSplashBefore, cut);
  EXPECT_EQ(pumps, (std::vector<int>{2000, 1300, 600}));
  waitWithEvents(clock, milliseconds(0), cut);
  EXPECT_EQ(pumps.size(), 3u);
  cut = true;
  waitWithEvents(clock, kSplashOver, cut);
  EXPECT_EQ(pumps.size(), 3u);
}

TEST(About, ClosesByButtonOrClickAndTheSplashByNeither) {
  frmRuvoAbout splash(frmRuvoAbout::Use::Splash);
  EXPECT_EQ(splash.findChild<QPushButton*>(), nullptr);
  EXPECT_TRUE(splash.windowFlags() & Qt::WindowStaysOnTopHint);
  splash.show();
  splash.releaseTopmost();
  EXPECT_TRUE(splash.isVisible());
  frmRuvoAbout about(frmRuvoAbout::Use::About);
  about.show();
  about.findChild<QPushButton*>("cmdOK")->click();
  EXPECT_FALSE(about.isVisible());
  const QImage plate = about.grab().toImage();
  EXPECT_NE(plate.pixelColor(plate.width() - 40, plate.height() / 2), plate.pixelColor(5, 5))
      << "strokes on the ground";
}

// --- A second start

class SecondProgram : public testing::Test {
 protected:
  SecondProgram() {
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, text(temp_.path()));
    ::setenv("TMPDIR", temp_.path().c_str(), 1);
    store_ = std::make_unique<desktop::PerUserStore>();
    first_ = std::make_unique<desktop::SingleInstance>(*store_, text(temp_.path()));
    EXPECT_EQ(first_->claim(), desktop::SingleInstance::Role::First);
    QObject::connect(first_.get(), &desktop::SingleInstance::received,
                     [this](const QString& path) { received_ << path; });
    first_->deliver();
  }
  ~SecondProgram() override { ::unsetenv("TMPDIR"); }

  static int start(const std::string& file) {
    ProgramArguments arguments;
    arguments.file = file;
    return basRuvoMain(arguments).run();
  }

  test::TempFolder temp_;
  std::unique_ptr<desktop::PerUserStore> store_;
  std::unique_ptr<desktop::SingleInstance> first_;
  QStringList received_;
};

TEST_F(SecondProgram, WithoutAFileSaysThatTheProgramRuns) {
  test::ScriptedDesktop user;
  user.expect("\n\nProgram is already running.");
  EXPECT_EQ(start(""), 0);
  EXPECT_TRUE(received_.isEmpty());
}

TEST_F(SecondProgram, HandsAnAbsolutePathOverButEndsWithoutAWordWhileAnAnimationIsOpenThere) {
  test::ScriptedDesktop user;
  EXPECT_EQ(start("\"a rose.png\""), 0);
  EXPECT_EQ(received_, QStringList{QDir::currentPath() + "/a rose.png"});
  first_->setAnimationTest([] { return true; });
  EXPECT_EQ(start("rose.png"), 0);
  EXPECT_EQ(start(""), 0);
  EXPECT_EQ(received_.size(), 1);
}

// --- The built program

class BuiltProgram : public testing::Test {
 protected:
  void SetUp() override {
    if (!QFile::exists(program())) GTEST_SKIP() << "ruvopaint is not built";
    environment_ = QProcessEnvironment::systemEnvironment();
    for (const char* name : {"home", "program", "temp"}) std::filesystem::create_directory(temp_ / name);
    environment_.insert("HOME", text(temp_ / "home"));
    environment_.insert("XDG_CONFIG_HOME", text(temp_ / "home"));
    environment_.insert("TMPDIR", text(temp_ / "temp"));
    environment_.insert("RUVO_PROGRAM_FOLDER", text(temp_ / "program"));
    environment_.insert("QT_QPA_PLATFORM", "offscreen");
    QImage rose(120, 90, QImage::Format_RGB32);
    rose.fill(ink_);
    ASSERT_TRUE(rose.save(text(temp_ / "rose.bmp")));
  }

  static QString program() { return QCoreApplication::applicationDirPath() + "/ruvopaint"; }

  void begin(QProcess& process, const QStringList& arguments) {
    process.setProcessEnvironment(environment_);
    process.setWorkingDirectory(text(temp_.path()));
    if (largestFile_ > 0) {
      process.setChildProcessModifier(
          [limit = rlimit{largestFile_, largestFile_}] { ::setrlimit(RLIMIT_FSIZE, &limit); });
    }
    process.start(program(), arguments);
  }
  // The exit status; -1 when the program did not end by itself.
  int run(const QStringList& arguments) {
    QProcess process;
    begin(process, arguments);
    const bool ended = process.waitForFinished(30000) && process.exitStatus() == QProcess::NormalExit;
    output_ = QString::fromUtf8(process.readAllStandardOutput());
    errors_ = QString::fromUtf8(process.readAllStandardError()).split('\n', Qt::SkipEmptyParts).filter("ruvopaint: ");
    return ended ? process.exitCode() : -1;
  }
  // Lets events through until a file in the folder holds the text.
  bool comesToHold(const std::filesystem::path& folder, const std::string& name, const QString& part) {
    const auto holds = [&] {
      QFile file(text(folder / name));
      return file.open(QIODevice::ReadOnly) && QString::fromUtf8(file.readAll()).contains(part);
    };
    QFileSystemWatcher watcher({text(folder)});
    QEventLoop loop;
    QObject::connect(&watcher, &QFileSystemWatcher::directoryChanged, &loop, [&] {
      if (holds()) loop.quit();
    });
    QTimer::singleShot(20000, &loop, &QEventLoop::quit);
    if (!holds()) loop.exec();
    return holds();
  }

  test::TempFolder temp_;
  QProcessEnvironment environment_;
  const QColor ink_{201, 33, 97};
  rlim_t largestFile_ = 0;  // that the program may write; 0 for any
  QString output_;
  QStringList errors_;
};

TEST_F(BuiltProgram, PicturesItsWindowWithTheFileAndLeavesNoTrace) {
  ASSERT_EQ(run({"--screenshot", "shot.png", "--size", "1000x700", "rose.bmp"}), 0) << errors_.join('\n').toStdString();
  const QImage shot(text(temp_ / "shot.png"));
  EXPECT_EQ(shot.size(), QSize(1000, 700));
  int painted = 0;
  for (int y = 0; y < shot.height(); ++y) {
    for (int x = 0; x < shot.width(); ++x) painted += shot.pixelColor(x, y) == ink_;
  }
  EXPECT_GE(painted, 120 * 90 * 9 / 10);
  EXPECT_TRUE(std::filesystem::is_empty(temp_ / "program")) << "no settings";
  EXPECT_TRUE(std::filesystem::is_empty(temp_ / "home")) << "no address";
  for (const auto& user : std::filesystem::directory_iterator(temp_ / "temp")) {
    EXPECT_TRUE(std::filesystem::is_empty(user.path())) << "no temporary files";
  }
  environment_.insert("QT_SCALE_FACTOR", "2");
  ASSERT_EQ(run({"--screenshot", "twice.png", "--size=1000x700"}), 0);
  EXPECT_EQ(QImage(text(temp_ / "twice.png")).size(), QSize(2000, 1400));
  EXPECT_EQ(run({"--exit-when-shown"}), 0);
}

TEST_F(BuiltProgram, SaysInOneLineWhatWentWrong) {
  EXPECT_EQ(run({"--screenshot", "shot.png", "none.png"}), 1);
  EXPECT_EQ(errors_, QStringList{"ruvopaint: cannot open none.png"});
  EXPECT_FALSE(std::filesystem::exists(temp_ / "shot.png"));
  EXPECT_EQ(run({"--screenshot", "no/such/shot.png"}), 1);
  EXPECT_EQ(errors_.size(), 1);
  EXPECT_EQ(run({"--wrong"}), 2);
  EXPECT_EQ(errors_.size(), 1);
  EXPECT_EQ(run({"--version"}), 0);
  EXPECT_EQ(output_, "ruvopaint " + QString(programVersion()) + '\n');
  EXPECT_EQ(run({"--help"}), 0);
  EXPECT_THAT(output_.toStdString(), testing::StartsWith("ruvopaint - "));
}

TEST_F(BuiltProgram, OutlivesWritesThatFail) {
  largestFile_ = 4096;
  EXPECT_EQ(run({"--screenshot", "shot.png", "rose.bmp"}), 1);
  EXPECT_EQ(errors_, QStringList{"ruvopaint: cannot write " + text(temp_ / "shot.png")});
  EXPECT_FALSE(std::filesystem::exists(temp_ / "shot.png"));
}

TEST_F(BuiltProgram, ASecondStartOpensItsFileInTheFirst) {
  QProcess first;
  begin(first, {"--no-splash"});
  ASSERT_TRUE(comesToHold(temp_ / "home", "RuvoPaint.conf", "AsPrevInst"));
  // Named from another folder than the first one works in.
  EXPECT_EQ(run({"rose.bmp"}), 0);
  EXPECT_TRUE(comesToHold(temp_ / "program", kSettingsFileName, "1.=" + text(temp_ / "rose.bmp")));
  EXPECT_EQ(first.state(), QProcess::Running);
  // The system's request to end leaves neither undo states nor a channel behind.
  const auto left = [this](const char* part) {
    int count = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(temp_ / "temp"))
      count += entry.path().filename().string().find(part) != std::string::npos;
    return count;
  };
  EXPECT_GT(left("m_Temp"), 0);
  EXPECT_EQ(left("instance-"), 1);
  first.terminate();
  EXPECT_TRUE(first.waitForFinished());
  EXPECT_EQ(first.exitStatus(), QProcess::NormalExit);
  EXPECT_EQ(left("m_Temp"), 0);
  EXPECT_EQ(left("instance-"), 0);
}

}  // namespace
}  // namespace ruvo
