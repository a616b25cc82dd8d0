#include <cstdint>
#include <limits>
#include <string>

#include "platform/foundation/NSUserDefaults.h"

#include "hosts/contract/DeviceUnderTest.h"

namespace zephyl::contract {
namespace {

class UserDefaultsContract : public ContractTest {
 protected:
  NSUserDefaults& defaults() { return host().userDefaults(); }
};
ZEPHYLS_CONTRACT(UserDefaultsContract);

TEST_P(UserDefaultsContract, AMissingKeyIsZero) {
  EXPECT_EQ(defaults().integerForKey("LAST"), 0);
}

TEST_P(UserDefaultsContract, ANumberIsReadBackBeforeAndAfterItIsWritten) {
  using Limits = std::numeric_limits<std::int64_t>;
  for (const std::int64_t value :
       {std::int64_t{7}, std::int64_t{-1}, Limits::max(), Limits::min(), std::int64_t{0}}) {
    defaults().setInteger(value, "LAST");
    EXPECT_EQ(defaults().integerForKey("LAST"), value);
    EXPECT_TRUE(defaults().synchronize());
    EXPECT_EQ(defaults().integerForKey("LAST"), value);
  }
}

TEST_P(UserDefaultsContract, KeysAreKeptApart) {
  defaults().setInteger(1, "one");
  EXPECT_TRUE(defaults().synchronize());
  defaults().setInteger(2, "two");
  EXPECT_EQ(defaults().integerForKey("one"), 1);
  EXPECT_EQ(defaults().integerForKey("two"), 2);
}

TEST_P(UserDefaultsContract, SynchronizingNothingSucceeds) {
  EXPECT_TRUE(defaults().synchronize());
}

TEST_P(UserDefaultsContract, AMissingDomainIsTold) {
  EXPECT_EQ(defaults().persistentDomainForName("com.example.missing"), std::nullopt);
}

TEST_P(UserDefaultsContract, ADomainIsReadBackAsItWasSet) {
  const Dictionary domain{{"ring-vibrate", true},
                          {"count", 3},
                          {"share", 0.25},
                          {"name", "Zoë"},
                          {"list", Array{Value(1), Value("two")}}};
  defaults().setPersistentDomain(domain, "com.apple.springboard");
  EXPECT_EQ(defaults().persistentDomainForName("com.apple.springboard"), domain);
  EXPECT_EQ(defaults().persistentDomainForName("com.apple"), std::nullopt);
}

TEST_P(UserDefaultsContract, ADomainIsReplacedWhole) {
  defaults().setPersistentDomain(Dictionary{{"old", 1}}, "com.example");
  defaults().setPersistentDomain(Dictionary{{"new", 2}}, "com.example");
  EXPECT_EQ(defaults().persistentDomainForName("com.example"), Dictionary({{"new", 2}}));
}

TEST_P(UserDefaultsContract, AnEmptyDomainIsThere) {
  defaults().setPersistentDomain(Dictionary(), "com.example");
  EXPECT_EQ(defaults().persistentDomainForName("com.example"), Dictionary());
}

TEST_P(UserDefaultsContract, AnyThreadMaySetAndRead) {
  onThreads(4, [this](int number) {
    const std::string key = std::to_string(number);
    for (int i = 1; i <= 20; ++i) {
      defaults().setInteger(i, key);
      EXPECT_TRUE(defaults().synchronize());
      EXPECT_EQ(defaults().integerForKey(key), i);
    }
  });
  for (const char* key : {"0", "1", "2", "3"}) {
    EXPECT_EQ(defaults().integerForKey(key), 20) << key;
  }
}

}  // namespace
}  // namespace zephyl::contract
