// A message center whose answers a test scripts, with a log of what was sent.

#pragma once

#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/appsupport/CPDistributedMessagingCenter.h"

namespace zephyl::fake {

class FakeMessagingCenter : public CPDistributedMessagingCenter {
 public:
  using Answer = std::function<std::optional<Dictionary>(const Dictionary* userInfo)>;

  struct Sent {
    std::string center;
    std::string name;
    std::optional<Dictionary> userInfo;
  };

  std::optional<Dictionary> sendMessageAndReceiveReplyName(const std::string& center,
                                                           const std::string& name,
                                                           const Dictionary* userInfo) override {
    Answer answer;
    {
      const std::lock_guard lock(mutex_);
      sent_.push_back(
          {center, name, userInfo == nullptr ? std::nullopt : std::optional(*userInfo)});
      if (const auto found = answers_.find(name); found != answers_.end()) {
        answer = found->second;
      }
    }
    return answer ? answer(userInfo) : std::nullopt;
  }

  // A message without an answer gets no reply.
  void setAnswer(const std::string& name, Answer answer) {
    const std::lock_guard lock(mutex_);
    answers_[name] = std::move(answer);
  }

  [[nodiscard]] std::vector<Sent> sent() {
    const std::lock_guard lock(mutex_);
    return sent_;
  }

 private:
  std::mutex mutex_;
  std::map<std::string, Answer> answers_;
  std::vector<Sent> sent_;
};

}  // namespace zephyl::fake
