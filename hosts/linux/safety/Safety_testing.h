// A file with safety copies in a folder of the test's own. Content is good when it begins with
// "good"; so is any mixture of two that are.

#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "hosts/contract/TemporaryFolder.h"
#include "hosts/fake/FakeSystem.h"
#include "hosts/linux/safety/SafetyCopies.h"

namespace zephyl::linux_host {

class SafetyFixture : public ::testing::Test {
 protected:
  [[nodiscard]] SafetyOptions options() const {
    SafetyOptions options;
    options.path = "/file";
    options.folder = top_.path() + "/state/copies";
    options.notes = top_.path() + "/safety";
    options.whyUnreadable = [](const std::string& contents) {
      return contents.starts_with("good") ? std::nullopt
                                          : std::optional<std::string>("it is not good");
    };
    options.describeChange = [](const std::string& oldContents, const std::string& newContents) {
      return "before " + oldContents + " became " + newContents;
    };
    options.longestWait = std::chrono::milliseconds(30);
    return options;
  }

  // As another program or a later start finds the file.
  void restart() { copies_ = std::make_unique<SafetyCopies>(options(), log_, clock_); }

  [[nodiscard]] FileFailure write(const std::string& contents) {
    return copies_->write(real(), contents, [](const FileReading&) { return std::nullopt; });
  }
  [[nodiscard]] std::optional<std::string> read() { return copies_->read(real()).contents; }

  [[nodiscard]] std::string real() const { return top_.path() + "/file"; }
  [[nodiscard]] CopyFolder folder() const { return CopyFolder(options().folder); }
  [[nodiscard]] bool hasJournal() const { return top_.has("/safety/writing"); }

  // The newest first.
  [[nodiscard]] std::vector<std::string> copiedContents() const {
    std::vector<std::string> contents;
    for (const SafetyCopy& copy : folder().copies()) {
      contents.push_back(folder().contentsOf(copy.name).contents.value_or("none"));
    }
    return contents;
  }
  // What was put aside beside the file.
  [[nodiscard]] std::vector<std::string> asideContents() const {
    std::vector<std::string> contents;
    for (const std::string& name : top_.namesIn("")) {
      if (name.starts_with("file.unreadable-")) {
        contents.push_back(top_.read("/" + name));
      }
    }
    return contents;
  }

  // As a process leaves things that ends between the note and the last byte: the file holds `torn`.
  void leaveInterrupted(const std::string& before, const std::string& after,
                        const std::optional<std::string>& torn) {
    EXPECT_FALSE(makeFolders(options().folder));
    const CopyFolder::Kept kept = folder().keep(before, "", clock_.now());
    EXPECT_FALSE(kept.failure);
    leaveNote({ContentMark::of(before), folder().contentPath(kept.name), after}, torn);
  }
  void leaveNote(const WriteJournal& journal, const std::optional<std::string>& torn) {
    EXPECT_FALSE(makeFolders(options().notes));
    top_.put("/safety/writing", textOf(journal));
    std::filesystem::remove(real());
    if (torn) {
      top_.put("/file", *torn);
    }
  }

  contract::TemporaryFolder top_;
  fake::FakeSystemLog log_;
  fake::FakeClock clock_;
  std::unique_ptr<SafetyCopies> copies_ = std::make_unique<SafetyCopies>(options(), log_, clock_);
};

}  // namespace zephyl::linux_host
