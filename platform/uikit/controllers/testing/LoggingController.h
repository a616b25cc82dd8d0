// For tests: a screen that writes down what it is told.

#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/uikit/UIView.h"
#include "platform/uikit/controllers/UIViewController.h"

namespace zephyl::test {

using Log = std::vector<std::string>;

class LoggingController : public UIViewController {
 public:
  LoggingController(std::string name, Log& log) : name_(std::move(name)), log_(log) {}

  void viewDidLoad() override { write("load"); }
  void viewWillAppear(bool animated) override { write("willAppear", animated); }
  void viewDidAppear(bool animated) override { write("didAppear", animated); }
  void viewWillDisappear(bool animated) override { write("willDisappear", animated); }
  void viewDidDisappear(bool animated) override { write("didDisappear", animated); }
  void willMoveToParentViewController(UIViewController* parent) override {
    write(parent == nullptr ? "willLeave" : "willJoin");
  }
  void didMoveToParentViewController(UIViewController* parent) override {
    write(parent == nullptr ? "didLeave" : "didJoin");
  }

 private:
  void write(const std::string& what, bool animated = false) {
    log_.push_back(name_ + " " + what + (animated ? "*" : ""));
  }

  std::string name_;
  Log& log_;
};

[[nodiscard]] inline std::shared_ptr<LoggingController> screen(const std::string& name, Log& log) {
  return std::make_shared<LoggingController>(name, log);
}

// What was written since the last call.
[[nodiscard]] inline Log taken(Log& log) {
  return std::exchange(log, {});
}

}  // namespace zephyl::test
