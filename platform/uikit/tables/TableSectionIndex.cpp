#include "platform/uikit/tables/TableSectionIndex.h"

#include <algorithm>
#include <cmath>

#include "platform/uikit/UIKitText.h"
#include "platform/uikit/UIScreen.h"
#include "platform/uikit/tables/UITableViewProtocols.h"
#include "platform/uikit/text/TextDrawing.h"

namespace zephyl {
namespace {

constexpr CGFloat kLineHeight = 14;
constexpr CGFloat kFontSize = 11;
const char* const kDot = "\u2022";

void drawMagnifier(CGContext& context, CGPoint middle, const UIColor& color) {
  context.stroke(RoundedRect{CGRectMake(middle.x - 4.5, middle.y - 4.5, 7, 7), 3.5}, 1.2, color);
  context.stroke(Polyline{{{middle.x + 1.7, middle.y + 1.7}, {middle.x + 4.5, middle.y + 4.5}}},
                 1.5, color);
}

}  // namespace

TableSectionIndex::TableSectionIndex(Pick pick) : pick_(std::move(pick)) {
  setOpaque(false);
  setContentMode(UIViewContentMode::kRedraw);
}

void TableSectionIndex::setTitles(std::vector<std::string> titles) {
  if (titles == titles_) {
    return;
  }
  titles_ = std::move(titles);
  picked_ = -1;
  setNeedsDisplay();
}

void TableSectionIndex::placeIn(const CGRect& area) {
  const bool rightToLeft = UIScreen::mainScreen().isRightToLeft();
  const CGFloat x = rightToLeft ? area.x() : area.maxX() - kWidth;
  setFrame(CGRectMake(x, area.y(), kWidth, std::max(0.0, area.height())));
}

std::vector<std::string> TableSectionIndex::shownTitles() const {
  const auto room = static_cast<std::size_t>(std::max(0.0, bounds().height() / kLineHeight));
  if (titles_.size() <= room || room < 3) {
    return room == 0 ? std::vector<std::string>() : titles_;
  }
  // Titles and dots take turns; the first and the last are titles.
  const std::size_t letters = (room + 1) / 2;
  std::vector<std::string> shown;
  shown.reserve(2 * letters);
  for (std::size_t i = 0; i < letters; ++i) {
    shown.push_back(titles_[i * (titles_.size() - 1) / (letters - 1)]);
    if (i + 1 < letters) {
      shown.emplace_back(kDot);
    }
  }
  return shown;
}

CGRect TableSectionIndex::lettersRect(std::size_t count) const {
  const CGFloat height = static_cast<CGFloat>(count) * kLineHeight;
  return CGRectMake(0, (bounds().height() - height) / 2, bounds().width(), height);
}

void TableSectionIndex::drawRect(CGContext& context, const CGRect& /*rect*/) {
  const std::vector<std::string> shown = shownTitles();
  const CGRect letters = lettersRect(shown.size());
  TextStyle style;
  style.alignment = NSTextAlignment::kCenter;
  style.lineBreakMode = NSLineBreakMode::kClipping;
  style.maximumLines = 1;
  CGFloat y = letters.y();
  for (const std::string& title : shown) {
    const CGRect line = CGRectMake(0, y, letters.width(), kLineHeight);
    if (title == UITableViewIndexSearch) {
      drawMagnifier(context, {line.midX(), line.midY()}, tintColor());
    } else {
      drawText(
          context,
          NSAttributedString(
              title, {UIFont::systemFontOfSize(kFontSize, UIFont::Weight::kSemibold), tintColor()}),
          line, style);
    }
    y += kLineHeight;
  }
}

bool TableSectionIndex::gestureRecognizerShouldBegin(const UIGestureRecognizer& /*gesture*/) {
  return !isTracking();
}

void TableSectionIndex::beginTracking(CGPoint location) {
  picked_ = -1;
  pickAt(location.y);
}

void TableSectionIndex::continueTracking(CGPoint location) {
  pickAt(location.y);
}

void TableSectionIndex::pickAt(CGFloat y) {
  const CGRect letters = lettersRect(shownTitles().size());
  if (titles_.empty() || letters.isEmpty()) {
    return;
  }
  const auto count = static_cast<CGFloat>(titles_.size());
  const CGFloat part = std::clamp((y - letters.y()) / letters.height(), 0.0, 1.0);
  const auto entry = static_cast<std::int64_t>(std::min(std::floor(part * count), count - 1));
  if (entry != picked_) {
    pick(entry);
  }
}

void TableSectionIndex::pick(std::int64_t entry) {
  if (entry < 0 || entry >= std::ssize(titles_)) {
    return;
  }
  picked_ = entry;
  // It may take this view away.
  const auto kept = weak_from_this().lock();
  if (const Pick told = pick_) {
    told(entry);
  }
}

std::string TableSectionIndex::accessibilityValue() const {
  return picked_ < 0 || picked_ >= std::ssize(titles_) ? std::string()
                                                       : titles_[static_cast<std::size_t>(picked_)];
}

std::string TableSectionIndex::derivedAccessibilityLabel() const {
  return uikitText("Section index");
}

}  // namespace zephyl
