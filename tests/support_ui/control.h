// The child of a window that has this name; the test fails when there is none.
#pragma once

#include <gtest/gtest.h>

#include <QPushButton>

namespace ruvo::test {

template <typename T = QPushButton>
T* control(QWidget& window, const char* name) {
  auto* found = window.findChild<T*>(QString::fromLatin1(name));
  EXPECT_NE(found, nullptr) << name;
  return found;
}

}  // namespace ruvo::test
