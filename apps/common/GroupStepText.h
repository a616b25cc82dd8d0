// What a step did to the groups, in the user's language. Main thread.

#pragma once

#include <functional>
#include <string>
#include <vector>

#include "apps/common/GroupDifference.h"

namespace zephyl::app {

// What a member is called: a person's or conversation's name, a number in readable form.
using MemberName = std::function<std::string(const Member&)>;

// What the user may miss, a sentence each: the members that left each group, the first few by name,
// and the groups that are deleted. Empty when nothing is lost.
[[nodiscard]] std::vector<std::string> lossesOf(const GroupStep& step, const MemberName& name);

// All of it in one line, for a menu or a banner: what is lost, who is a member now, which groups
// are new or changed otherwise. Empty for an empty step.
[[nodiscard]] std::string summaryOf(const GroupStep& step, const MemberName& name);

// The same as told when it is a step that was taken back, or done again.
[[nodiscard]] std::string undoneText(const std::string& summary);
[[nodiscard]] std::string redoneText(const std::string& summary);

}  // namespace zephyl::app
