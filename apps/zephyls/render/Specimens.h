// What can be rendered: each component of the library and of its screens, in all its states.
//
// To add one: write a function that puts it on the stage, and list it in Specimens.cpp.

#pragma once

#include <string_view>
#include <vector>

namespace zephyl::app::render {

class Stage;

struct Specimen {
  // The name on the command line, and of the file.
  std::string_view name;
  std::string_view help;
  void (*stage)(Stage& stage);
};

// In the order of the list.
[[nodiscard]] const std::vector<Specimen>& allSpecimens();
// Null when there is none.
[[nodiscard]] const Specimen* specimenNamed(std::string_view name);

}  // namespace zephyl::app::render
