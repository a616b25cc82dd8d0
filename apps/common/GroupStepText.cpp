#include "apps/common/GroupStepText.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "platform/foundation/NSBundle.h"

#include "model/ZPLocalizedText.h"

namespace zephyl::app {

namespace {

// More are counted only.
constexpr std::size_t kMostNames = 3;

std::string localized(const std::string& key) {
  return NSBundle::mainBundle()->localizedStringForKey(key, "");
}

std::string listed(const std::vector<std::string>& names) {
  std::string list;
  for (const std::string& name : names) {
    list = list.empty() ? name : zpFilledText(localized("%@, %@"), {list, name});
  }
  return list;
}

// "Ann, Bob, Cleo and 4 more".
std::string listed(const std::vector<Member>& members, const MemberName& nameOf) {
  std::vector<std::string> names;
  for (std::size_t index = 0; index < std::min(members.size(), kMostNames); ++index) {
    names.push_back(nameOf(members[index]));
  }
  const std::string list = listed(names);
  return members.size() <= kMostNames
             ? list
             : zpFilledText(localized("%@ and %@ more"),
                            {list, std::to_string(members.size() - kMostNames)});
}

std::vector<std::string> deletedTitles(const GroupStep& step) {
  std::vector<std::string> titles;
  for (const GroupDifference& difference : step) {
    if (!difference.after) {
      titles.push_back(difference.title());
    }
  }
  return titles;
}

std::string deletedText(const std::vector<std::string>& titles) {
  if (titles.size() == 1) {
    return zpFilledText(localized("The group '%@' is deleted."), {titles.front()});
  }
  const std::size_t shown = std::min(titles.size(), kMostNames);
  std::string list = listed({titles.begin(), titles.begin() + static_cast<std::ptrdiff_t>(shown)});
  if (shown < titles.size()) {
    list = zpFilledText(localized("%@ and %@ more"), {list, std::to_string(titles.size() - shown)});
  }
  return zpFilledText(localized("These groups are deleted: %@."), {list});
}

// What is not lost: who joined, what is new, and what is changed otherwise.
std::vector<std::string> othersOf(const GroupStep& step, const MemberName& name) {
  std::vector<std::string> lines;
  for (const GroupDifference& difference : step) {
    if (!difference.before) {
      lines.push_back(zpFilledText(localized("The group '%@' is new."), {difference.title()}));
    } else if (const auto joined = difference.joined(); !joined.empty()) {
      lines.push_back(zpFilledText(localized("Now in the group '%@': %@."),
                                   {difference.title(), listed(joined, name)}));
    } else if (difference.after && difference.left().empty()) {
      lines.push_back(zpFilledText(localized("The group '%@' is changed."), {difference.title()}));
    }
  }
  return lines;
}

}  // namespace

std::vector<std::string> lossesOf(const GroupStep& step, const MemberName& name) {
  std::vector<std::string> lines;
  for (const GroupDifference& difference : step) {
    if (const auto left = difference.left(); !left.empty()) {
      lines.push_back(zpFilledText(localized("No longer in the group '%@': %@."),
                                   {difference.title(), listed(left, name)}));
    }
  }
  if (const auto titles = deletedTitles(step); !titles.empty()) {
    lines.push_back(deletedText(titles));
  }
  return lines;
}

std::string summaryOf(const GroupStep& step, const MemberName& name) {
  std::vector<std::string> lines = lossesOf(step, name);
  for (std::string& line : othersOf(step, name)) {
    lines.push_back(std::move(line));
  }
  std::string summary;
  for (const std::string& line : lines) {
    summary.append(summary.empty() ? "" : " ").append(line);
  }
  return summary;
}

std::string undoneText(const std::string& summary) {
  return zpFilledText(localized("Undone: %@"), {summary});
}

std::string redoneText(const std::string& summary) {
  return zpFilledText(localized("Done again: %@"), {summary});
}

}  // namespace zephyl::app
