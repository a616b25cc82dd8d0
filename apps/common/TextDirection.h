// Which way the program's texts run.

#pragma once

#include <string>
#include <vector>

namespace zephyl::app {

// Whether the texts that a user of these languages, the best first, gets to see run from right to
// left: those of the first language that the program's own texts are there in. A language without
// texts is shown in the next one, and runs as that does.
[[nodiscard]] bool textsRunFromRightToLeft(const std::vector<std::string>& languages);

}  // namespace zephyl::app
