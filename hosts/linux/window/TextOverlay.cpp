#include "hosts/linux/window/TextOverlay.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPalette>

#include "platform/uikit/UIScreen.h"
#include "platform/uikit/UIView.h"

#include "hosts/linux/screen/ScreenColors.h"
#include "hosts/linux/screen/ScreenFonts.h"

namespace zephyl::linux_host {
namespace {

QColor shownColor(const UIColor& color) {
  return screenColor(color, UIScreen::mainScreen().userInterfaceStyle());
}

Qt::Alignment qtAlignment(NSTextAlignment alignment) {
  switch (alignment) {
    case NSTextAlignment::kCenter:
      return Qt::AlignHCenter | Qt::AlignVCenter;
    case NSTextAlignment::kRight:
      return Qt::AlignRight | Qt::AlignAbsolute | Qt::AlignVCenter;
    case NSTextAlignment::kLeft:
      return Qt::AlignLeft | Qt::AlignAbsolute | Qt::AlignVCenter;
    case NSTextAlignment::kNatural:
      break;
  }
  const bool rightToLeft = UIScreen::mainScreen().userInterfaceLayoutDirection() ==
                           UIUserInterfaceLayoutDirection::kRightToLeft;
  return (rightToLeft ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignAbsolute | Qt::AlignVCenter;
}

}  // namespace

// Without frame and background: only text, caret and selection show.
class TextOverlay::Editor : public QLineEdit {
 public:
  Editor(QWidget* parent, TextOverlay& owner) : QLineEdit(parent), owner_(owner) {
    setFrame(false);
    setTextMargins(0, 0, 0, 0);
    setStyleSheet(QStringLiteral("QLineEdit { background: transparent; border: 0; padding: 0; }"));
    setAttribute(Qt::WA_MacShowFocusRect, false);
    connect(this, &QLineEdit::textEdited, this, [this](const QString& typed) {
      if (owner_.client_ != nullptr) {
        owner_.client_->textInputDidChange(typed.toStdString());
      }
    });
    connect(this, &QLineEdit::returnPressed, this, [this] {
      if (owner_.client_ != nullptr) {
        owner_.client_->textInputDidReturn();
      }
    });
  }

 protected:
  // Tab goes to the next field of the phone's window, not to the next widget of the desktop's.
  bool focusNextPrevChild(bool next) override {
    if (owner_.client_ != nullptr) {
      owner_.client_->textInputDidTab(next);
    }
    return true;
  }

 private:
  TextOverlay& owner_;
};

TextOverlay::TextOverlay() = default;

TextOverlay::~TextOverlay() {
  delete editor_.data();
}

void TextOverlay::showIn(QWidget* widget, double zoom) {
  if (widget != widget_) {
    delete editor_.data();
    editor_.clear();
    widget_ = widget;
  }
  zoom_ = zoom;
  if (client_ != nullptr) {
    begin(*client_);
  }
}

void TextOverlay::begin(TextInputClient& client) {
  client_ = &client;
  if (widget_ == nullptr) {
    return;
  }
  if (editor_ == nullptr) {
    editor_ = new Editor(widget_, *this);
  }
  editor_->clear();
  update(client);
  editor_->show();
  editor_->setFocus(Qt::OtherFocusReason);
  editor_->end(false);
}

void TextOverlay::update(TextInputClient& client) {
  if (&client != client_ || editor_ == nullptr) {
    return;
  }
  const QString text = QString::fromStdString(client.textInputText());
  // Setting what is there already would lose the caret and what an input method composes.
  if (editor_->text() != text) {
    editor_->setText(text);
  }
  place();
}

void TextOverlay::end(TextInputClient& client) {
  if (&client != client_) {
    return;
  }
  client_ = nullptr;
  if (editor_ != nullptr) {
    editor_->hide();
    // Keys go to the window again.
    if (widget_ != nullptr) {
      widget_->setFocus(Qt::OtherFocusReason);
    }
  }
}

bool TextOverlay::drawsText() {
  return widget_ != nullptr;
}

void TextOverlay::place() {
  const NSAttributedString::Attributes look = client_->textInputAttributes();
  QFont font = screenFont(look.font);
  font.setPixelSize(std::max(1, qRound(look.font.pointSize() * zoom_)));
  editor_->setFont(font);
  QPalette palette = editor_->palette();
  palette.setColor(QPalette::Text, shownColor(look.color));
  palette.setColor(QPalette::Base, Qt::transparent);
  palette.setColor(QPalette::Highlight,
                   shownColor(client_->textInputView().tintColor().colorWithAlphaComponent(0.3)));
  palette.setColor(QPalette::HighlightedText, shownColor(look.color));
  editor_->setPalette(palette);
  editor_->setAlignment(qtAlignment(client_->textInputAlignment()));
  const CGRect rect = client_->textInputView().convertRectToView(client_->textInputRect(), nullptr);
  editor_->setGeometry(
      QRectF(rect.x() * zoom_, rect.y() * zoom_, rect.width() * zoom_, rect.height() * zoom_)
          .toAlignedRect());
}

}  // namespace zephyl::linux_host
