#include "hosts/linux/notices/DesktopNotices.h"

#include <utility>

#include "hosts/linux/notices/NoticeSender.h"

namespace zephyl::linux_host {

DesktopNotices::DesktopNotices(Options options) : sender_(new Sender(std::move(options))) {
  sender_->moveToThread(&thread_);
  // On its own thread, as the last thing that happens there.
  QObject::connect(&thread_, &QThread::finished, sender_, &QObject::deleteLater);
  thread_.start();
}

DesktopNotices::~DesktopNotices() {
  thread_.quit();
  thread_.wait();
}

void DesktopNotices::show(DesktopNotice notice) {
  sender_->add(std::move(notice));
  sender_->wake();
}

}  // namespace zephyl::linux_host
