#include "hosts/linux/fingerprint/FprintDaemon_testing.h"

#include <QDBusArgument>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QMap>
#include <QVariantMap>
#include <array>
#include <chrono>
#include <cstring>
#include <stdexcept>
#include <thread>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace zephyl::test {

// What the authority says of an action.
struct Authorization {
  bool isAuthorized = true;
  bool isChallenge = false;
  QMap<QString, QString> details;
};

QDBusArgument& operator<<(QDBusArgument& argument, const Authorization& authorization) {
  argument.beginStructure();
  argument << authorization.isAuthorized << authorization.isChallenge << authorization.details;
  argument.endStructure();
  return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, Authorization& authorization) {
  argument.beginStructure();
  argument >> authorization.isAuthorized >> authorization.isChallenge >> authorization.details;
  argument.endStructure();
  return argument;
}

namespace {

constexpr int kTries = 1000;

void pause() {
  constexpr auto kPause = std::chrono::milliseconds(5);
  std::this_thread::sleep_for(kPause);
}

void allow(const QDBusMessage& call, const QDBusConnection& bus) {
  if (call.member() == "CheckAuthorization") {
    qDBusRegisterMetaType<QMap<QString, QString>>();
    qDBusRegisterMetaType<Authorization>();
    bus.send(call.createReply(QVariant::fromValue(Authorization())));
  } else if (call.member() == "GetAll") {
    bus.send(call.createReply(QVariantMap()));
  } else {
    bus.send(call.createReply());
  }
}

// Whether the socket took the bytes and answered by closing.
bool tell(const std::string& socketPath, const std::string& bytes) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  std::strncpy(address.sun_path, socketPath.c_str(), sizeof(address.sun_path) - 1);
  const int descriptor = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  const timeval limit{5, 0};
  setsockopt(descriptor, SOL_SOCKET, SO_RCVTIMEO, &limit, sizeof(limit));
  bool told = false;
  if (connect(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) == 0) {
    told = send(descriptor, bytes.data(), bytes.size(), MSG_NOSIGNAL) ==
           static_cast<ssize_t>(bytes.size());
    shutdown(descriptor, SHUT_WR);
    std::array<char, 64> answer{};
    while (recv(descriptor, answer.data(), answer.size(), 0) > 0) {
    }
  }
  close(descriptor);
  return told;
}

}  // namespace

FprintDaemon::FprintDaemon()
    : authority_(bus_.address(), "org.freedesktop.PolicyKit1", "/org/freedesktop/PolicyKit1",
                 allow),
      client_(bus_.address(), std::chrono::seconds(10)) {
  ChildOptions options;
  options.environment = {{"DBUS_SYSTEM_BUS_ADDRESS", bus_.address()},
                         {"FP_VIRTUAL_DEVICE", folder_.path() + "/reader"},
                         {"FP_DRIVERS_ALLOWLIST", "virtual_device"},
                         {"FP_DRIVERS_WHITELIST", "virtual_device"},
                         {"STATE_DIRECTORY", folder_.path() + "/state"}};
  options.outputFile = options.errorFile = folder_.path() + "/log";
  process_.emplace(std::vector<std::string>{kFprintDaemon, "-t"}, options);
  for (int i = 0; i < kTries && readerPath_.empty(); ++i) {
    const QDBusMessage found = client_.bus().call(linux_host::defaultReaderCall());
    if (const auto reader = linux_host::readerIn(found)) {
      readerPath_ = reader->path.toStdString();
    } else {
      pause();
    }
  }
  if (readerPath_.empty()) {
    throw std::runtime_error("no reader of " + std::string(kFprintDaemon) + ": " +
                             contentOf(folder_.path() + "/log"));
  }
}

QDBusMessage FprintDaemon::call(const char* method, const char* text) {
  const linux_host::FprintReader reader{"net.reactivated.Fprint",
                                        QString::fromStdString(readerPath_)};
  return client_.bus().call(text == nullptr ? linux_host::readerCall(reader, method)
                                            : linux_host::readerCall(reader, method, text));
}

bool FprintDaemon::tellReader(const std::string& command) const {
  for (int i = 0; i < kTries; ++i) {
    if (tell(folder_.path() + "/reader", command)) {
      return true;
    }
    pause();
  }
  return false;
}

bool FprintDaemon::claim() {
  return call("Claim", "").type() == QDBusMessage::ReplyMessage;
}

void FprintDaemon::release() {
  call("Release");
}

bool FprintDaemon::enrol(const std::string& finger) {
  if (!claim()) {
    return false;
  }
  call("EnrollStart", "right-index-finger");
  bool enrolled = false;
  for (int i = 0; i < 50 && !enrolled; ++i) {
    if (!tellReader("SCAN " + finger)) {
      break;
    }
    pause();
    enrolled = !linux_host::whyNoFingers(call("ListEnrolledFingers", ""));
  }
  call("EnrollStop");
  release();
  return enrolled;
}

void FprintDaemon::forgetFingers() {
  if (claim()) {
    call("DeleteEnrolledFingers2");
    release();
  }
}

}  // namespace zephyl::test

Q_DECLARE_METATYPE(zephyl::test::Authorization)
