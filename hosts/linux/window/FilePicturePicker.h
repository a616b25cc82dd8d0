// Pictures from files: the dialog of the desktop. There is no camera, since nothing on a desktop
// takes a picture for another program without a portal of its own. Main thread.

#pragma once

#include <QPointer>
#include <functional>

#include "platform/uikit/ImagePicker.h"

class QFileDialog;
class QWidget;

namespace zephyl::linux_host {

class FilePicturePicker : public ImagePicker {
 public:
  FilePicturePicker();
  ~FilePicturePicker() override;
  FilePicturePicker(const FilePicturePicker&) = delete;
  FilePicturePicker& operator=(const FilePicturePicker&) = delete;

  // What the dialog stands above; may be null.
  void showAbove(QWidget* widget);

  [[nodiscard]] bool isSourceAvailable(UIImagePickerSource source) override;
  void pick(UIImagePickerSource source, UIView& above, Completion completion) override;

  // The dialog that is open, for tests; null when none is.
  [[nodiscard]] QFileDialog* dialog() const;

 private:
  QPointer<QWidget> widget_;
  QPointer<QFileDialog> dialog_;
};

}  // namespace zephyl::linux_host
