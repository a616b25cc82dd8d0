#include "apps/zephyls/MemberNames.h"

#include <string>

#include "apps/zephyls/Describe.h"
#include "apps/zephyls/Session.h"

namespace zephyl::app {

MemberName memberNames(const Session& session) {
  return [&session](const Member& member) {
    const MemberDescription described = describe(member);
    if (described.name.empty()) {
      return described.text;
    }
    const ABPersonRef person = described.kind == MemberKind::kAddress
                                   ? session.userData().matcher().personForHandle(described.text)
                                   : nullptr;
    if (person == nullptr) {
      return described.name;
    }
    std::string name = nameOf(*person);
    return name.append(" (").append(described.name).append(")");
  };
}

}  // namespace zephyl::app
