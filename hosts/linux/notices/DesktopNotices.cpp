#include "hosts/linux/notices/DesktopNotices.h"

#include <QMetaObject>
#include <utility>

#include "hosts/linux/notices/NoticeSender.h"

namespace zephyl::linux_host {

DesktopNotices::DesktopNotices(Options options)
    : sender_(std::make_unique<Sender>(std::move(options))) {
  sender_->moveToThread(&thread_);
  thread_.start();
}

DesktopNotices::~DesktopNotices() {
  thread_.quit();
  thread_.wait();
}

void DesktopNotices::show(DesktopNotice notice) {
  sender_->add(std::move(notice));
  QMetaObject::invokeMethod(
      sender_.get(), [sender = sender_.get()] { sender->sendNext(); }, Qt::QueuedConnection);
}

}  // namespace zephyl::linux_host
