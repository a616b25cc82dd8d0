// Measures and sets texts with Qt. Any thread, while there is a QGuiApplication.

#pragma once

#include <QtGlobal>
#include <cstddef>
#include <mutex>
#include <string>
#include <tuple>

#include "platform/uikit/TextLayout.h"

#include "hosts/linux/screen/RecentlyUsed.h"

namespace zephyl {
class UIScreen;
}

namespace zephyl::linux_host {

class QtTextSystem : public TextSystem {
 public:
  // `screen` tells which side is the leading one; it outlives this.
  explicit QtTextSystem(UIScreen& screen) : screen_(screen) {}

  [[nodiscard]] UIFont::Metrics metrics(const UIFont& font) override;

  // The last texts that were set are kept, up to a bound; long ones are not.
  [[nodiscard]] TextLayoutRef layout(const NSAttributedString& text,
                                     const TextStyle& style) override;

  // How many texts had to be set.
  [[nodiscard]] std::size_t misses() const;

 private:
  // Text and style as bytes.
  using Key = std::string;

  [[nodiscard]] static Key keyOf(const NSAttributedString& text, const TextStyle& style,
                                 bool rightToLeft);

  UIScreen& screen_;
  mutable std::mutex mutex_;
  RecentlyUsed<Key, TextLayoutRef> known_{4U << 20U};
  std::size_t misses_ = 0;
};

}  // namespace zephyl::linux_host
