#include "hosts/fake/FakeCollation.h"

#include <utility>

namespace zephyl::fake {

namespace {

char folded(char each) {
  return each >= 'A' && each <= 'Z' ? static_cast<char>(each - 'A' + 'a') : each;
}

bool beginsWith(const std::string& text, const std::string& title) {
  if (title.empty() || text.size() < title.size()) {
    return false;
  }
  for (std::size_t i = 0; i < title.size(); ++i) {
    if (folded(text[i]) != folded(title[i])) {
      return false;
    }
  }
  return true;
}

}  // namespace

FakeCollation::FakeCollation() {
  for (char letter = 'A'; letter <= 'Z'; ++letter) {
    titles_.emplace_back(1, letter);
  }
  titles_.emplace_back("#");
}

void FakeCollation::setSectionTitles(std::vector<std::string> titles) {
  titles.emplace_back("#");
  const std::lock_guard lock(mutex_);
  titles_ = std::move(titles);
}

std::vector<std::string> FakeCollation::sectionTitles() {
  const std::lock_guard lock(mutex_);
  return titles_;
}

std::size_t FakeCollation::sectionForString(const std::string& text) {
  const std::lock_guard lock(mutex_);
  for (std::size_t section = 0; section + 1 < titles_.size(); ++section) {
    if (beginsWith(text, titles_[section])) {
      return section;
    }
  }
  return titles_.size() - 1;
}

std::vector<std::size_t> FakeCollation::sectionsForSortedStrings(
    const std::vector<const std::string*>& texts) {
  std::vector<std::size_t> sections;
  sections.reserve(texts.size());
  for (const std::string* text : texts) {
    sections.push_back(sectionForString(*text));
  }
  return sections;
}

void FakeCollation::appendSortKey(const std::string& text, std::string& keys) {
  for (const char each : text) {
    keys += each == '\0' ? '\1' : folded(each);
  }
}

}  // namespace zephyl::fake
