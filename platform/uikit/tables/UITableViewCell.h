// A row of a table: a content view with up to two texts and a picture, an accessory on its trailing
// side, and what editing adds. Main thread.
//
// Highlighted or selected it has a grey background, and every view in it, controls apart, has a
// clear one until that ends: the platform does so, and cells that colour a view paint it again. A
// background that is set meanwhile stays.

#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/uikit/UIView.h"
#include "platform/uikit/tables/TableCellSurroundings.h"
#include "platform/uikit/tables/UITableViewEnumerations.h"

namespace zephyl {

class TableAccessoryView;
class TableDeleteButton;
class TableEditControl;
class UIImageView;
class UILabel;

class ZP_EXPORT UITableViewCell : public UIView {
 public:
  // 320 by 44 points until a table places it.
  explicit UITableViewCell(UITableViewCellStyle style = UITableViewCellStyle::kDefault,
                           std::string reuseIdentifier = {});
  ~UITableViewCell() override;

  [[nodiscard]] UITableViewCellStyle style() const { return style_; }
  [[nodiscard]] const std::string& reuseIdentifier() const { return reuseIdentifier_; }

  // What screens put their own views into.
  [[nodiscard]] const std::shared_ptr<UIView>& contentView() const { return contentView_; }
  // Asking for one of these lays the cell out anew, since it is asked in order to be changed. One
  // that was taken out of the content view comes back with the next layout when it has something to
  // show. The default style has no detail label: null.
  const std::shared_ptr<UILabel>& textLabel();
  const std::shared_ptr<UILabel>& detailTextLabel();
  const std::shared_ptr<UIImageView>& imageView();

  [[nodiscard]] UITableViewCellAccessoryType accessoryType() const { return accessoryType_; }
  void setAccessoryType(UITableViewCellAccessoryType type);
  // Goes before the type. A control without a name of its own is named as the row.
  [[nodiscard]] const std::shared_ptr<UIView>& accessoryView() const { return accessoryView_; }
  void setAccessoryView(const std::shared_ptr<UIView>& view);
  [[nodiscard]] UITableViewCellSelectionStyle selectionStyle() const { return selectionStyle_; }
  void setSelectionStyle(UITableViewCellSelectionStyle style);
  [[nodiscard]] std::int64_t indentationLevel() const { return indentationLevel_; }
  // Of 10 points each.
  void setIndentationLevel(std::int64_t level);
  // Left is the leading side; a negative one is the margin of the texts.
  void setSeparatorInset(const UIEdgeInsets& inset);
  [[nodiscard]] UIEdgeInsets separatorInset() const;
  // Kept until another is set; without one it is the table's.
  void setBackgroundColor(const UIColor& color) override;

  [[nodiscard]] bool isHighlighted() const { return highlighted_; }
  virtual void setHighlighted(bool highlighted, bool animated);
  [[nodiscard]] bool isSelected() const { return selected_; }
  virtual void setSelected(bool selected, bool animated);
  [[nodiscard]] bool isEditing() const { return editing_; }
  virtual void setEditing(bool editing, bool animated);
  // Before the cell is shown for another row. By default it is no longer highlighted or selected;
  // what it shows stays.
  virtual void prepareForReuse();

  void setFrame(const CGRect& frame) override;
  void layoutSubviews() override;
  [[nodiscard]] CGSize sizeThatFits(CGSize size) const override;

  [[nodiscard]] bool isAccessibilityElement() const override { return true; }
  [[nodiscard]] UIAccessibilityRole accessibilityRole() const override {
    return UIAccessibilityRole::kRow;
  }
  // Where it stands in its section: "3 of 12".
  [[nodiscard]] std::string accessibilityValue() const override;
  // Checked by its check mark.
  [[nodiscard]] UIAccessibilityState accessibilityState() const override;
  bool accessibilityActivate() override;
  [[nodiscard]] const char* className() const override { return "UITableViewCell"; }

  // The rest is the table's.

  using Actions = TableCellActions;
  using Surroundings = TableCellSurroundings;
  void setActions(Actions actions) { actions_ = std::move(actions); }
  [[nodiscard]] const Surroundings& surroundings() const { return surroundings_; }
  void setSurroundings(const Surroundings& surroundings);
  // How far the row is moved towards its leading side, so that a button to delete it is seen on the
  // trailing one. An empty title keeps the title, and makes no button.
  [[nodiscard]] CGFloat deletionOffset() const { return deletionOffset_; }
  void setDeletionOffset(CGFloat offset, const std::string& title);
  // What the button's title needs; 0 without a button.
  [[nodiscard]] CGFloat deleteButtonWidth() const;
  // Back to its place; and, once it is there, the button away.
  void closeDeletion() { setDeletionOffset(0, {}); }
  void hideDeleteButton();

 protected:
  [[nodiscard]] std::string derivedAccessibilityLabel() const override;

 private:
  struct Layout;

  void makeTexts();
  [[nodiscard]] bool showsSelection() const;
  void updateSelection(bool animated);
  void clearBackgrounds();
  void restoreBackgrounds();
  void keepParts();
  void layoutParts(const Layout& layout);
  void layoutTexts(const Layout& layout);
  void layoutSubtitle(const CGRect& area);
  void layoutValueTexts(const CGRect& area);
  void layoutSeparators();
  void layoutEditing(const Layout& layout);
  void nameAccessory();
  [[nodiscard]] Layout makeLayout() const;
  [[nodiscard]] CGRect mirrored(const CGRect& rect, CGFloat width) const;

  UITableViewCellStyle style_;
  std::string reuseIdentifier_;
  std::shared_ptr<UIView> contentView_;
  std::shared_ptr<UIView> selectedBackgroundView_;
  std::shared_ptr<UILabel> textLabel_;
  std::shared_ptr<UILabel> detailTextLabel_;
  std::shared_ptr<UIImageView> imageView_;
  std::shared_ptr<TableAccessoryView> accessory_;
  std::shared_ptr<UIView> accessoryView_;
  std::shared_ptr<TableEditControl> editControl_;
  std::shared_ptr<TableDeleteButton> deleteButton_;
  std::shared_ptr<UIView> topSeparator_;
  std::shared_ptr<UIView> bottomSeparator_;
  // The views whose backgrounds were put aside.
  std::vector<std::weak_ptr<UIView>> cleared_;
  Actions actions_;
  Surroundings surroundings_;
  std::unique_ptr<UIColor> ownBackground_;
  UIEdgeInsets separatorInset_{0, -1, 0, 0};
  std::string accessoryName_;
  std::int64_t indentationLevel_ = 0;
  CGFloat deletionOffset_ = 0;
  UITableViewCellAccessoryType accessoryType_ = UITableViewCellAccessoryType::kNone;
  UITableViewCellSelectionStyle selectionStyle_ = UITableViewCellSelectionStyle::kDefault;
  bool highlighted_ = false;
  bool selected_ = false;
  bool selectionShown_ = false;
  bool editing_ = false;
};

}  // namespace zephyl
