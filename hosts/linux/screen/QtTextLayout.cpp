#include "hosts/linux/screen/QtTextLayout.h"

#include <QCoreApplication>
#include <QPainter>
#include <QThread>
#include <algorithm>

#include "hosts/linux/screen/ScreenColors.h"

namespace zephyl::linux_host {

namespace {

bool onMainThread() {
  const QCoreApplication* const application = QCoreApplication::instance();
  return application != nullptr && application->thread() == QThread::currentThread();
}

bool isVisible(const TextBlock& block, CGFloat top, const CGRect& visible) {
  if (block.lines.empty()) {
    return false;
  }
  // Glyphs may reach above and below their line.
  const CGFloat reach = block.lines.front().height;
  return top + block.lines.front().origin.y - reach < visible.maxY() &&
         top + block.lines.back().origin.y + 2 * reach > visible.y();
}

bool isTooWide(const TextBlock& block) {
  return std::any_of(block.lines.begin(), block.lines.end(), [&block](const TextBlock::Line& line) {
    return line.naturalWidth > block.width + 1;
  });
}

}  // namespace

QtTextLayout::QtTextLayout(LinesSet lines, const TextStyle& style)
    : lines_(std::move(lines)), clipWidth_(style.area.width) {}

QtTextLayout::~QtTextLayout() = default;

CGFloat QtTextLayout::firstBaseline() const {
  return lines_.blocks.empty() ? 0 : lines_.blocks.front().lines.front().ascent;
}

void QtTextLayout::draw(QPainter& painter, QPointF origin, const CGRect& visible,
                        UIUserInterfaceStyle style) const {
  const bool keeps = onMainThread();
  for (std::size_t i = 0; i < lines_.blocks.size(); ++i) {
    const TextBlock& block = lines_.blocks[i];
    if (!isVisible(block, origin.y(), visible)) {
      continue;
    }
    if (keeps) {
      drawBlock(painter, origin, block, *keptGlyphs(style).at(i), style);
    } else {
      drawBlock(painter, origin, block, *makeLayout(block, style), style);
    }
  }
}

const QtTextLayout::Glyphs& QtTextLayout::keptGlyphs(UIUserInterfaceStyle style) const {
  const bool oneColor =
      std::all_of(lines_.blocks.begin(), lines_.blocks.end(),
                  [](const TextBlock& block) { return block.text.hasOneColor(); });
  Glyphs& glyphs = kept_[oneColor ? UIUserInterfaceStyle::kLight : style];
  if (glyphs.empty()) {
    glyphs.reserve(lines_.blocks.size());
    for (const TextBlock& block : lines_.blocks) {
      glyphs.push_back(makeLayout(block, style));
    }
  }
  return glyphs;
}

void QtTextLayout::drawBlock(QPainter& painter, QPointF origin, const TextBlock& block,
                             const QTextLayout& layout, UIUserInterfaceStyle style) const {
  const bool clips = isTooWide(block);
  if (clips) {
    painter.save();
    painter.setClipRect(
        QRectF(origin.x(), origin.y() - lines_.size.height, clipWidth_, 3 * lines_.size.height),
        Qt::IntersectClip);
  }
  painter.setPen(screenColor(block.text.spans.front().attributes.color, style));
  layout.draw(&painter, origin);
  if (clips) {
    painter.restore();
  }
}

}  // namespace zephyl::linux_host
