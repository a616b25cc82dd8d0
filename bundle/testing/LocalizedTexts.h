// The texts that source code looks up in tables of texts. Pure, any thread.
//
// Every look-up ends in NSBundle::localizedStringForKey(key, value, table). A function that hands a
// parameter on to it, or to another such function, looks texts up itself, so its calls are followed
// too: `localized("Title")`, `zpLocalizedText(isOn ? "is" : "are")`, `report(failure,
// kUnableToAdd)`.

#pragma once

#include <string>
#include <vector>

#include "bundle/testing/SourceOutline.h"

namespace zephyl::test {

struct LocalizedText {
  std::string file;
  int line = 0;
  std::string text;
  std::string table;  // "Localizable" where the code names none

  friend bool operator==(const LocalizedText&, const LocalizedText&) = default;
};

struct LocalizedTexts {
  std::vector<LocalizedText> texts;

  // "FILE:LINE: EXPRESSION": look-ups of what cannot be told from the source.
  std::vector<std::string> unclear;
};

// A text is known when it stands in the call or in a constant (kTitle), or when it comes from a
// variable of the function that is set to such a text or runs over a list of them.
[[nodiscard]] LocalizedTexts localizedTextsOf(const std::vector<SourceOutline>& sources);

}  // namespace zephyl::test
