// The peer of the start-up figure: the least Qt program that shows an empty MDI window of the same size and ends as soon
// as it has been painted.
#include <QApplication>
#include <QMainWindow>
#include <QMdiArea>
#include <QTimer>

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QMainWindow window;
  window.setCentralWidget(new QMdiArea(&window));
  window.resize(1200, 800);
  window.show();
  QTimer::singleShot(0, &application, [&] {
    window.repaint();
    QTimer::singleShot(0, &application, &QApplication::quit);
  });
  return QApplication::exec();
}
