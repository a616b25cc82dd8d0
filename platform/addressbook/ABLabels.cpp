#include "platform/addressbook/ABLabels.h"

#include <array>
#include <string_view>

#include "platform/uikit/UIKitText.h"

namespace zephyl {

namespace {

constexpr std::string_view kBefore = "_$!<";
constexpr std::string_view kAfter = ">!$_";

struct Label {
  std::string_view raw;
  std::string (*text)();
};

constexpr std::array<Label, 15> kLabels = {{
    {"Mobile", [] { return uikitText("mobile"); }},
    {"Home", [] { return uikitText("home"); }},
    {"Work", [] { return uikitText("work"); }},
    {"School", [] { return uikitText("school"); }},
    {"Main", [] { return uikitText("main"); }},
    {"HomeFAX", [] { return uikitText("home fax"); }},
    {"WorkFAX", [] { return uikitText("work fax"); }},
    {"OtherFAX", [] { return uikitText("other fax"); }},
    {"Pager", [] { return uikitText("pager"); }},
    {"Other", [] { return uikitText("other"); }},
    {"HomePage", [] { return uikitText("homepage"); }},
    {"Anniversary", [] { return uikitText("anniversary"); }},
    {"Car", [] { return uikitText("car"); }},
    {"Radio", [] { return uikitText("radio"); }},
    {"Assistant", [] { return uikitText("assistant"); }},
}};

}  // namespace

std::string ABAddressBookCopyLocalizedLabel(const std::string& label) {
  const std::string_view whole = label;
  if (whole.size() < kBefore.size() + kAfter.size() || !whole.starts_with(kBefore) ||
      !whole.ends_with(kAfter)) {
    return label;
  }
  const std::string_view raw =
      whole.substr(kBefore.size(), whole.size() - kBefore.size() - kAfter.size());
  for (const Label& known : kLabels) {
    if (known.raw == raw) {
      return known.text();
    }
  }
  return std::string(raw);
}

}  // namespace zephyl
