#include "apps/zephyls/Consent.h"

#include <chrono>
#include <iostream>
#include <memory>
#include <mutex>
#include <optional>

#include <unistd.h>

#include "platform/Host.h"
#include "platform/foundation/Dispatch.h"

#include "apps/common/CommandError.h"
#include "apps/zephyls/Interruption.h"
#include "apps/zephyls/Output.h"
#include "apps/zephyls/Session.h"
#include "services/GroupProtection.h"
#include "services/ZPUtils.h"

namespace zephyl::app {

namespace {

// As long as a person may look for the reader; the check itself ends sooner.
constexpr auto kLongestCheck = std::chrono::minutes(2);

// What the check came to; written on a thread of the authentication service.
struct Check {
  std::mutex mutex;
  bool isWaitedFor = true;
  bool isAnswered = false;
  bool success = false;
  std::optional<NSError> error;
};

void start(const std::shared_ptr<Check>& check, const std::string& reason) {
  Dispatch& dispatch = host().dispatch();
  ZPUtils::requestForAuthentication(reason, [check, &dispatch](bool success, const NSError* error) {
    const std::lock_guard lock(check->mutex);
    check->isAnswered = true;
    check->success = success;
    if (error != nullptr) {
      check->error = *error;
    }
    if (check->isWaitedFor) {
      // Only to wake the main thread.
      dispatch.mainAsync([] {});
    }
  });
}

void throwUnlessRecognized(const Check& check) {
  if (!check.isAnswered) {
    throw CommandError("the fingerprint reader gave no answer; nothing was changed");
  }
  if (!check.error && check.success) {
    return;
  }
  throw CommandError(whyNotRecognized(check.error ? &*check.error : nullptr)
                         .value_or("cancelled; nothing was changed"));
}

}  // namespace

bool isLocked(const ZephylRef& group) {
  return !group->isSystem() && group->isPasswordProtected();
}

void askForFingerprint(Session& session, Output& output, const ZephylVector& groups) {
  std::vector<std::string> titles;
  for (const ZephylRef& group : groups) {
    if (isLocked(group)) {
      titles.push_back(group->title());
    }
  }
  if (titles.empty()) {
    return;
  }
  // Kept: the texts are those of the list of groups, their spelling included.
  const std::string reason =
      groups.size() == 1 ? reasonToOpenGroup(titles.front()) : reasonToDeleteGroups(titles);
  if (!ZPUtils::shouldContinueWithoutRequestingForTouchID()) {
    output.complain(reason);
  }
  const auto check = std::make_shared<Check>();
  session.watchDesktop();
  const Interruption interruption([&session] { session.cancelFingerprint(); });
  start(check, reason);
  const auto isAnswered = [&] {
    const std::lock_guard lock(check->mutex);
    return check->isAnswered;
  };
  session.waitUntil(isAnswered, kLongestCheck);
  const std::lock_guard lock(check->mutex);
  check->isWaitedFor = false;
  throwUnlessRecognized(*check);
}

void askWhetherToGoOn(const Session& session, Output& output, const std::string& question) {
  if (session.options().yes) {
    return;
  }
  if (isatty(STDIN_FILENO) != 1) {
    throw CommandError(question + " There is no terminal to ask on; say --yes", kWrongUsage);
  }
  output.prompt(question + " [y/N] ");
  std::string answer;
  std::getline(std::cin, answer);
  if (answer != "y" && answer != "Y" && answer != "yes") {
    throw CommandError("nothing was changed");
  }
}

}  // namespace zephyl::app
