#include "platform/foundation/PropertyListCheck.h"

#include <vector>

#include "platform/foundation/PropertyListLimits.h"
#include "platform/foundation/PropertyListWriting.h"
#include "platform/foundation/PropertyListXmlCharacters.h"
#include "platform/foundation/Utf8.h"

namespace zephyl::detail {

namespace {

// Null when the text can be written.
const char* whyNotText(const std::string& text, PropertyListForm form) {
  if (form == PropertyListForm::kXml && findForbiddenXml(text) == std::string_view::npos) {
    return nullptr;
  }
  if (findInvalidUtf8(text) != std::string_view::npos) {
    return "text that is not UTF-8";
  }
  return form == PropertyListForm::kXml ? "text with a character that XML forbids" : nullptr;
}

// Of a value alone, without what is inside it, inside `depth` containers.
const char* whyNotValue(const Value& value, std::size_t depth, PropertyListForm form) {
  switch (value.type()) {
    case Value::Type::kNull:
      return "a property list holds no null";
    case Value::Type::kDate:
      return isDateInRange(value.ifDate()->secondsSinceReferenceDate)
                 ? nullptr
                 : "a date outside the years 0 to 9999";
    case Value::Type::kString:
      return whyNotText(*value.ifString(), form);
    case Value::Type::kUid:
      return form == PropertyListForm::kXml && depth == kMaximumDepth ? kTooDeep : nullptr;
    case Value::Type::kArray:
    case Value::Type::kDictionary:
      return depth == kMaximumDepth ? kTooDeep : nullptr;
    default:
      return nullptr;
  }
}

std::string withWay(std::string reason, const std::vector<WritingStep>& steps) {
  constexpr std::size_t kShown = 16;
  if (!steps.empty()) {
    reason += ", at ";
  }
  for (std::size_t i = 0; i < steps.size() && i < kShown; ++i) {
    const std::size_t last = steps[i].begun - 1;
    if (steps[i].array != nullptr) {
      reason.append("[").append(std::to_string(last)).append("]");
    } else {
      const std::string& key = steps[i].entryAt(last).first;
      reason += i == 0 ? "" : ".";
      reason += findInvalidUtf8(key) == std::string::npos ? key : "?";
    }
  }
  return steps.size() > kShown ? reason + "..." : reason;
}

}  // namespace

std::optional<std::string> whyNotPropertyList(const Value& root, PropertyListForm form) {
  std::vector<WritingStep> steps;
  const Value* value = &root;
  while (true) {
    if (const char* reason = whyNotValue(*value, steps.size(), form)) {
      return withWay(reason, steps);
    }
    if (const auto step = stepInto(*value)) {
      steps.push_back(*step);
    }
    while (!steps.empty() && steps.back().begun == steps.back().size()) {
      steps.pop_back();
    }
    if (steps.empty()) {
      return std::nullopt;
    }
    WritingStep& step = steps.back();
    const std::size_t i = step.begun++;
    if (step.dictionary != nullptr) {
      if (const char* reason = whyNotText(step.entryAt(i).first, form)) {
        return withWay(reason, steps);
      }
    }
    value = &step.valueAt(i);
  }
}

}  // namespace zephyl::detail
