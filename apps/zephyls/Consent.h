// What the user has to agree to before groups change: the fingerprint for protected groups, and a
// yes for what cannot be taken back. Asked before the device is locked; on the main thread.

#pragma once

#include <string>

#include "store/ZephylArray.h"

namespace zephyl::app {

class Output;
class Session;

// Whether the fingerprint stands before the group: system groups are never asked for.
[[nodiscard]] bool isLocked(const ZephylRef& group);

// Asks once for all protected groups among these, and not at all when there is none or the device
// has no reader. Throws CommandError when the owner was not recognized.
void askForFingerprint(Session& session, Output& output, const ZephylVector& groups);

// Asks on the terminal unless --yes was given. Throws CommandError when the answer is no, and when
// there is no terminal to ask on.
void askWhetherToGoOn(const Session& session, Output& output, const std::string& question);

}  // namespace zephyl::app
