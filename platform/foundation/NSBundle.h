// A bundle of localized texts: PATH/LANGUAGE.lproj/TABLE.strings, text or compiled.
//
// Its tables are read at each look-up; callers open bundles by path each time. Any thread.

#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/Export.h"

namespace zephyl {

class ZP_EXPORT NSBundle {
 public:
  // Null when there is no folder of that path with anything in it.
  [[nodiscard]] static std::shared_ptr<NSBundle> bundleWithPath(const std::string& path);

  // The running process's own bundle, which may have no texts at all.
  [[nodiscard]] static std::shared_ptr<NSBundle> mainBundle();

  // The Messages framework's bundle.
  [[nodiscard]] static std::shared_ptr<NSBundle> ckFrameworkBundle();

  // The text for the key in the first preferred language whose table has the key, else in English,
  // else in the table without a language ("Base"). A key without a text gives `value`, or the key
  // itself when `value` is absent or empty. An absent table is "Localizable".
  [[nodiscard]] std::string localizedStringForKey(
      const std::string& key, const std::optional<std::string>& value = std::nullopt,
      const std::optional<std::string>& table = std::nullopt) const;

  [[nodiscard]] const std::string& bundlePath() const { return path_; }

  // Makes the bundle's code and texts ready; there is no code, so nothing is left to do.
  bool load() const { return true; }

 private:
  explicit NSBundle(std::string path);

  std::string path_;
};

}  // namespace zephyl
