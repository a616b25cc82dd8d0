// A context that writes down what is drawn, in the coordinates it began with: transforms are worked
// out (a turned shape as the upright rectangle around it), and what lies outside the clip is left
// out, as nobody would see it. One line of text a command:
//
//   fill (0 0 390 44) r=10 #ffffffff           corners=3 when not all four are rounded
//   text "Hello" (16 12 42.5 20.4) 17 bold #000000ff
//   image (16 8 29 29) 29x29 tint #007affff     tint only for a template
//   beginLayer (0 0 390 44) alpha=0.5 ... endLayer
//
// A command that the clip cuts ends with the clip: "... clip (0 0 390 30)".

#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/uikit/CGContext.h"

namespace zephyl::fake {

class RecordingContext : public CGContext {
 public:
  struct Command {
    // "fill", "ellipse", "stroke", "line", "gradient", "shadow", "image", "text", "beginLayer",
    // "endLayer".
    std::string name;
    CGRect rect;
    // What the command says beyond that: "#rrggbbaa" last.
    std::string detail;
    // Of a "text".
    std::string text;
    CGRect clip;
  };

  explicit RecordingContext(const CGRect& bounds = CGRectMake(0, 0, 390, 844),
                            UIUserInterfaceStyle style = UIUserInterfaceStyle::kLight);

  [[nodiscard]] const std::vector<Command>& drawn() const { return drawn_; }
  [[nodiscard]] std::vector<std::string> commands() const;
  [[nodiscard]] int countOf(std::string_view name) const;
  // The texts, in the order they were drawn.
  [[nodiscard]] std::vector<std::string> texts() const;
  void clear() { drawn_.clear(); }

  void saveState() override;
  void restoreState() override;
  void concat(const CGAffineTransform& transform) override;
  void clip(const RoundedRect& shape) override;
  void beginLayer(CGFloat alpha, const CGRect& bounds) override;
  void endLayer() override;
  void fill(const RoundedRect& shape, const UIColor& color) override;
  void fillEllipse(const CGRect& rect, const UIColor& color) override;
  void stroke(const RoundedRect& shape, CGFloat width, const UIColor& color) override;
  void stroke(const Polyline& line, CGFloat width, const UIColor& color) override;
  void fillGradient(const RoundedRect& shape, const Gradient& gradient) override;
  void drawShadow(const RoundedRect& shape, const Shadow& shadow) override;
  void draw(const UIImage& image, const CGRect& rect, const UIColor& tint) override;
  void draw(const TextLayout& text, CGPoint origin) override;
  [[nodiscard]] CGRect clipBounds() const override;
  [[nodiscard]] UIUserInterfaceStyle userInterfaceStyle() const override { return style_; }

 protected:
  // In the coordinates it began with.
  [[nodiscard]] CGRect resolved(const CGRect& rect) const;
  [[nodiscard]] const CGRect& resolvedClip() const { return state_.clip; }

 private:
  struct State {
    CGAffineTransform transform;
    CGRect clip;
  };

  void record(const std::string& name, const CGRect& rect, std::string detail,
              std::string text = {});
  [[nodiscard]] std::string describe(const UIColor& color) const;

  UIUserInterfaceStyle style_;
  State state_;
  std::vector<State> saved_;
  std::vector<Command> drawn_;
};

}  // namespace zephyl::fake
