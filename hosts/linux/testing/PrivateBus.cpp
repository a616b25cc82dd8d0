#include "hosts/linux/testing/PrivateBus.h"

#include <chrono>
#include <csignal>
#include <cstring>
#include <fstream>
#include <stdexcept>
#include <thread>
#include <vector>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace zephyl::test {

namespace {

// The limits are those of a session bus as it is installed.
std::string configuration(PrivateBus::Kind kind, const std::string& address,
                          const std::string& serviceFolder) {
  std::string text =
      "<!DOCTYPE busconfig PUBLIC \"-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN\"\n"
      " \"http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd\">\n<busconfig><type>";
  text.append(kind == PrivateBus::Kind::kSession ? "session" : "system");
  text.append("</type><keep_umask/><listen>").append(address).append("</listen>");
  if (!serviceFolder.empty()) {
    text.append("<servicedir>").append(serviceFolder).append("</servicedir>");
  }
  text.append(
      "<policy context=\"default\"><allow send_destination=\"*\" eavesdrop=\"true\"/>"
      "<allow eavesdrop=\"true\"/><allow own=\"*\"/></policy>"
      "<limit name=\"max_incoming_bytes\">1000000000</limit>"
      "<limit name=\"max_outgoing_bytes\">1000000000</limit>"
      "<limit name=\"max_message_size\">1000000000</limit></busconfig>\n");
  return text;
}

bool answers(const std::string& socketPath) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  std::strncpy(address.sun_path, socketPath.c_str(), sizeof(address.sun_path) - 1);
  const int descriptor = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  const bool connected =
      connect(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) == 0;
  close(descriptor);
  return connected;
}

}  // namespace

PrivateBus::PrivateBus(Kind kind, const std::string& serviceFolder) {
  const std::string socketPath = folder_.path() + "/bus";
  const std::string file = folder_.path() + "/bus.conf";
  address_ = "unix:path=" + socketPath;
  std::ofstream(file) << configuration(kind, address_, serviceFolder);
  daemon_.emplace(std::vector<std::string>{"dbus-daemon", "--nofork", "--config-file=" + file});
  constexpr int kTries = 10000;
  for (int i = 0; !answers(socketPath); ++i) {
    if (i == kTries || daemon_->wait(std::chrono::milliseconds(1))) {
      throw std::runtime_error("dbus-daemon does not answer at " + address_);
    }
  }
}

void PrivateBus::freeze() {
  daemon_->signal(SIGSTOP);
}

void PrivateBus::thaw() {
  daemon_->signal(SIGCONT);
}

}  // namespace zephyl::test
