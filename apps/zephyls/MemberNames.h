// What the members of a group are called where the user is told of them. Needs the session's groups
// started; main thread.

#pragma once

#include "apps/common/GroupStepText.h"

namespace zephyl::app {

class Session;

// "Ann Larkspur" for a person, "Ann Larkspur (+1 555-555-0101)" for the number of one, the name of
// a conversation; the member itself where nobody is found. `session` must outlive what is given.
[[nodiscard]] MemberName memberNames(const Session& session);

}  // namespace zephyl::app
