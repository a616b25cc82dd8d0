// Asks the user for a picture. A seam; main thread.

#pragma once

#include <functional>

#include "platform/foundation/NSError.h"
#include "platform/uikit/UIImage.h"

namespace zephyl {

class UIView;

enum class UIImagePickerSource { kPhotoLibrary, kCamera };

class ImagePicker {
 public:
  // Null for both when the user cancelled; `error` when what was chosen cannot be read.
  using Completion = std::function<void(UIImageRef image, const NSError* error)>;

  virtual ~ImagePicker() = default;

  [[nodiscard]] virtual bool isSourceAvailable(UIImagePickerSource source) = 0;

  // Returns at once. `completion` runs once, on the main thread, after this call has returned.
  // `above` is the view that it is shown over.
  virtual void pick(UIImagePickerSource source, UIView& above, Completion completion) = 0;
};

}  // namespace zephyl
