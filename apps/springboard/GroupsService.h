// The side of the message center that owns the groups file: answers what the store of another
// process asks for, and hands out and takes in group pictures.
//
// What it is given is checked; a request that fails is answered with NO, or with no value where a
// value is asked for, and a line in the system log says why.

#pragma once

#include <optional>
#include <string>

namespace zephyl::linux_host {
class MessageServer;
}

namespace zephyl::app {

// Answers on the server's thread, by the installed host's files; requests for groups one at a time,
// and pictures to save one at a time beside them.
void serveGroups(linux_host::MessageServer& server);

// Why the old content of the file of that phone path must be put aside before it is overwritten:
// nobody could have read the groups in it, from the file or from a message, so whoever writes knows
// nothing of them. Nothing for every other file.
[[nodiscard]] std::optional<std::string> whyKeepGroupsFile(const std::string& path,
                                                           const std::string& contents);

}  // namespace zephyl::app
