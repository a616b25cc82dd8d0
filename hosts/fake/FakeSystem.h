// The small answers of the device: time, version, process, log, vibration.

#pragma once

#include <atomic>
#include <functional>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

#include "platform/audiotoolbox/AudioServices.h"
#include "platform/foundation/Clock.h"
#include "platform/foundation/ProcessInfo.h"
#include "platform/foundation/SystemLog.h"
#include "platform/uikit/UIDevice.h"

namespace zephyl::fake {

// Stands still until a test moves it.
class FakeClock : public Clock {
 public:
  double now() override { return now_; }
  void set(double now) { now_ = now; }

 private:
  std::atomic<double> now_ = 1'600'000'000.0;
};

class FakeUIDevice : public UIDevice {
 public:
  std::string systemVersion() override {
    const std::lock_guard lock(mutex_);
    return version_;
  }
  UIUserInterfaceIdiom userInterfaceIdiom() override { return idiom_; }
  void setSystemVersion(std::string version) {
    const std::lock_guard lock(mutex_);
    version_ = std::move(version);
  }
  // A phone at first.
  void setUserInterfaceIdiom(UIUserInterfaceIdiom idiom) { idiom_ = idiom; }

 private:
  std::mutex mutex_;
  std::string version_ = "11.4";
  std::atomic<UIUserInterfaceIdiom> idiom_ = UIUserInterfaceIdiom::kPhone;
};

class FakeProcessInfo : public ProcessInfo {
 public:
  std::string bundleIdentifier() override {
    const std::lock_guard lock(mutex_);
    return identifier_;
  }
  std::string bundlePath() override { return "/Applications/MobileSMS.app"; }
  std::vector<std::string> preferredLanguages() override {
    const std::lock_guard lock(mutex_);
    return languages_;
  }

  void setBundleIdentifier(std::string identifier) {
    const std::lock_guard lock(mutex_);
    identifier_ = std::move(identifier);
  }
  void setPreferredLanguages(std::vector<std::string> languages) {
    const std::lock_guard lock(mutex_);
    languages_ = std::move(languages);
  }

 private:
  std::mutex mutex_;
  std::string identifier_ = "com.apple.MobileSMS";
  std::vector<std::string> languages_ = {"en"};
};

class FakeSystemLog : public SystemLog {
 public:
  void log(const std::string& line) override {
    const std::lock_guard lock(mutex_);
    lines_.push_back(line);
  }
  [[nodiscard]] std::vector<std::string> lines() {
    const std::lock_guard lock(mutex_);
    return lines_;
  }

 private:
  std::mutex mutex_;
  std::vector<std::string> lines_;
};

class FakeAudioServices : public AudioServices {
 public:
  void playSystemSoundWithVibration(std::uint32_t sound, const Dictionary& vibration) override {
    std::function<void()> whilePlaying;
    {
      const std::lock_guard lock(mutex_);
      played_.emplace_back(sound, vibration);
      whilePlaying = whilePlaying_;
    }
    if (whilePlaying) {
      whilePlaying();
    }
  }
  [[nodiscard]] std::vector<std::pair<std::uint32_t, Dictionary>> played() {
    const std::lock_guard lock(mutex_);
    return played_;
  }
  // Runs inside each call, on its thread.
  void setWhilePlaying(std::function<void()> whilePlaying) {
    const std::lock_guard lock(mutex_);
    whilePlaying_ = std::move(whilePlaying);
  }

 private:
  std::mutex mutex_;
  std::vector<std::pair<std::uint32_t, Dictionary>> played_;
  std::function<void()> whilePlaying_;
};

}  // namespace zephyl::fake
