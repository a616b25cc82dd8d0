// Tests of the screen run offscreen, with the same fonts everywhere and without a message bus.

#include <QApplication>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/Export.h"

#include "hosts/linux/screen/PinnedFonts.h"

// Read by the leak checker. The encoder that makes the tests' HEIC files keeps a little for itself.
extern "C" ZP_EXPORT const char* __lsan_default_suppressions() {
  return "leak:libx265\n";
}

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent/bus");
  qputenv("QT_ACCESSIBILITY", "0");
  const zephyl::linux_host::PinnedFonts fonts;
  const QApplication application(argc, argv);
  ::testing::InitGoogleMock(&argc, argv);
  return RUN_ALL_TESTS();
}
