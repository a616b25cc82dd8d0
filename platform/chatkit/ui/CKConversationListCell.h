// A row of a list of conversations: who, the last text, when, and a dot while something is unread.
// Main thread.

#pragma once

#include <memory>
#include <string>

#include "platform/chatkit/CKConversation.h"
#include "platform/chatkit/ui/CKContactPictures.h"
#include "platform/uikit/tables/UITableViewCell.h"

namespace zephyl {

class CKAvatarView;

class ZP_EXPORT CKConversationListCell : public UITableViewCell {
 public:
  static constexpr CGFloat kHeight = 76;

  explicit CKConversationListCell(const std::string& reuseIdentifier);
  ~CKConversationListCell() override;

  // `now`, in seconds since 1970, is what the time is told by. Null shows nothing.
  void setConversation(const CKConversationRef& conversation, double now,
                       const std::shared_ptr<CKContactPictures>& pictures);
  [[nodiscard]] const CKConversationRef& conversation() const { return conversation_; }

  [[nodiscard]] const std::shared_ptr<CKAvatarView>& avatarView() const { return avatarView_; }
  [[nodiscard]] const std::shared_ptr<UILabel>& fromLabel() const { return fromLabel_; }
  [[nodiscard]] const std::shared_ptr<UILabel>& summaryLabel() const { return summaryLabel_; }
  [[nodiscard]] const std::shared_ptr<UILabel>& dateLabel() const { return dateLabel_; }
  [[nodiscard]] const std::shared_ptr<UIView>& unreadIndicator() const { return unreadIndicator_; }

  void layoutSubviews() override;
  [[nodiscard]] CGSize sizeThatFits(CGSize size) const override { return {size.width, kHeight}; }
  [[nodiscard]] const char* className() const override { return "CKConversationListCell"; }

 protected:
  // "Unread" where it is, then what the row shows.
  [[nodiscard]] std::string derivedAccessibilityLabel() const override;

 private:
  CKConversationRef conversation_;
  std::shared_ptr<CKAvatarView> avatarView_;
  std::shared_ptr<UILabel> fromLabel_;
  std::shared_ptr<UILabel> summaryLabel_;
  std::shared_ptr<UILabel> dateLabel_;
  std::shared_ptr<UIView> unreadIndicator_;
};

}  // namespace zephyl
