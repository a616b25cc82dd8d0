// People in sections by the order of the languages on Linux: the fast way against the rule.

#include <optional>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "platform/Host.h"

#include "contacts/testing/PersonBuilder.h"
#include "hosts/contract/TemporaryFolder.h"
#include "hosts/linux/LinuxDevice.h"
#include "ui/people/ContactPartition.h"
#include "ui/people/ContactSections.h"

namespace zephyl::app {
namespace {

class PeopleSectionsOnLinux : public ::testing::Test {
 protected:
  ~PeopleSectionsOnLinux() override { stop(); }
  void start(std::vector<std::string> languages) {
    stop();
    linux_host::DeviceOptions options;
    options.deviceRoot = folder_.path();
    options.languages = std::move(languages);
    device_.emplace(std::move(options));
    install(*device_);
  }
  void stop() {
    if (device_) {
      uninstall();
      device_.reset();
    }
  }
  // Of few pieces, so that names are often equal, or sort alike without being equal.
  std::string name() {
    static const std::vector<std::string> pieces = {
        "",       "e",      "E",      "\u00e9",       "e\u0301",
        "\u00c9", "n",      " ",      "\u0627\u0644", "\u0645\u062d",
        "\u0649", "\u738b", "\u5f20", "\uac00",       "\u3042",
        "\u30a2", "\u0416", "7",      "\u200f",       "\xff",
    };
    std::string text;
    for (std::size_t left = random_() % 4; left > 0; --left) {
      text += pieces[random_() % pieces.size()];
    }
    return text;
  }
  APContactArray people() {
    APContactArray all;
    const std::size_t count = random_() % 60;
    all.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
      test::PersonBuilder person(static_cast<std::int32_t>(i + 1), name(), name());
      person.named(name() + "!");
      if (random_() % 2 == 0) {
        person.phone(std::to_string(random_() % 30));
      }
      all.push_back(APContact::initWithRecordRef(person, APContactFieldAll));
    }
    return all;
  }

  contract::TemporaryFolder folder_;
  std::optional<linux_host::LinuxDevice> device_;
  std::mt19937 random_{7};
};

TEST_F(PeopleSectionsOnLinux, TheFastWayIsTheRuleInEveryLanguageAndOrder) {
  for (const char* language : {"en", "fr", "ar", "zh-Hans", "ja", "ko", "ru", "sv"}) {
    start({language, "en"});
    ContactPartition partition;
    for (int round = 0; round < 60; ++round) {
      const auto ordering =
          round % 2 == 0 ? ABPersonSortOrdering::kByLastName : ABPersonSortOrdering::kByFirstName;
      const APContactArray all = people();
      const ContactSections sections = partition.sections(all, ordering);
      ASSERT_EQ(sections, contactSectionsByTheRule(all, ordering)) << language << round;
      // Some of them, in the order in which they are listed, as a search gives them.
      APContactArray some;
      for (const APContactArray& section : sections) {
        for (const APContactRef& contact : section) {
          if (random_() % 3 == 0) {
            some.push_back(contact);
          }
        }
      }
      ASSERT_EQ(partition.sections(some, ordering), contactSectionsByTheRule(some, ordering))
          << language << round;
    }
  }
}

}  // namespace
}  // namespace zephyl::app
