#include "hosts/linux/notices/NoticeSender.h"

#include <QDBusPendingCall>
#include <QDBusPendingCallWatcher>
#include <QDBusServiceWatcher>
#include <QStringList>
#include <QVariantMap>
#include <algorithm>
#include <atomic>
#include <chrono>
#include <utility>

#include "hosts/linux/bus/BusProbe.h"
#include "hosts/linux/notices/NoticeText.h"

namespace zephyl::linux_host {
namespace {

constexpr char kService[] = "org.freedesktop.Notifications";
constexpr char kPath[] = "/org/freedesktop/Notifications";
constexpr int kMillisecondsForAnAnswer = 10'000;
constexpr auto kLongestProbe = std::chrono::seconds(1);
constexpr std::size_t kMostShown = 1000;

// A connection of its own, which nobody else closes.
QString freshConnectionName() {
  static std::atomic<int> count = 0;
  return QString("zephyls notices %1").arg(++count);
}

}  // namespace

DesktopNotices::Sender::Sender(Options options) : options_(std::move(options)) {}

DesktopNotices::Sender::~Sender() {
  disconnect();
  // The last to come were put there by another thread.
  const std::lock_guard lock(mutex_);
  waiting_.clear();
}

void DesktopNotices::Sender::add(DesktopNotice notice) {
  const std::lock_guard lock(mutex_);
  const auto same =
      std::find_if(waiting_.begin(), waiting_.end(),
                   [&](const DesktopNotice& waiting) { return waiting.about == notice.about; });
  if (same != waiting_.end()) {
    *same = std::move(notice);
    return;
  }
  if (waiting_.size() == kMostWaiting) {
    waiting_.pop_front();
  }
  waiting_.push_back(std::move(notice));
}

std::optional<DesktopNotice> DesktopNotices::Sender::takeNext() {
  const std::lock_guard lock(mutex_);
  if (waiting_.empty()) {
    return std::nullopt;
  }
  DesktopNotice next = std::move(waiting_.front());
  waiting_.pop_front();
  return next;
}

void DesktopNotices::Sender::sendNext() {
  if (isBusy_) {
    return;
  }
  const auto notice = takeNext();
  if (!notice) {
    return;
  }
  if (!connect()) {
    // Nobody would see them later, either.
    const std::lock_guard lock(mutex_);
    waiting_.clear();
    return;
  }
  if (takesMarkup_) {
    notify(*notice);
  } else {
    askForMarkup(*notice);
  }
}

bool DesktopNotices::Sender::connect() {
  if (bus_ && bus_->isConnected()) {
    return true;
  }
  disconnect();
  if (options_.busAddress.empty()) {
    fail("there is no session bus");
    return false;
  }
  // Whoever ends this program waits for what is done here.
  if (!busAnswers(options_.busAddress, kLongestProbe)) {
    fail("the session bus does not answer");
    return false;
  }
  connectionName_ = freshConnectionName();
  bus_ =
      QDBusConnection::connectToBus(QString::fromStdString(options_.busAddress), connectionName_);
  if (!bus_->isConnected()) {
    fail("the session bus does not answer");
    return false;
  }
  serviceWatcher_ = std::make_unique<QDBusServiceWatcher>(kService, *bus_);
  QObject::connect(serviceWatcher_.get(), &QDBusServiceWatcher::serviceOwnerChanged, this,
                   [this] { forgetService(); });
  return true;
}

void DesktopNotices::Sender::disconnect() {
  serviceWatcher_.reset();
  bus_.reset();
  if (!connectionName_.isEmpty()) {
    QDBusConnection::disconnectFromBus(connectionName_);
  }
  forgetService();
}

// Another service may give the same numbers to notices of other programs.
void DesktopNotices::Sender::forgetService() {
  takesMarkup_.reset();
  shown_.clear();
}

// Once, until a notice is shown again.
void DesktopNotices::Sender::fail(const std::string& reason) {
  if (!std::exchange(hasFailed_, true) && options_.log) {
    options_.log("no notices of new messages on the desktop: " + reason);
  }
}

void DesktopNotices::Sender::call(const QString& method, const QVariantList& arguments,
                                  Answered answered) {
  isBusy_ = true;
  QDBusMessage message = QDBusMessage::createMethodCall(kService, kPath, kService, method);
  message.setArguments(arguments);
  auto* watcher =
      new QDBusPendingCallWatcher(bus_->asyncCall(message, kMillisecondsForAnAnswer), this);
  QObject::connect(watcher, &QDBusPendingCallWatcher::finished, this,
                   [this, watcher, answered = std::move(answered)] {
                     isBusy_ = false;
                     watcher->deleteLater();
                     answered(watcher->reply());
                   });
}

// A service that does not say is spared nothing by escaping too much.
void DesktopNotices::Sender::askForMarkup(const DesktopNotice& notice) {
  call("GetCapabilities", {}, [this, notice](const QDBusMessage& reply) {
    const bool isAnswer = reply.type() == QDBusMessage::ReplyMessage;
    takesMarkup_ = !isAnswer || reply.arguments().value(0).toStringList().contains("body-markup");
    notify(notice);
  });
}

void DesktopNotices::Sender::notify(const DesktopNotice& notice) {
  const auto earlier = shown_.find(notice.about);
  QVariantMap hints{{"category", "im.received"},
                    {"urgency", QVariant::fromValue(static_cast<uchar>(1))}};
  if (!options_.desktopEntry.empty()) {
    hints.insert("desktop-entry", QString::fromStdString(options_.desktopEntry));
  }
  constexpr int kTimeOfTheService = -1;
  const QVariantList arguments{QString::fromStdString(options_.programName),
                               earlier == shown_.end() ? 0U : earlier->second,
                               QString(),
                               noticeTitle(notice.title),
                               noticeBody(notice.body, takesMarkup_.value_or(true)),
                               QStringList(),
                               hints,
                               kTimeOfTheService};
  call("Notify", arguments, [this, about = notice.about](const QDBusMessage& reply) {
    if (reply.type() == QDBusMessage::ReplyMessage) {
      hasFailed_ = false;
      if (shown_.size() >= kMostShown) {
        shown_.clear();
      }
      shown_[about] = reply.arguments().value(0).toUInt();
    } else {
      // The name alone: a service may repeat in its message what it was given.
      fail(reply.errorName().toStdString());
      takesMarkup_.reset();
    }
    sendNext();
  });
}

}  // namespace zephyl::linux_host
