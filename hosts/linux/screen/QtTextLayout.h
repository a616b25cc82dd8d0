// Lines of text that a QtContext draws. Immutable; any thread.
//
// The glyphs are kept on the main thread only: Qt's fonts belong to the thread that uses them.
// Elsewhere each drawing sets the lines anew, at the places that were measured.

#pragma once

#include <QPointF>
#include <map>
#include <memory>
#include <utility>
#include <vector>

#include "hosts/linux/screen/LineSetter.h"

class QPainter;

namespace zephyl::linux_host {

class QtTextLayout : public TextLayout {
 public:
  QtTextLayout(LinesSet lines, const TextStyle& style);
  ~QtTextLayout() override;
  QtTextLayout(const QtTextLayout&) = delete;
  QtTextLayout& operator=(const QtTextLayout&) = delete;

  [[nodiscard]] CGSize size() const override { return lines_.size; }
  [[nodiscard]] int lineCount() const override { return lines_.lineCount; }
  [[nodiscard]] bool isTruncated() const override { return lines_.truncated; }
  [[nodiscard]] CGFloat firstBaseline() const override;
  // The lines with "\n" between them.
  [[nodiscard]] const NSAttributedString& text() const override { return lines_.shown; }

  // With the upper left corner at `origin`, lines outside `visible` left out; both in the painter's
  // coordinates.
  void draw(QPainter& painter, QPointF origin, const CGRect& visible,
            UIUserInterfaceStyle style) const;

  // Where the lines are, the layout's upper left corner at (0, 0).
  [[nodiscard]] const std::vector<TextBlock>& blocks() const { return lines_.blocks; }

 private:
  using Glyphs = std::vector<std::unique_ptr<QTextLayout>>;

  [[nodiscard]] const Glyphs& keptGlyphs(UIUserInterfaceStyle style) const;
  void drawBlock(QPainter& painter, QPointF origin, const TextBlock& block,
                 const QTextLayout& layout, UIUserInterfaceStyle style) const;

  const LinesSet lines_;
  // What is wider than the area does not leave it.
  const CGFloat clipWidth_;
  mutable std::map<UIUserInterfaceStyle, Glyphs> kept_;  // main thread
};

}  // namespace zephyl::linux_host
