// What speaks to the notification service, one call after the other, on the thread of its
// DesktopNotices.

#pragma once

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QEvent>
#include <QObject>
#include <QString>
#include <QVariantList>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

#include "hosts/linux/notices/DesktopNotices.h"

class QDBusServiceWatcher;

namespace zephyl::linux_host {

class DesktopNotices::Sender : public QObject {
 public:
  explicit Sender(Options options);
  ~Sender() override;

  // Any thread.
  void add(DesktopNotice notice);

  // Any thread; it is sent on the thread of the object. An event of Qt's own, whose way from thread
  // to thread needs nothing of ours.
  void wake() { QCoreApplication::postEvent(this, new QEvent(QEvent::User)); }

 protected:
  void customEvent(QEvent* /*event*/) override { sendNext(); }

 private:
  // Unless a call is under way, which does it when it is done.
  void sendNext();
  using Answered = std::function<void(const QDBusMessage& reply)>;

  [[nodiscard]] std::optional<DesktopNotice> takeNext();
  [[nodiscard]] bool connect();
  void disconnect();
  void call(const QString& method, const QVariantList& arguments, Answered answered);
  void askForMarkup(const DesktopNotice& notice);
  void notify(const DesktopNotice& notice);
  void forgetService();
  void fail(const std::string& reason);

  const Options options_;
  std::mutex mutex_;
  std::deque<DesktopNotice> waiting_;

  bool isBusy_ = false;
  bool hasFailed_ = false;  // and said so
  QString connectionName_;
  std::optional<QDBusConnection> bus_;
  std::unique_ptr<QDBusServiceWatcher> serviceWatcher_;
  // Of the service that runs now: whether bodies are markup, and what is on the screen.
  std::optional<bool> takesMarkup_;
  std::map<std::string, uint> shown_;
};

}  // namespace zephyl::linux_host
