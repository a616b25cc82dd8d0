// Where Qt delivers the signals that stand for notifications. Lives on the main thread.

#pragma once

#include <QDBusMessage>
#include <QObject>
#include <QString>
#include <functional>
#include <string>
#include <utility>

namespace zephyl::linux_host {

class PostedSignals : public QObject {
  Q_OBJECT

 public:
  // `heard` runs on the main thread for each that another connection has sent.
  explicit PostedSignals(std::function<void(const std::string& name)> heard)
      : heard_(std::move(heard)) {}

  // Of this process's own connection. Before any signal can come.
  void setOwnName(const QString& uniqueName) { ownName_ = uniqueName; }

 public slots:
  void posted(const QDBusMessage& message);

 private:
  const std::function<void(const std::string& name)> heard_;
  QString ownName_;
};

}  // namespace zephyl::linux_host
