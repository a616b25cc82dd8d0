// A message bus with nothing on it but what QtDBus needs: bytes go to a thread of its own, and how
// many came is the answer.

#pragma once

#include <QByteArray>
#include <cstddef>
#include <string>
#include <thread>

class QEventLoop;

namespace zephyl::bench {

class BareBus {
 public:
  explicit BareBus(const std::string& address);
  ~BareBus();
  BareBus(const BareBus&) = delete;
  BareBus& operator=(const BareBus&) = delete;

  // Returns when the answer is there. Throws when it is not the right one.
  void send(const QByteArray& bytes) const;

 private:
  std::string address_;
  QEventLoop* loop_ = nullptr;  // of the thread
  std::thread thread_;
};

}  // namespace zephyl::bench
