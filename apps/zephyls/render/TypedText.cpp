#include "apps/zephyls/render/TypedText.h"

#include <QString>
#include <QTextBoundaryFinder>
#include <algorithm>

#include "platform/uikit/TextInput.h"

namespace zephyl::app::render {

void TypedText::follow(TextInputClient& client) {
  std::string text = client.textInputText();
  if (client_ != &client || text != text_) {
    client_ = &client;
    text_ = std::move(text);
    caret_ = text_.size();
    anchor_ = caret_;
  }
}

void TypedText::type(TextInputClient& client, const std::string& text) {
  follow(client);
  replaceMarked(client, text);
}

void TypedText::replaceMarked(TextInputClient& client, const std::string& text) {
  const std::size_t from = std::min(caret_, anchor_);
  text_.replace(from, std::max(caret_, anchor_) - from, text);
  caret_ = from + text.size();
  anchor_ = caret_;
  // By a copy: the field may tell who asks this for its text.
  const std::string changed = text_;
  client.textInputDidChange(changed);
}

void TypedText::moveTo(std::size_t place, bool marks) {
  caret_ = place;
  anchor_ = marks ? anchor_ : place;
}

std::size_t TypedText::before(std::size_t place) const {
  const QString text = QString::fromStdString(text_.substr(0, place));
  QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
  finder.toEnd();
  const qsizetype at = finder.toPreviousBoundary();
  return at < 0 ? 0 : static_cast<std::size_t>(text.left(at).toUtf8().size());
}

std::size_t TypedText::after(std::size_t place) const {
  const QString text = QString::fromStdString(text_.substr(place));
  QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
  const qsizetype at = finder.toNextBoundary();
  return at < 0 ? text_.size() : place + static_cast<std::size_t>(text.left(at).toUtf8().size());
}

bool TypedText::move(const UIKeyPress& key) {
  const bool collapses = caret_ != anchor_ && !key.shift;
  switch (key.key) {
    case UIKey::kHome:
      moveTo(0, key.shift);
      return true;
    case UIKey::kEnd:
      moveTo(text_.size(), key.shift);
      return true;
    case UIKey::kLeft:
      moveTo(collapses ? std::min(caret_, anchor_) : before(caret_), key.shift);
      return true;
    case UIKey::kRight:
      moveTo(collapses ? std::max(caret_, anchor_) : after(caret_), key.shift);
      return true;
    default:
      return false;
  }
}

bool TypedText::press(TextInputClient& client, const UIKeyPress& key) {
  follow(client);
  if (key.control && (key.characters == "A" || key.characters == "a")) {
    anchor_ = 0;
    caret_ = text_.size();
    return true;
  }
  if (key.control) {
    return false;
  }
  if (key.key == UIKey::kSpace) {
    replaceMarked(client, " ");
    return true;
  }
  if (key.key == UIKey::kBackspace || key.key == UIKey::kDelete) {
    if (caret_ == anchor_) {
      anchor_ = key.key == UIKey::kBackspace ? before(caret_) : after(caret_);
    }
    if (caret_ != anchor_) {
      replaceMarked(client, "");
    }
    return true;
  }
  return move(key);
}

}  // namespace zephyl::app::render
