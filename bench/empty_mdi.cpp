// The peer of the start-up figure: the least Qt program that shows an empty MDI window, says "shown" once it is exposed
// and painted, and ends.
#include <QApplication>
#include <QMainWindow>
#include <QMdiArea>
#include <QTimer>
#include <QWindow>
#include <cstdio>

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QMainWindow window;
  window.setCentralWidget(new QMdiArea(&window));
  window.resize(1200, 800);
  window.show();
  QTimer poll;
  QObject::connect(&poll, &QTimer::timeout, &application, [&] {
    if (!window.windowHandle()->isExposed()) return;
    QCoreApplication::processEvents();
    std::puts("shown");
    std::fflush(stdout);
    QApplication::quit();
  });
  poll.start(1);
  return QApplication::exec();
}
