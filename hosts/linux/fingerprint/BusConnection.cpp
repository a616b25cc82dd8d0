#include "hosts/linux/fingerprint/BusConnection.h"

#include <QByteArray>
#include <array>
#include <atomic>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <vector>

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace zephyl::linux_host {

namespace {

// The name of the socket as the kernel wants it; nothing when the address is of another kind.
std::optional<std::string> socketNameIn(const std::string& address) {
  for (const auto& [prefix, first] :
       {std::pair<std::string, std::string>{"unix:path=", ""}, {"unix:abstract=", {'\0'}}}) {
    if (address.starts_with(prefix)) {
      const std::string escaped = address.substr(prefix.size(), address.find(',') - prefix.size());
      return first +
             QByteArray::fromPercentEncoding(QByteArray::fromStdString(escaped)).toStdString();
    }
  }
  return std::nullopt;
}

class Socket {
 public:
  Socket() : descriptor_(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0)) {}
  ~Socket() {
    if (descriptor_ >= 0) {
      close(descriptor_);
    }
  }
  Socket(const Socket&) = delete;
  Socket& operator=(const Socket&) = delete;

  // One that hangs refuses too, once its queue is full.
  [[nodiscard]] bool connectTo(const std::string& name) const {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (name.empty() || name.size() >= sizeof(address.sun_path)) {
      return false;
    }
    std::memcpy(address.sun_path, name.data(), name.size());
    const bool isAbstract = name.front() == '\0';
    const std::size_t length = offsetof(sockaddr_un, sun_path) + name.size() + (isAbstract ? 0 : 1);
    return connect(descriptor_, reinterpret_cast<const sockaddr*>(&address),
                   static_cast<socklen_t>(length)) == 0;
  }

  [[nodiscard]] bool send(const std::string& bytes) const {
    return ::send(descriptor_, bytes.data(), bytes.size(), MSG_NOSIGNAL) ==
           static_cast<ssize_t>(bytes.size());
  }

  [[nodiscard]] bool hears(std::chrono::milliseconds limit) const {
    pollfd waiting{descriptor_, POLLIN, 0};
    std::array<char, 1> byte{};
    return poll(&waiting, 1, static_cast<int>(limit.count())) == 1 &&
           recv(descriptor_, byte.data(), byte.size(), 0) == 1;
  }

 private:
  int descriptor_;
};

bool oneBusAnswers(const std::string& address, std::chrono::milliseconds limit) {
  const auto name = socketNameIn(address);
  if (!name) {
    return !address.empty();
  }
  // The first words of every client. Yes or no: a bus that lives says something.
  const std::string user = QByteArray::number(getuid()).toHex().toStdString();
  const Socket socket;
  return socket.connectTo(*name) &&
         socket.send(std::string(1, '\0').append("AUTH EXTERNAL ").append(user).append("\r\n")) &&
         socket.hears(limit);
}

QString freshName() {
  static std::atomic<int> made = 0;
  return QStringLiteral("zephyls %1").arg(++made);
}

QDBusConnection connectionTo(const std::string& address, const QString& name,
                             std::chrono::milliseconds limit) {
  return busAnswers(address, limit)
             ? QDBusConnection::connectToBus(QString::fromStdString(address), name)
             : QDBusConnection(QString());
}

}  // namespace

std::string systemBusAddress() {
  const char* named = std::getenv("DBUS_SYSTEM_BUS_ADDRESS");
  return named == nullptr || *named == '\0' ? "unix:path=/run/dbus/system_bus_socket" : named;
}

bool busAnswers(const std::string& address, std::chrono::milliseconds limit) {
  std::size_t start = 0;
  while (start < address.size()) {
    const std::size_t end = std::min(address.find(';', start), address.size());
    if (oneBusAnswers(address.substr(start, end - start), limit)) {
      return true;
    }
    start = end + 1;
  }
  return false;
}

BusConnection::BusConnection(const std::string& address, std::chrono::milliseconds limit)
    : name_(freshName()), bus_(connectionTo(address, name_, limit)) {}

// Without a bus the library for it stays untouched: its first use starts a thread.
BusConnection::~BusConnection() {
  if (!bus_.name().isEmpty()) {
    bus_ = QDBusConnection(QString());
    QDBusConnection::disconnectFromBus(name_);
  }
}

}  // namespace zephyl::linux_host
