#include "platform/chatkit/ui/CKAvatarView.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "platform/Host.h"
#include "platform/addressbook/ABAddressBook.h"
#include "platform/foundation/Utf8.h"
#include "platform/foundation/Utf8Cluster.h"
#include "platform/uikit/text/UIImageView.h"
#include "platform/uikit/text/UILabel.h"

namespace zephyl {
namespace {

// The size of the letters, of the side.
constexpr CGFloat kLetters = 0.42;
// How much is seen of the one behind.
constexpr CGFloat kBehind = 0.6;

// Arabic and its neighbours.
constexpr char32_t kFirstJoining = 0x600;
constexpr char32_t kLastJoining = 0x8FF;

UIColor upperColor() {
  return UIColor::colorWithRed(165.0 / 255, 171.0 / 255, 185.0 / 255, 1);
}

UIColor lowerColor() {
  return UIColor::colorWithRed(133.0 / 255, 137.0 / 255, 148.0 / 255, 1);
}

bool isLetter(char32_t codePoint) {
  const bool isAscii = codePoint < 128;
  return !isAscii || (codePoint >= 'A' && codePoint <= 'Z') ||
         (codePoint >= 'a' && codePoint <= 'z');
}

// The letter or picture that the word begins with, whole; empty for another character.
std::string firstLetter(std::string_view word) {
  const Utf8Character first = utf8CharacterAt(word, 0);
  return first.length == 0 || !isLetter(first.codePoint)
             ? std::string()
             : std::string(word.substr(0, utf8ClusterLength(word, 0)));
}

// The only other one; null for a group and for somebody who is not known.
ABPersonRef personOf(const CKConversation& conversation) {
  const auto& handles = conversation.handles();
  if (conversation.isGroupConversation() || handles.size() != 1 ||
      handles.front().personRecordID() < 1) {
    return nullptr;
  }
  return host().addressBook()->personWithRecordID(handles.front().personRecordID());
}

// Head and shoulders in the middle of a rectangle.
void drawSomebody(CGContext& context, const CGRect& rect, const UIColor& color) {
  const CGFloat side = rect.width();
  const auto part = [&](CGFloat width, CGFloat y, CGFloat height) {
    context.fillEllipse(CGRectMake(rect.midX() - width * side / 2, rect.y() + y * side,
                                   width * side, height * side),
                        color);
  };
  part(0.36, 0.2, 0.38);
  part(0.72, 0.64, 0.6);
}

}  // namespace

CKAvatarView::CKAvatarView(const CGRect& frame)
    : UIView(frame),
      imageView_(std::make_shared<UIImageView>()),
      label_(std::make_shared<UILabel>()) {
  setOpaque(false);
  setClipsToBounds(true);
  label_->setTextColor(UIColor::whiteColor());
  label_->setTextAlignment(NSTextAlignment::kCenter);
  label_->setAdjustsFontSizeToFitWidth(true);
  imageView_->setContentMode(UIViewContentMode::kScaleAspectFill);
  imageView_->setHidden(true);
  addSubview(label_);
  addSubview(imageView_);
}

CKAvatarView::~CKAvatarView() = default;

UIImageRef CKAvatarView::picture() const {
  return imageView_->image();
}

std::string CKAvatarView::initialsOfName(const std::string& name) {
  std::vector<std::string> letters;
  for (std::size_t at = 0; at < name.size();) {
    const std::size_t end = std::min(name.find(' ', at), name.size());
    if (end > at) {
      if (std::string letter = firstLetter(std::string_view(name).substr(at, end - at));
          !letter.empty()) {
        letters.push_back(std::move(letter));
      }
    }
    at = end + 1;
  }
  if (letters.empty()) {
    return {};
  }
  // Letters that join make no initials side by side.
  const char32_t first = utf8CharacterAt(letters.front(), 0).codePoint;
  const bool joins = first >= kFirstJoining && first <= kLastJoining;
  if (letters.size() < 2 || joins) {
    return letters.front();
  }
  return letters.front() + letters.back();
}

void CKAvatarView::setConversation(const CKConversationRef& conversation,
                                   const std::shared_ptr<CKContactPictures>& pictures) {
  conversation_ = conversation;
  const bool isOne = conversation != nullptr && !conversation->isGroupConversation();
  initials_ = isOne ? initialsOfName(conversation->name()) : std::string();
  label_->setText(initials_);
  const ABPersonRef person =
      conversation == nullptr || pictures == nullptr ? nullptr : personOf(*conversation);
  // It may show another conversation by then, or be gone.
  const auto later = [weak = weak_from_this(),
                      shown = std::weak_ptr(conversation)](const UIImageRef& picture) {
    const auto view = std::static_pointer_cast<CKAvatarView>(weak.lock());
    if (view != nullptr && view->conversation_ != nullptr && view->conversation_ == shown.lock()) {
      view->show(picture);
    }
  };
  show(person == nullptr ? nullptr : pictures->pictureOf(person, later));
  setNeedsDisplay();
}

void CKAvatarView::show(const UIImageRef& picture) {
  imageView_->setImage(picture);
  imageView_->setHidden(picture == nullptr);
}

void CKAvatarView::layoutSubviews() {
  const CGFloat side = bounds().width();
  layer()->setCornerRadius(side / 2);
  imageView_->setFrame(bounds());
  label_->setFont(UIFont::systemFontOfSize(side * kLetters, UIFont::Weight::kMedium));
  label_->setFrame(CGRectInset(bounds(), side / 10, 0));
}

void CKAvatarView::drawRect(CGContext& context, const CGRect& rect) {
  context.fillGradient({rect, rect.width() / 2}, {{{0, upperColor()}, {1, lowerColor()}},
                                                  {rect.midX(), rect.y()},
                                                  {rect.midX(), rect.maxY()}});
  if (conversation_ == nullptr || !initials_.empty()) {
    return;
  }
  context.saveState();
  context.clip({rect, rect.width() / 2});
  if (conversation_->isGroupConversation()) {
    const CGFloat side = rect.width() * 0.7;
    const CGFloat y = rect.y() + side * 0.2;
    drawSomebody(context, CGRectMake(rect.x() + rect.width() * 0.02, y, side, side),
                 UIColor::colorWithWhite(1, kBehind));
    drawSomebody(context, CGRectMake(rect.maxX() - rect.width() * 0.02 - side, y, side, side),
                 UIColor::whiteColor());
  } else {
    drawSomebody(context, rect, UIColor::whiteColor());
  }
  context.restoreState();
}

}  // namespace zephyl
