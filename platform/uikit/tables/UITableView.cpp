#include "platform/uikit/tables/UITableView.h"

#include <utility>

#include "platform/uikit/tables/TableBlankRows.h"
#include "platform/uikit/tables/TableSectionIndex.h"
#include "platform/uikit/tables/UIRefreshControl.h"
#include "platform/uikit/tables/UITableViewCore.h"

namespace zephyl {

UITableView::UITableView(const CGRect& frame, UITableViewStyle style)
    : UIScrollView(frame), core_(std::make_unique<Core>(*this, style)) {
  setBackgroundColor(style == UITableViewStyle::kPlain ? UIColor::systemBackgroundColor()
                                                       : UIColor::systemGroupedBackgroundColor());
  setAlwaysBounceVertical(true);
  core_->addSwipeRecognizer();
}

UITableView::~UITableView() {
  // Others may hold them longer.
  if (core_->refresh != nullptr) {
    core_->refresh->setRoomMaker(nullptr);
  }
  if (core_->index != nullptr) {
    core_->index->setPick(nullptr);
  }
}

UITableViewStyle UITableView::style() const {
  return core_->style;
}

CGFloat UITableView::rowHeight() const {
  return core_->rowHeight;
}

void UITableView::setRowHeight(CGFloat height) {
  const CGFloat sane = height > 0 ? finite(height) : 44;
  if (sane == core_->rowHeight) {
    return;
  }
  core_->rowHeight = sane;
  core_->heightsChanged();
}

void UITableView::setSectionHeaderHeight(CGFloat height) {
  if (height == core_->sectionHeaderHeight) {
    return;
  }
  core_->sectionHeaderHeight = height;
  core_->heightsChanged();
}

void UITableView::setSectionFooterHeight(CGFloat height) {
  if (height == core_->sectionFooterHeight) {
    return;
  }
  core_->sectionFooterHeight = height;
  core_->heightsChanged();
}

void UITableView::setSeparatorStyle(UITableViewCellSeparatorStyle style) {
  if (style == core_->separatorStyle) {
    return;
  }
  core_->separatorStyle = style;
  setNeedsLayout();
}

void UITableView::setSeparatorInset(const UIEdgeInsets& inset) {
  if (inset == core_->separatorInset) {
    return;
  }
  core_->separatorInset = inset;
  setNeedsLayout();
}

const std::shared_ptr<UIView>& UITableView::tableHeaderView() const {
  return core_->headerView;
}

void UITableView::setTableHeaderView(const std::shared_ptr<UIView>& view) {
  if (core_->headerView != nullptr && core_->headerView != view) {
    core_->headerView->removeFromSuperview();
  }
  core_->headerView = view;
  if (view != nullptr) {
    insertBelowIndicator(view);
  }
  core_->heightsChanged();
}

const std::shared_ptr<UIView>& UITableView::tableFooterView() const {
  return core_->footerView;
}

void UITableView::setTableFooterView(const std::shared_ptr<UIView>& view) {
  if (core_->footerView != nullptr && core_->footerView != view) {
    core_->footerView->removeFromSuperview();
  }
  core_->footerView = view;
  if (view != nullptr) {
    insertBelowIndicator(view);
  }
  core_->heightsChanged();
}

void UITableView::setBackgroundView(const std::shared_ptr<UIView>& view) {
  if (view == core_->backgroundView) {
    return;
  }
  if (core_->backgroundView != nullptr) {
    core_->backgroundView->removeFromSuperview();
  }
  core_->backgroundView = view;
  if (view != nullptr) {
    insertSubview(view, 0);
  }
  setNeedsLayout();
}

const std::shared_ptr<UIRefreshControl>& UITableView::refreshControl() const {
  return core_->refresh;
}

void UITableView::setRefreshControl(const std::shared_ptr<UIRefreshControl>& control) {
  if (control == core_->refresh) {
    return;
  }
  if (core_->refresh != nullptr) {
    core_->refresh->setRoomMaker(nullptr);
    core_->refresh->removeFromSuperview();
    setExtraTopInset(0);
  }
  core_->refresh = control;
  if (control != nullptr) {
    insertBelowIndicator(control);
    control->setRoomMaker([this](CGFloat room) { core_->makeRoom(room); });
  }
  setNeedsLayout();
}

void UITableView::layoutSubviews() {
  core_->layout();
}

void UITableView::setFrame(const CGRect& frame) {
  UIScrollView::setFrame(frame);
  if (bounds().width() != core_->loadedWidth && !core_->needsLoad) {
    // Heights may depend on it.
    core_->heightsChanged();
  }
}

void UITableView::contentOffsetDidChange() {
  // A finger may be on it.
  core_->layoutIndex();
  if (core_->refresh != nullptr) {
    const CGFloat pulled = verticalRange().lowest - contentOffset().y;
    core_->refresh->pulled(pulled, isDragging());
  }
}

void UITableView::fingerDidTouch(bool stopped) {
  core_->touchOnlyStopped = stopped;
  core_->focusShown = false;
  setNeedsLayout();
}

void UITableView::draggingDidBegin() {
  core_->closeSwipe(/*animated=*/true);
}

void UITableView::draggingDidEnd() {
  if (core_->refresh != nullptr && core_->refresh->isRefreshing()) {
    core_->makeRoom(UIRefreshControl::kHeight);
  }
}

void UITableView::Core::makeRoom(CGFloat room) {
  if (room > 0 && table.isDragging()) {
    // Made when the finger leaves.
    return;
  }
  const bool atTop = table.contentOffset().y <= table.verticalRange().lowest + 0.5;
  table.setExtraTopInset(room);
  if (atTop && !table.isDragging()) {
    table.setContentOffset({table.contentOffset().x, table.verticalRange().lowest},
                           /*animated=*/true);
  }
}

}  // namespace zephyl
