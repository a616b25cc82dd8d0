// What a save of the groups changes, in a few words for the user. Pure, any thread.

#pragma once

#include <string>

namespace zephyl::app {

// From the contents of the groups file: "before \"Work\" was deleted", "before 3 groups were added
// and \"Home\" was changed". Groups are the same when their identifiers are.
[[nodiscard]] std::string describeSave(const std::string& oldContents,
                                       const std::string& newContents);

}  // namespace zephyl::app
