// A desktop's portal that a test serves on a thread of its own: what it tells of the appearance.

#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QEventLoop>
#include <QMap>
#include <QVariant>
#include <atomic>
#include <future>
#include <mutex>
#include <string>
#include <thread>

#include "hosts/linux/bus/SessionBus.h"

namespace zephyl::linux_host {

using PortalValues = QMap<QString, QVariantMap>;

class Portal {
 public:
  // Serves when this returns. A silent one answers nothing until it is told to.
  Portal(const std::string& address, PortalValues values, bool silent = false)
      : bus_(address), values_(std::move(values)), silent_(silent) {
    std::promise<void> started;
    thread_ = std::thread([this, &started] { serve(started); });
    started.get_future().wait();
  }
  ~Portal() {
    QMetaObject::invokeMethod(loop_, [this] { loop_->quit(); });
    thread_.join();
  }
  Portal(const Portal&) = delete;
  Portal& operator=(const Portal&) = delete;

  // Answers what was asked while it was silent.
  void answerNow() {
    const std::lock_guard lock(mutex_);
    silent_ = false;
    for (const QDBusMessage& question : questions_) {
      answer(question);
    }
    questions_.clear();
  }

  void change(const QString& space, const QString& key, const QVariant& value) {
    QDBusMessage signal = QDBusMessage::createSignal(
        "/org/freedesktop/portal/desktop", "org.freedesktop.portal.Settings", "SettingChanged");
    signal.setArguments({space, key, QVariant::fromValue(QDBusVariant(value))});
    bus_.connection().send(signal);
  }

 private:
  class Object : public QDBusVirtualObject {
   public:
    explicit Object(Portal& portal) : portal_(portal) {}
    [[nodiscard]] QString introspect(const QString& /*path*/) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& /*from*/) override {
      if (message.member() != "ReadAll") {
        return false;
      }
      portal_.asked(message);
      return true;
    }

   private:
    Portal& portal_;
  };

  void serve(std::promise<void>& started) {
    QEventLoop loop;
    loop_ = &loop;
    Object object(*this);
    QDBusConnection connection = bus_.connection();
    connection.registerVirtualObject("/org/freedesktop/portal/desktop", &object);
    connection.registerService("org.freedesktop.portal.Desktop");
    started.set_value();
    loop.exec();
    connection.unregisterObject("/org/freedesktop/portal/desktop");
  }

  void asked(const QDBusMessage& question) {
    const std::lock_guard lock(mutex_);
    if (silent_) {
      question.setDelayedReply(true);
      questions_.append(question);
    } else {
      answer(question);
    }
  }

  void answer(const QDBusMessage& question) {
    bus_.connection().send(question.createReply(QVariant::fromValue(values_)));
  }

  SessionBus bus_;
  const PortalValues values_;
  std::mutex mutex_;
  bool silent_;
  QList<QDBusMessage> questions_;
  QEventLoop* loop_ = nullptr;
  std::thread thread_;
};

}  // namespace zephyl::linux_host
