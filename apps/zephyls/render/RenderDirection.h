// Which way the texts of a picture run.

#pragma once

namespace zephyl::app {

struct Options;

namespace render {

// As the language of the options or of the environment does, or from right to left where that is
// wished. Throws CommandError where the program's own files are missing.
[[nodiscard]] bool runsFromRightToLeft(const Options& options);

}  // namespace render
}  // namespace zephyl::app
