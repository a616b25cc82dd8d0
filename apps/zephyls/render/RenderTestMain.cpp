// Tests that draw: without a display, with fonts that are the same everywhere.

#include <QApplication>
#include <iostream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "hosts/linux/screen/PinnedFonts.h"

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent/bus");
  const zephyl::linux_host::PinnedFonts fonts;
  if (!fonts.arePinned()) {
    std::cerr << "cannot choose the fonts\n";
    return 1;
  }
  const QApplication application(argc, argv);
  ::testing::InitGoogleMock(&argc, argv);
  return RUN_ALL_TESTS();
}
