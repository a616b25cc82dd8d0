#include "apps/zephyls/render/Stage.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/uikit/controllers/UIViewController.h"
#include "platform/uikit/text/UILabel.h"

namespace zephyl::app::render {

namespace {

constexpr CGFloat kMargin = 16;
constexpr CGFloat kGap = 14;
constexpr CGFloat kCaptionHeight = 16;
constexpr CGFloat kCaptionSize = 11;

}  // namespace

Stage::Stage() : board_(std::make_shared<UIView>(CGRectMake(0, 0, kWidth, 0))) {
  board_->setBackgroundColor(UIColor::systemBackgroundColor());
  x_ = kMargin;
  y_ = kMargin / 2;
  bottom_ = y_;
}

void Stage::setBackgroundColor(const UIColor& color) {
  board_->setBackgroundColor(color);
}

void Stage::breakLine() {
  if (x_ > kMargin) {
    x_ = kMargin;
    y_ = bottom_ + kGap;
  }
}

void Stage::add(const std::string& caption, const std::shared_ptr<UIView>& view, CGSize size) {
  const auto label = std::make_shared<UILabel>();
  label->setText(caption);
  label->setFont(UIFont::systemFontOfSize(kCaptionSize));
  label->setTextColor(UIColor::secondaryLabelColor());
  label->sizeToFit();
  const CGFloat width = std::max(size.width, label->frame().width());
  if (x_ + width > kWidth - kMargin) {
    breakLine();
  }
  label->setFrame(
      CGRectMake(x_, y_, std::min(label->frame().width(), kWidth - 2 * kMargin), kCaptionHeight));
  board_->addSubview(label);
  const bool wide = size.width > kWidth - 2 * kMargin;
  view->setFrame({{wide ? 0 : x_, y_ + kCaptionHeight}, size});
  board_->addSubview(view);
  bottom_ = std::max(bottom_, std::ceil(y_ + kCaptionHeight + size.height));
  x_ += std::ceil(width) + kGap;
}

void Stage::add(const std::string& caption, const std::shared_ptr<UIView>& view) {
  add(caption, view, view->sizeThatFits({kWidth - 2 * kMargin, 0}));
}

void Stage::show(const std::shared_ptr<UIViewController>& screen, CGSize size) {
  screen_ = screen;
  screenSize_ = size;
}

void Stage::then(std::function<void(UIWindow& window)> action) {
  actions_.push_back(std::move(action));
}

std::shared_ptr<UIWindow> Stage::makeWindow() {
  if (screen_ != nullptr) {
    auto window = std::make_shared<UIWindow>(CGRect{{}, screenSize_});
    window->setRootViewController(screen_);
    return window;
  }
  const CGRect frame = CGRectMake(0, 0, kWidth, bottom_ + kMargin);
  auto window = std::make_shared<UIWindow>(frame);
  board_->setFrame(frame);
  window->addSubview(board_);
  return window;
}

}  // namespace zephyl::app::render
