// For tests: a list as a phone shows it. Rows with two texts below a bar, one of them with a badge,
// and a field over the rows to type into.

#pragma once

#include <QImage>
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <memory>
#include <string>

#include "platform/uikit/CGContext.h"
#include "platform/uikit/UIViewAnimation.h"
#include "platform/uikit/UIWindow.h"
#include "platform/uikit/controllers/UIBarButtonItem.h"
#include "platform/uikit/controllers/UINavigationBar.h"
#include "platform/uikit/controllers/UINavigationController.h"
#include "platform/uikit/controllers/UINavigationItem.h"
#include "platform/uikit/tables/ScrollIndicator.h"
#include "platform/uikit/tables/UITableViewController.h"
#include "platform/uikit/testing/TreeBuilder.h"
#include "platform/uikit/text/TextDrawing.h"
#include "platform/uikit/text/UILabel.h"
#include "platform/uikit/text/UITextField.h"

#include "hosts/linux/screen/ScreenUnderTest.h"
#include "hosts/linux/screen/WindowPicture.h"

namespace zephyl::linux_host {

// A number on a red disc with a white ring, as wide as the number needs.
class NumberBadge : public UIView {
 public:
  NumberBadge() { setBackgroundColor(UIColor::clearColor()); }

  void setNumber(int number) {
    number_ = number;
    const CGSize size = sizeOfText(std::to_string(number_), UIFont::systemFontOfSize(15));
    setBounds(CGRectMake(0, 0, std::max(size.width, size.height) + 11, size.height + 11));
    setNeedsDisplay();
  }
  void drawRect(CGContext& context, const CGRect& rect) override {
    context.fillEllipse(CGRectInset(rect, 1, 1), UIColor::whiteColor());
    context.fillEllipse(CGRectInset(rect, 3, 3), UIColor::redColor());
    drawText(context, {std::to_string(number_), {UIFont::systemFontOfSize(15)}},
             CGRectInset(rect, 0, 5.5), {.maximumLines = 1, .alignment = NSTextAlignment::kCenter});
  }

 private:
  int number_ = 0;
};

class ListScreen : public UITableViewController {
 public:
  std::int64_t numberOfRowsInSection(UITableView& /*table*/, std::int64_t /*section*/) override {
    return 100;
  }
  std::shared_ptr<UITableViewCell> cellForRowAtIndexPath(UITableView& table,
                                                         const NSIndexPath& path) override {
    auto cell = table.dequeueReusableCellWithIdentifier("row");
    if (cell == nullptr) {
      cell = std::make_shared<UITableViewCell>(UITableViewCellStyle::kSubtitle, "row");
    }
    cell->textLabel()->setText("Conversation " + std::to_string(path.row));
    cell->detailTextLabel()->setText("from somebody of group " + std::to_string(path.row % 7));
    cell->setAccessoryType(path.row % 3 == 0 ? UITableViewCellAccessoryType::kCheckmark
                                             : UITableViewCellAccessoryType::kDisclosureIndicator);
    return cell;
  }
};

// On a screen of 390 by 844 points, 3 pixels a point until a test says otherwise.
class ListTest : public ScreenTest {
 protected:
  static constexpr UIUserInterfaceStyle kStyle = UIUserInterfaceStyle::kLight;
  static constexpr CGFloat kWidth = 390;

  ListTest() : ScreenTest(stillScreen(3)) {
    list_->setTitle("Groups");
    const auto add = std::make_shared<UIBarButtonItem>(UIBarButtonSystemItem::kAdd,
                                                       std::weak_ptr<const void>(), nullptr);
    list_->navigationItem()->setRightBarButtonItem(add);
    field_->setBorderStyle(UITextBorderStyle::kRoundedRect);
    field_->setPlaceholder("Search");
    list_->tableView()->setTableHeaderView(field_);
    window_->setRootViewController(UINavigationController::initWithRootViewController(list_));
    window_->layoutWindow();
    badge_->setNumber(7);
    table().cellForRowAtIndexPath({0, 2})->contentView()->addSubview(badge_);
    badge_->setCenter({280, 22});
    finishAllAnimations();
    window_->layoutWindow();
  }

  void setScale(CGFloat scale) { kit().screen().setGeometry({kWidth, 844}, scale); }
  [[nodiscard]] CGFloat scale() { return kit().screen().scale(); }
  [[nodiscard]] UITableView& table() { return *list_->tableView(); }
  [[nodiscard]] ScrollIndicator& indicator() { return *test::viewOf<ScrollIndicator>(table()); }
  [[nodiscard]] UINavigationBar& bar() { return *test::viewOf<UINavigationBar>(*window_); }
  void scrollBy(CGFloat dy) { table().setContentOffset({0, table().contentOffset().y + dy}); }
  // As the host does it.
  void type(const std::string& text) { field_->textInputDidChange(text); }

  WindowPicture::Update update() { return picture_.update(scale(), kStyle); }
  // What a picture that never saw anything else shows.
  [[nodiscard]] QImage fresh() {
    WindowPicture other(*window_, kit().paintCaches());
    static_cast<void>(other.update(scale(), kStyle));
    return other.image();
  }
  // The pixels that a view's rectangle touches, at most.
  [[nodiscard]] std::int64_t pixelsOf(const UIView& view) { return pixelsOf(view.bounds().size); }
  [[nodiscard]] std::int64_t pixelsOf(CGSize size) {
    const auto side = [this](CGFloat length) {
      return static_cast<std::int64_t>(std::ceil(length * scale())) + 1;
    };
    return side(size.width) * side(size.height);
  }

  std::shared_ptr<UIWindow> window_ = std::make_shared<UIWindow>(CGRectMake(0, 0, kWidth, 844));
  std::shared_ptr<ListScreen> list_ = std::make_shared<ListScreen>();
  std::shared_ptr<UITextField> field_ = std::make_shared<UITextField>(CGRectMake(0, 0, 390, 36));
  std::shared_ptr<NumberBadge> badge_ = std::make_shared<NumberBadge>();
  WindowPicture picture_{*window_, kit().paintCaches()};
};

}  // namespace zephyl::linux_host
