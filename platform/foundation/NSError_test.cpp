#include "platform/foundation/NSError.h"

#include <gtest/gtest.h>

namespace zephyl {
namespace {

TEST(NSErrorTest, GivesTheTextsOfItsUserInfo) {
  const NSError error("com.example", 7,
                      {{kNSLocalizedDescriptionKey, "Cannot save"},
                       {kNSLocalizedFailureReasonErrorKey, "The disk is full."},
                       {kNSLocalizedRecoverySuggestionErrorKey, "Delete something."}});
  EXPECT_EQ(error.domain(), "com.example");
  EXPECT_EQ(error.code(), 7);
  EXPECT_EQ(error.localizedDescription(), "Cannot save");
  EXPECT_EQ(error.localizedFailureReason(), "The disk is full.");
  EXPECT_EQ(error.localizedRecoverySuggestion(), "Delete something.");
}

TEST(NSErrorTest, DescribesItselfByReasonOrCodeWithoutADescription) {
  EXPECT_EQ(NSError("com.example", 7).localizedDescription(),
            "The operation couldn\u2019t be completed. (com.example error 7.)");
  EXPECT_EQ(NSError("d", 1, {{kNSLocalizedFailureReasonErrorKey, "Full."}}).localizedDescription(),
            "The operation couldn\u2019t be completed. Full.");
}

TEST(NSErrorTest, IgnoresUserInfoThatIsNotText) {
  const NSError error("d", 1, {{kNSLocalizedFailureReasonErrorKey, 5}});
  EXPECT_EQ(error.localizedFailureReason(), "");
  EXPECT_EQ(error.localizedRecoverySuggestion(), "");
}

TEST(NSErrorTest, DescribesItselfForLogs) {
  EXPECT_EQ(NSError("d", 7, {{kNSLocalizedDescriptionKey, "Full."}}).description(),
            "Error Domain=d Code=7 \"Full.\"");
}

TEST(NSErrorTest, IsEqualByDomainCodeAndUserInfo) {
  EXPECT_EQ(NSError("d", 1), NSError("d", 1));
  EXPECT_FALSE(NSError("d", 1) == NSError("d", 2));
  EXPECT_FALSE(NSError("d", 1) == NSError("e", 1));
  EXPECT_FALSE(NSError("d", 1) == NSError("d", 1, {{"k", 1}}));
}

}  // namespace
}  // namespace zephyl
