// Count badges.

#include <functional>

#include "apps/zephyls/render/Stage.h"
#include "apps/zephyls/render/StagedComponents.h"
#include "ui/components/UIZPBadgeView.h"

namespace zephyl::app::render {

namespace {

using Dress = std::function<void(UIZPBadgeView& badge)>;

// A view with a badge on it, and room for it all around.
void addHost(Stage& stage, const std::string& caption, CGSize size, const Dress& dress) {
  constexpr CGFloat kRoom = 20;
  const auto room = std::make_shared<UIView>();
  const auto host = std::make_shared<UIView>(CGRect{{kRoom, kRoom}, size});
  host->setBackgroundColor(UIColor::systemGray4Color());
  host->layer()->setCornerRadius(6);
  room->addSubview(host);
  stage.add(caption, room, {size.width + 2 * kRoom, size.height + 2 * kRoom});
  stage.then([host, dress](UIWindow&) { dress(*zpBadgeView(*host)); });
}

// Badges that stand in the middle of nothing.
void addAlone(Stage& stage, const std::string& caption, const Dress& dress) {
  addHost(stage, caption, {32, 0}, [dress](UIZPBadgeView& badge) {
    badge.setPosition(ZPBadgePositionCenterLeft);
    badge.setHorizontalOffset(16);
    dress(badge);
    badge.zp_updateBadgeViewPosition();
  });
}

}  // namespace

void stageBadge(Stage& stage) {
  for (const std::int64_t value : {7, 42, 999, 1234, -5}) {
    addAlone(stage, std::to_string(value), [value](auto& badge) { badge.setBadgeValue(value); });
  }
  addAlone(stage, "0", [](auto& badge) { badge.setBadgeValue(0); });
  addAlone(stage, "0 displayed", [](auto& badge) { badge.setDisplayIfZero(true); });
  for (const float width : {0.0F, 1.0F, 4.0F}) {
    addAlone(stage, "outline " + std::to_string(static_cast<int>(width)), [width](auto& badge) {
      badge.setOutlineWidth(width);
      badge.setOutlineColor(UIColor::systemGrayColor());
      badge.setBadgeValue(12);
    });
  }
  addAlone(stage, "red on yellow", [](auto& badge) {
    badge.setBadgeColor(UIColor::colorWithRed(1, 0.8, 0, 1));
    badge.setTextColor(UIColor::redColor());
    badge.setOutlineColor(UIColor::redColor());
    badge.setBadgeValue(3);
  });
  addAlone(stage, "at least 40", [](auto& badge) {
    badge.setMinDiameter(40);
    badge.setBadgeValue(8);
  });
  addAlone(stage, "font of 20", [](auto& badge) {
    badge.setFont(UIFont::boldSystemFontOfSize(20));
    badge.setBadgeValue(88);
  });
}

void stageBadgePositions(Stage& stage) {
  constexpr const char* kNames[] = {"center left", "center right", "top left", "top right",
                                    "bottom left", "bottom right", "automatic"};
  for (const bool inside : {false, true}) {
    for (std::uint64_t position = 0; position < std::size(kNames); ++position) {
      const std::string caption = std::string(kNames[position]).append(inside ? ", inside" : "");
      addHost(stage, caption, {68, 50}, [=](UIZPBadgeView& badge) {
        badge.setBadgeValue(3);
        badge.setPosition(position);
        badge.setInsidePosition(inside ? 1 : 0);
        badge.zp_updateBadgeViewPosition();
      });
    }
    stage.breakLine();
  }
}

}  // namespace zephyl::app::render
