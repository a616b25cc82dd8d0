// Which messages of Qt's are left out, and that no others are.

#include "hosts/linux/screen/QtMessages.h"

#include <QtGlobal>
#include <string>

#include <gtest/gtest.h>

namespace zephyl::linux_host {
namespace {

TEST(QtMessages, RemarksThatNeedNobodyAreKnown) {
  EXPECT_TRUE(
      isQtRemark("QStandardPaths: XDG_RUNTIME_DIR not set, defaulting to '/tmp/runtime-somebody'"));
  EXPECT_TRUE(isQtRemark("  OpenType support missing for \"Inter\", script 11"));
  EXPECT_FALSE(isQtRemark("QStandardPaths: wrong permissions on runtime directory /run/user/1"));
  EXPECT_FALSE(isQtRemark("Could not load the platform plugin: OpenType support missing for it"));
  EXPECT_FALSE(isQtRemark(""));
}

TEST(QtMessages, OthersAreStillTold) {
  leaveOutQtRemarks();
  leaveOutQtRemarks();
  testing::internal::CaptureStderr();
  qWarning("QStandardPaths: XDG_RUNTIME_DIR not set, defaulting to '/tmp'");
  qWarning("the disk is full");
  qCritical("OpenType support missing for \"A\", script 1");
  const std::string told = testing::internal::GetCapturedStderr();
  EXPECT_EQ(told.find("XDG_RUNTIME_DIR"), std::string::npos) << told;
  EXPECT_NE(told.find("the disk is full"), std::string::npos) << told;
  EXPECT_NE(told.find("OpenType"), std::string::npos) << told;
}

}  // namespace
}  // namespace zephyl::linux_host
