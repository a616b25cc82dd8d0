#include "platform/uikit/NSAttributedString.h"

#include <algorithm>
#include <utility>

#include "platform/foundation/Utf8.h"

namespace zephyl {
namespace {

bool isInsideCharacter(const std::string& text, std::size_t at) {
  return at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0U) == 0x80U;
}

// Runs that meet and look the same become one; empty ones go.
void addRun(std::vector<NSAttributedString::Run>& runs, const NSAttributedString::Run& run) {
  if (run.length == 0) {
    return;
  }
  if (!runs.empty() && runs.back().attributes == run.attributes) {
    runs.back().length += run.length;
  } else {
    runs.push_back(run);
  }
}

}  // namespace

NSAttributedString::NSAttributedString(std::string_view text, const Attributes& attributes)
    : text_(repairedUtf8(text)) {
  addRun(runs_, {0, text_.size(), attributes});
}

void NSAttributedString::append(const NSAttributedString& more) {
  const std::size_t before = text_.size();
  // A copy, since `more` may be this text itself.
  const std::vector<Run> added = more.runs_;
  for (Run run : added) {
    run.start += before;
    addRun(runs_, run);
  }
  text_ += more.text_;
}

void NSAttributedString::setAttributes(std::size_t start, std::size_t length,
                                       const Attributes& attributes) {
  std::size_t from = std::min(start, text_.size());
  std::size_t to = from + std::min(length, text_.size() - from);
  while (isInsideCharacter(text_, from)) {
    ++from;
  }
  while (to > from && isInsideCharacter(text_, to)) {
    --to;
  }
  if (from >= to) {
    return;
  }
  std::vector<Run> runs;
  runs.reserve(runs_.size() + 2);
  for (const Run& run : runs_) {
    const std::size_t end = run.start + run.length;
    const std::size_t head = std::min(end, from);
    addRun(runs, {run.start, head > run.start ? head - run.start : 0, run.attributes});
    if (run.start <= from && from < end) {
      addRun(runs, {from, to - from, attributes});
    }
    const std::size_t tail = std::max(run.start, to);
    addRun(runs, {tail, end > tail ? end - tail : 0, run.attributes});
  }
  runs_ = std::move(runs);
}

}  // namespace zephyl
