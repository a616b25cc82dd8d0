#include "hosts/linux/screen/HeadlessInput.h"

#include <QCoreApplication>
#include <QMetaObject>
#include <utility>

namespace zephyl::linux_host {

void NoImagePicker::pick(UIImagePickerSource /*source*/, UIView& /*above*/, Completion completion) {
  QMetaObject::invokeMethod(
      QCoreApplication::instance(),
      [completion = std::move(completion)] { completion(nullptr, nullptr); }, Qt::QueuedConnection);
}

}  // namespace zephyl::linux_host
