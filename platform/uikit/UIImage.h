// A picture, held as the file it came in; it is decoded where it is drawn.

#pragma once

#include <memory>
#include <utility>

#include "platform/foundation/Value.h"

namespace zephyl {

class UIImage {
 public:
  explicit UIImage(Data file) : file_(std::move(file)) {}

  [[nodiscard]] const Data& file() const { return file_; }

 private:
  Data file_;
};

using UIImageRef = std::shared_ptr<const UIImage>;

}  // namespace zephyl
