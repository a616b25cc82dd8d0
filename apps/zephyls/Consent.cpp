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
#include "model/ZPLocalizedText.h"
#include "services/ZPUtils.h"

namespace zephyl::app {

namespace {

// As long as a person may look for the reader; the check itself ends sooner.
constexpr auto kLongestCheck = std::chrono::minutes(2);

// As the phone numbers them: nothing more is to be said about these.
constexpr std::int64_t kCancelledByUser = -2;
constexpr std::int64_t kCancelledBySystem = -4;

// The format with its places "%@" filled in order.
std::string filled(const std::string& format, const std::vector<std::string>& texts) {
  std::string result;
  std::size_t from = 0;
  for (const std::string& text : texts) {
    const std::size_t place = format.find("%@", from);
    if (place == std::string::npos) {
      break;
    }
    result.append(format, from, place - from).append(text);
    from = place + 2;
  }
  return result.append(format, from);
}

// Kept: the texts are those of the list of groups, their spelling included.
std::string reasonFor(const std::vector<std::string>& titles, bool isOnlyGroup) {
  if (isOnlyGroup) {
    return filled(
        zpLocalizedText("Group '%@' is protected. Please authenticate uisng your finger print."),
        titles);
  }
  const bool one = titles.size() == 1;
  return filled(
      zpLocalizedText("%@ '%@' %@ protected. Please authenticate uisng your finger print."),
      {zpLocalizedText(one ? "Group" : "Groups"), joinedTitles(titles),
       zpLocalizedText(one ? "is" : "are")});
}

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
  if (!check.error) {
    if (!check.success) {
      throw CommandError(zpLocalizedText("Unable to verify your identity."));
    }
    return;
  }
  if (check.error->code() == kCancelledByUser || check.error->code() == kCancelledBySystem) {
    throw CommandError("cancelled; nothing was changed");
  }
  throw CommandError(filled(zpLocalizedText("Unable to verify your identity. Error: '%@'"),
                            {check.error->localizedDescription()}));
}

}  // namespace

bool isLocked(const ZephylRef& group) {
  return !group->isSystem() && group->isPasswordProtected();
}

std::string joinedTitles(const std::vector<std::string>& titles) {
  std::string result;
  for (std::size_t index = 0; index < titles.size(); ++index) {
    if (index > 0) {
      result += index + 1 == titles.size() ? " and " : ", ";
    }
    result += titles[index];
  }
  return result;
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
  const std::string reason = reasonFor(titles, groups.size() == 1);
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
