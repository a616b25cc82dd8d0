// Who a conversation is with, as a disc: the person's picture, else the initials of the name, else
// the outline of somebody, of two for a group. Main thread.

#pragma once

#include <memory>
#include <string>

#include "platform/chatkit/CKConversation.h"
#include "platform/chatkit/ui/CKContactPictures.h"
#include "platform/uikit/UIView.h"

namespace zephyl {

class UIImageView;
class UILabel;

class ZP_EXPORT CKAvatarView : public UIView {
 public:
  explicit CKAvatarView(const CGRect& frame = {});
  ~CKAvatarView() override;

  // Null shows nobody. A picture comes from `pictures`, later where it must be read first.
  void setConversation(const CKConversationRef& conversation,
                       const std::shared_ptr<CKContactPictures>& pictures);
  // Empty while an outline or a picture is shown.
  [[nodiscard]] const std::string& initials() const { return initials_; }
  [[nodiscard]] UIImageRef picture() const;

  // Of the first and the last word that begin with a letter; empty for a number.
  [[nodiscard]] static std::string initialsOfName(const std::string& name);

  void layoutSubviews() override;
  void drawRect(CGContext& context, const CGRect& rect) override;
  [[nodiscard]] const char* className() const override { return "CKAvatarView"; }
  [[nodiscard]] std::string describe() const override { return initials_; }

 private:
  void show(const UIImageRef& picture);

  CKConversationRef conversation_;
  std::string initials_;
  std::shared_ptr<UIImageView> imageView_;
  std::shared_ptr<UILabel> label_;
};

}  // namespace zephyl
