#include <gtest/gtest.h>

#include <QApplication>

#include "desktop/theme.h"

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  kalvo::ApplyTheme(app, kalvo::kLightTheme);
  ::testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
