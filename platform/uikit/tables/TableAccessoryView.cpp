#include "platform/uikit/tables/TableAccessoryView.h"

#include "platform/uikit/UIScreen.h"

namespace zephyl {
namespace {

constexpr CGSize kChevronSize{8, 13};
constexpr CGSize kCheckSize{14, 13};
constexpr CGFloat kLine = 2;

}  // namespace

TableAccessoryView::TableAccessoryView() {
  setOpaque(false);
  setUserInteractionEnabled(false);
}

void TableAccessoryView::setType(UITableViewCellAccessoryType type) {
  if (type == type_) {
    return;
  }
  type_ = type;
  setHidden(type == UITableViewCellAccessoryType::kNone);
  setNeedsDisplay();
}

CGSize TableAccessoryView::sizeOfType(UITableViewCellAccessoryType type) {
  switch (type) {
    case UITableViewCellAccessoryType::kDisclosureIndicator:
      return kChevronSize;
    case UITableViewCellAccessoryType::kCheckmark:
      return kCheckSize;
    case UITableViewCellAccessoryType::kNone:
      break;
  }
  return {0, 0};
}

void TableAccessoryView::drawRect(CGContext& context, const CGRect& /*rect*/) {
  if (type_ == UITableViewCellAccessoryType::kCheckmark) {
    context.stroke(Polyline{{{1, 7.5}, {5, 11.5}, {13, 1.5}}}, kLine, tintColor());
    return;
  }
  if (type_ != UITableViewCellAccessoryType::kDisclosureIndicator) {
    return;
  }
  // It points to where the next screen comes from.
  if (UIScreen::mainScreen().isRightToLeft()) {
    context.stroke(Polyline{{{7, 1}, {1.5, 6.5}, {7, 12}}}, kLine, UIColor::systemGray3Color());
  } else {
    context.stroke(Polyline{{{1, 1}, {6.5, 6.5}, {1, 12}}}, kLine, UIColor::systemGray3Color());
  }
}

std::string TableAccessoryView::describe() const {
  switch (type_) {
    case UITableViewCellAccessoryType::kDisclosureIndicator:
      return "disclosure";
    case UITableViewCellAccessoryType::kCheckmark:
      return "checkmark";
    case UITableViewCellAccessoryType::kNone:
      break;
  }
  return {};
}

}  // namespace zephyl
