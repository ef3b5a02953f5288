// The peer of the start-up figure: the least Qt program that shows an empty MDI window, says "shown" once it is exposed
// and painted, and ends. With an argument the window has a menu bar of one entry, so that it loads a font as any window
// with text must.
#include <QApplication>
#include <QMainWindow>
#include <QMdiArea>
#include <QMenuBar>
#include <QTimer>
#include <QWindow>
#include <cstdio>

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QMainWindow window;
  window.setCentralWidget(new QMdiArea(&window));
  if (argc > 1) window.menuBar()->addMenu("File");
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
