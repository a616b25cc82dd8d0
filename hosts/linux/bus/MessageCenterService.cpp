#include "hosts/linux/bus/MessageCenterService.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QDBusError>
#include <QString>
#include <exception>
#include <utility>

#include <unistd.h>

#include "platform/foundation/SystemLog.h"

#include "hosts/linux/bus/SessionBus.h"

namespace zephyl::linux_host {

namespace {

constexpr auto kLongestWaitForBus = std::chrono::seconds(5);

// What strangers send goes into the log only in part.
std::string forLog(const QString& text) {
  constexpr qsizetype kMost = 100;
  return text.left(kMost).toStdString();
}

QDBusMessage error(const QDBusMessage& request, QDBusError::ErrorType type, const char* text) {
  return request.createErrorReply(type, text);
}

}  // namespace

MessageCenterService::MessageCenterService(std::shared_ptr<SessionBus> bus,
                                           MessageCenterAddress address, SystemLog& log,
                                           Options options)
    : bus_(std::move(bus)),
      address_(std::move(address)),
      log_(log),
      options_(std::move(options)),
      wire_(log, options_.maximumBytes) {
  bus_->connection().registerVirtualObject(QString::fromStdString(address_.path), this);
}

MessageCenterService::~MessageCenterService() {
  bus_->connection().unregisterObject(QString::fromStdString(address_.path));
}

void MessageCenterService::setHandler(const std::string& center, const std::string& name,
                                      MessageHandler handler) {
  if (center != address_.center) {
    log_.log("Messages to the center " + center + " are not served here");
  } else if (handler) {
    handlers_[name] = std::move(handler);
  } else {
    handlers_.erase(name);
  }
}

MessageCenterService::Claim MessageCenterService::claimName() {
  constexpr uint kDoNotQueue = 4;
  constexpr uint kIsOwner = 1;
  constexpr uint kWasOwner = 4;
  const QDBusMessage answer = bus_->callBus(
      "RequestName", {QString::fromStdString(address_.service), kDoNotQueue}, kLongestWaitForBus);
  if (answer.type() != QDBusMessage::ReplyMessage || answer.arguments().isEmpty()) {
    return Claim::kFailed;
  }
  const uint result = answer.arguments().at(0).toUInt();
  return result == kIsOwner || result == kWasOwner ? Claim::kOwned : Claim::kTaken;
}

void MessageCenterService::release() {
  // The bus sends its answer after all that it has sent before, so what was sent to the name lies
  // in this object's queue when the answer is there.
  static_cast<void>(
      bus_->callBus("ReleaseName", {QString::fromStdString(address_.service)}, kLongestWaitForBus));
  QCoreApplication::sendPostedEvents(this);
  bus_->flush(kLongestWaitForBus);
}

QString MessageCenterService::introspect(const QString& /*path*/) const {
  return QString(
             "<interface name=\"%1\">"
             "<method name=\"%2\"><arg name=\"name\" type=\"s\" direction=\"in\"/>"
             "<arg name=\"userInfo\" type=\"ay\" direction=\"in\"/>"
             "<arg name=\"hasReply\" type=\"b\" direction=\"out\"/>"
             "<arg name=\"reply\" type=\"ay\" direction=\"out\"/></method>"
             "<method name=\"%3\"><arg name=\"root\" type=\"s\" direction=\"out\"/></method>"
             "</interface>")
      .arg(kMessageCenterInterface, kSendMethod, kDeviceMethod);
}

bool MessageCenterService::handleMessage(const QDBusMessage& message,
                                         const QDBusConnection& connection) {
  const bool isOurs =
      message.interface().isEmpty() || message.interface() == kMessageCenterInterface;
  if (!isOurs || (message.member() != kSendMethod && message.member() != kDeviceMethod)) {
    return false;
  }
  connection.send(answerTo(message));
  if (options_.afterRequest) {
    options_.afterRequest();
  }
  return true;
}

QDBusMessage MessageCenterService::answerTo(const QDBusMessage& request) {
  if (!isOfThisUser(request)) {
    log_.log("A request was refused: it does not come from this user");
    return error(request, QDBusError::AccessDenied, "for the user of the groups only");
  }
  if (request.member() == kDeviceMethod) {
    return request.createReply(QString::fromStdString(options_.device));
  }
  return answerToSend(request);
}

QDBusMessage MessageCenterService::answerToSend(const QDBusMessage& request) {
  if (request.signature() != kSendSignature) {
    log_.log("A request was refused: its types are \"" + forLog(request.signature()) + "\"");
    return error(request, QDBusError::InvalidArgs, "takes a name and a property list");
  }
  const std::string name = forLog(request.arguments().at(0).toString());
  const QByteArray bytes = request.arguments().at(1).toByteArray();
  std::optional<Dictionary> userInfo;
  if (!bytes.isEmpty()) {
    userInfo = wire_.decoded(Data(bytes.begin(), bytes.end()), "The request " + name);
    if (!userInfo) {
      return error(request, QDBusError::InvalidArgs, "no dictionary in a property list");
    }
  }
  const std::optional<Data> reply = replyTo(name, userInfo ? &*userInfo : nullptr);
  QByteArray answer;
  if (reply) {
    answer = QByteArray(reinterpret_cast<const char*>(reply->data()),
                        static_cast<qsizetype>(reply->size()));
  }
  return request.createReply(QVariantList{reply.has_value(), answer});
}

std::optional<Data> MessageCenterService::replyTo(const std::string& name,
                                                  const Dictionary* userInfo) {
  const auto handler = handlers_.find(name);
  if (handler == handlers_.end()) {
    log_.log("The request " + name + " was refused: nothing is served by that name");
    return std::nullopt;
  }
  try {
    const std::optional<Dictionary> reply = handler->second(userInfo);
    return reply ? wire_.encoded(*reply, "The reply to " + name) : std::nullopt;
  } catch (const std::exception& exception) {
    log_.log("The request " + name + " failed: " + exception.what());
    return std::nullopt;
  }
}

bool MessageCenterService::isOfThisUser(const QDBusMessage& message) {
  const std::string connection = message.service().toStdString();
  auto known = users_.find(connection);
  if (known == users_.end()) {
    const auto user = options_.userOf ? options_.userOf(connection) : askForUser(connection);
    if (!user) {
      return false;
    }
    constexpr std::size_t kMostKept = 1000;
    if (users_.size() >= kMostKept) {
      users_.clear();
    }
    known = users_.emplace(connection, *user).first;
  }
  return known->second == ::geteuid();
}

std::optional<std::uint32_t> MessageCenterService::askForUser(const std::string& connection) {
  const QDBusMessage answer = bus_->callBus(
      "GetConnectionUnixUser", {QString::fromStdString(connection)}, kLongestWaitForBus);
  if (answer.type() != QDBusMessage::ReplyMessage || answer.signature() != "u") {
    return std::nullopt;
  }
  return answer.arguments().at(0).toUInt();
}

}  // namespace zephyl::linux_host
