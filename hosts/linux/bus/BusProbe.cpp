#include "hosts/linux/bus/BusProbe.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstddef>
#include <cstring>
#include <optional>
#include <string_view>
#include <vector>

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace zephyl::linux_host {

namespace {

using Clock = std::chrono::steady_clock;

std::vector<std::string_view> split(std::string_view text, char separator) {
  std::vector<std::string_view> parts;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find(separator), text.size());
    parts.push_back(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return parts;
}

// A value of an address, whose bytes may be written as %XX.
std::string unescaped(std::string_view value) {
  std::string text;
  while (!value.empty()) {
    unsigned char byte = 0;
    if (value.front() == '%' && value.size() >= 3 &&
        std::from_chars(value.data() + 1, value.data() + 3, byte, 16).ptr == value.data() + 3) {
      text.push_back(static_cast<char>(byte));
      value.remove_prefix(3);
    } else {
      text.push_back(value.front());
      value.remove_prefix(1);
    }
  }
  return text;
}

// The name of a socket as the system takes it, with a zero before an abstract one; nothing for
// another kind of address.
std::optional<std::string> socketNameOf(std::string_view address) {
  constexpr std::string_view kKind = "unix:";
  if (!address.starts_with(kKind)) {
    return std::nullopt;
  }
  for (const std::string_view pair : split(address.substr(kKind.size()), ',')) {
    const std::size_t equals = std::min(pair.find('='), pair.size());
    const std::string_view key = pair.substr(0, equals);
    if (key == "path" || key == "abstract") {
      const std::string name = unescaped(pair.substr(std::min(equals + 1, pair.size())));
      return key == "path" ? name : std::string(1, '\0') + name;
    }
  }
  return std::nullopt;
}

bool waitFor(int socket, short events, Clock::time_point end) {
  while (true) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now()).count();
    pollfd entry{socket, events, 0};
    const int ready = ::poll(&entry, 1, static_cast<int>(std::max<decltype(left)>(left, 0)));
    if (ready >= 0 || errno != EINTR) {
      return ready > 0;
    }
  }
}

// What every bus answers: which ways to introduce oneself it takes.
bool answersAt(int socket, const std::string& name, Clock::time_point end) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  if (name.size() >= sizeof address.sun_path) {
    return false;
  }
  std::memcpy(address.sun_path, name.data(), name.size());
  const auto size = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + name.size());
  if (::connect(socket, reinterpret_cast<const sockaddr*>(&address), size) != 0) {
    return false;
  }
  constexpr std::string_view kQuestion("\0AUTH\r\n", 7);
  if (::send(socket, kQuestion.data(), kQuestion.size(), MSG_NOSIGNAL) !=
      static_cast<ssize_t>(kQuestion.size())) {
    return false;
  }
  char first = '\0';
  return waitFor(socket, POLLIN, end) && ::recv(socket, &first, 1, 0) == 1;
}

bool answersAt(const std::string& name, Clock::time_point end) {
  const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
  if (socket < 0) {
    return false;
  }
  const bool answers = answersAt(socket, name, end);
  ::close(socket);
  return answers;
}

}  // namespace

bool busAnswers(const std::string& address, std::chrono::milliseconds limit) {
  const Clock::time_point end = Clock::now() + limit;
  const std::vector<std::string_view> parts = split(address, ';');
  return std::any_of(parts.begin(), parts.end(), [&](std::string_view part) {
    const std::optional<std::string> name = socketNameOf(part);
    return !name || answersAt(*name, end);
  });
}

}  // namespace zephyl::linux_host
