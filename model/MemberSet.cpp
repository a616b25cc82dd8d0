#include "model/MemberSet.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace zephyl {

namespace {

std::optional<Member> memberOf(const Value& element) {
  if (const auto* integer = element.ifInteger()) {
    return Member(*integer);
  }
  if (const auto* text = element.ifString()) {
    return Member(*text);
  }
  if (const auto* boolean = element.ifBoolean()) {
    return Member(std::int64_t{*boolean ? 1 : 0});
  }
  constexpr double kExactIntegers = 9007199254740992.0;
  const auto* real = element.ifReal();
  if (real != nullptr && std::trunc(*real) == *real && std::abs(*real) <= kExactIntegers) {
    return Member(static_cast<std::int64_t>(*real));
  }
  return std::nullopt;
}

}  // namespace

bool isChatGuid(const std::string& text) {
  return text.starts_with("SMS") || text.starts_with("sms") || text.starts_with("iMessage");
}

std::int64_t memberNumber(const Member& member) {
  const auto* number = std::get_if<std::int64_t>(&member);
  return number == nullptr ? Value(std::get<std::string>(member)).integerValue() : *number;
}

MemberKind memberKind(const Member& member) {
  if (memberNumber(member) >= 1) {
    return MemberKind::kPerson;
  }
  const auto* text = std::get_if<std::string>(&member);
  return text != nullptr && isChatGuid(*text) ? MemberKind::kConversation : MemberKind::kAddress;
}

MemberSet::MemberSet(std::initializer_list<Member> members) {
  for (const Member& member : members) {
    add(member);
  }
}

MemberSet::MemberSet(const Array& elements) {
  for (const Value& element : elements) {
    if (const auto member = memberOf(element)) {
      add(*member, element);
    } else {
      carried_.push_back(element);
    }
  }
}

bool MemberSet::add(const Member& member) {
  return add(member, std::visit([](const auto& id) { return Value(id); }, member));
}

bool MemberSet::add(const Member& member, const Value& stored) {
  if (!index_.insert(member).second) {
    return false;
  }
  members_.push_back(member);
  stored_.push_back(stored);
  return true;
}

bool MemberSet::remove(const Member& member) {
  if (index_.erase(member) == 0) {
    return false;
  }
  const auto at = std::find(members_.begin(), members_.end(), member);
  stored_.erase(stored_.begin() + (at - members_.begin()));
  members_.erase(at);
  return true;
}

MemberSet membersOrNone(const MemberSet* members) {
  return members == nullptr ? MemberSet() : *members;
}

Array MemberSet::array() const {
  Array elements = stored_;
  elements.insert(elements.end(), carried_.begin(), carried_.end());
  return elements;
}

}  // namespace zephyl
