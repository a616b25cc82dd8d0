#include "hosts/fake/uikit/RecordingContext.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <cmath>
#include <cstdio>
#include <utility>

#include "hosts/fake/uikit/FakeTextLayout.h"

namespace zephyl::fake {
namespace {

// Up to three decimals.
std::string number(CGFloat value) {
  std::array<char, 64> text{};
  const CGFloat rounded = std::round(finite(value) * 1000) / 1000;
  // Adding 0 makes 0 of -0.
  std::snprintf(text.data(), text.size(), "%.10g", rounded + 0.0);
  return text.data();
}

std::string describe(CGPoint point) {
  return number(point.x) + "," + number(point.y);
}

std::string describe(const CGRect& rect) {
  std::string text = "(";
  text.append(number(rect.x())).append(" ").append(number(rect.y())).append(" ");
  return text.append(number(rect.width())).append(" ").append(number(rect.height())).append(")");
}

std::string describeCorners(const RoundedRect& shape) {
  if (shape.radius <= 0) {
    return {};
  }
  std::string text = "r=" + number(shape.radius) + " ";
  return shape.corners == kAllCorners ? text
                                      : text + "corners=" + std::to_string(shape.corners) + " ";
}

std::string describeFont(const UIFont& font) {
  const std::string size = number(font.pointSize());
  switch (font.weight()) {
    case UIFont::Weight::kMedium:
      return size + " medium ";
    case UIFont::Weight::kSemibold:
      return size + " semibold ";
    case UIFont::Weight::kBold:
      return size + " bold ";
    default:
      return size + " ";
  }
}

bool holds(const CGRect& outer, const CGRect& inner) {
  constexpr CGFloat kTolerance = 1e-6;
  return inner.x() >= outer.x() - kTolerance && inner.y() >= outer.y() - kTolerance &&
         inner.maxX() <= outer.maxX() + kTolerance && inner.maxY() <= outer.maxY() + kTolerance;
}

CGRect boundsOf(const Polyline& line) {
  if (line.points.empty()) {
    return {};
  }
  const auto [left, right] =
      std::minmax_element(line.points.begin(), line.points.end(),
                          [](const CGPoint& a, const CGPoint& b) { return a.x < b.x; });
  const auto [top, bottom] =
      std::minmax_element(line.points.begin(), line.points.end(),
                          [](const CGPoint& a, const CGPoint& b) { return a.y < b.y; });
  return CGRectMake(left->x, top->y, right->x - left->x, bottom->y - top->y);
}

}  // namespace

RecordingContext::RecordingContext(const CGRect& bounds, UIUserInterfaceStyle style)
    : style_(style), state_{CGAffineTransformIdentity, bounds} {}

std::vector<std::string> RecordingContext::commands() const {
  std::vector<std::string> lines;
  lines.reserve(drawn_.size());
  for (const Command& command : drawn_) {
    std::string line = command.name;
    if (command.name == "text") {
      line.append(" \"").append(command.text).append("\"");
    }
    if (command.name != "endLayer") {
      line.append(" ").append(fake::describe(command.rect)).append(" ").append(command.detail);
      if (!holds(command.clip, command.rect)) {
        line.append(" clip ").append(fake::describe(command.clip));
      }
    }
    lines.push_back(std::move(line));
  }
  return lines;
}

int RecordingContext::countOf(std::string_view name) const {
  return static_cast<int>(std::count_if(
      drawn_.begin(), drawn_.end(), [&](const Command& command) { return command.name == name; }));
}

std::vector<std::string> RecordingContext::texts() const {
  std::vector<std::string> found;
  for (const Command& command : drawn_) {
    if (command.name == "text") {
      found.push_back(command.text);
    }
  }
  return found;
}

void RecordingContext::saveState() {
  saved_.push_back(state_);
}

void RecordingContext::restoreState() {
  assert(!saved_.empty());
  state_ = saved_.back();
  saved_.pop_back();
}

void RecordingContext::concat(const CGAffineTransform& transform) {
  state_.transform = CGAffineTransformConcat(transform, state_.transform);
}

void RecordingContext::clip(const RoundedRect& shape) {
  state_.clip = CGRectIntersection(state_.clip, resolved(shape.rect));
}

void RecordingContext::beginLayer(CGFloat alpha, const CGRect& bounds) {
  drawn_.push_back({"beginLayer", resolved(bounds), "alpha=" + number(alpha), {}, state_.clip});
}

void RecordingContext::endLayer() {
  drawn_.push_back({"endLayer", {}, {}, {}, state_.clip});
}

void RecordingContext::fill(const RoundedRect& shape, const UIColor& color) {
  record("fill", shape.rect, describeCorners(shape) + describe(color));
}

void RecordingContext::fillEllipse(const CGRect& rect, const UIColor& color) {
  record("ellipse", rect, describe(color));
}

void RecordingContext::stroke(const RoundedRect& shape, CGFloat width, const UIColor& color) {
  record("stroke", shape.rect,
         describeCorners(shape).append("w=").append(number(width)).append(" ") + describe(color));
}

void RecordingContext::stroke(const Polyline& line, CGFloat width, const UIColor& color) {
  std::string detail;
  for (const CGPoint point : line.points) {
    detail.append(fake::describe(CGPointApplyAffineTransform(point, state_.transform))).append(" ");
  }
  detail.append(line.closed ? "closed w=" : "w=").append(number(width)).append(" ");
  // The line is as thick outside its points as within.
  record("line", CGRectInset(boundsOf(line), -width / 2, -width / 2), detail + describe(color));
}

void RecordingContext::fillGradient(const RoundedRect& shape, const Gradient& gradient) {
  std::string detail = describeCorners(shape);
  for (const auto& [at, color] : gradient.stops) {
    detail.append(describe(color)).append("@").append(number(at)).append(" ");
  }
  const CGPoint start = CGPointApplyAffineTransform(gradient.start, state_.transform);
  const CGPoint end = CGPointApplyAffineTransform(gradient.end, state_.transform);
  detail.append(fake::describe(start)).append("-").append(fake::describe(end));
  record("gradient", shape.rect, std::move(detail));
}

void RecordingContext::drawShadow(const RoundedRect& shape, const Shadow& shadow) {
  std::string detail = describeCorners(shape);
  detail.append("offset=").append(number(shadow.offset.width)).append(",");
  detail.append(number(shadow.offset.height)).append(" blur=").append(number(shadow.blur));
  detail.append(" ").append(describe(shadow.color));
  CGRect reach = CGRectOffset(shape.rect, shadow.offset.width, shadow.offset.height);
  reach = CGRectInset(reach, -shadow.blur, -shadow.blur);
  record("shadow", reach, std::move(detail));
}

void RecordingContext::draw(const UIImage& image, const CGRect& rect, const UIColor& tint) {
  const CGSize size = image.size();
  if (size.width <= 0 || size.height <= 0) {
    return;
  }
  std::string detail = number(size.width) + "x" + number(size.height);
  if (image.renderingMode() == UIImageRenderingMode::kAlwaysTemplate) {
    detail.append(" tint ").append(describe(tint));
  }
  record("image", rect, std::move(detail));
}

void RecordingContext::draw(const TextLayout& text, CGPoint origin) {
  const NSAttributedString& string = text.text();
  if (string.empty()) {
    return;
  }
  CGRect extent{{0, 0}, text.size()};
  if (const auto* lines = dynamic_cast<const FakeTextLayout*>(&text)) {
    extent = lines->extent();
  }
  const auto& attributes = string.runs().front().attributes;
  record("text", CGRectOffset(extent, origin.x, origin.y),
         describeFont(attributes.font) + describe(attributes.color), string.string());
}

CGRect RecordingContext::clipBounds() const {
  return CGRectApplyAffineTransform(state_.clip, CGAffineTransformInvert(state_.transform));
}

CGRect RecordingContext::resolved(const CGRect& rect) const {
  return CGRectApplyAffineTransform(rect, state_.transform);
}

void RecordingContext::record(const std::string& name, const CGRect& rect, std::string detail,
                              std::string text) {
  const CGRect place = resolved(rect);
  if (!CGRectIntersection(place, state_.clip).isEmpty()) {
    drawn_.push_back({name, place, std::move(detail), std::move(text), state_.clip});
  }
}

std::string RecordingContext::describe(const UIColor& color) const {
  const UIColor::Channels channels = color.resolvedColor(style_).channels();
  std::string text = "#";
  for (const CGFloat channel : {channels.red, channels.green, channels.blue, channels.alpha}) {
    std::array<char, 4> digits{};
    const int byte = static_cast<int>(std::lround(std::clamp(finite(channel), 0.0, 1.0) * 255));
    std::snprintf(digits.data(), digits.size(), "%02x", static_cast<unsigned>(byte) & 0xFFU);
    text += digits.data();
  }
  return text;
}

}  // namespace zephyl::fake
