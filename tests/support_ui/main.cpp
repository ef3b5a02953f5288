// The user-interface tests share one application object.
#include <gmock/gmock.h>

#include <QApplication>

int main(int argc, char** argv) {
  testing::InitGoogleMock(&argc, argv);
  QApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
