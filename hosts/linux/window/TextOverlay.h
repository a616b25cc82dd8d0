// Typing into text fields: while a field is typed into, a line editor of Qt's lies over its text,
// so that input methods, selection, undo and the clipboard are those of the desktop. Main thread.

#pragma once

#include <QPointer>
#include <memory>

#include "platform/uikit/TextInput.h"

class QLineEdit;
class QWidget;

namespace zephyl::linux_host {

class TextOverlay : public TextInput {
 public:
  TextOverlay();
  ~TextOverlay() override;
  TextOverlay(const TextOverlay&) = delete;
  TextOverlay& operator=(const TextOverlay&) = delete;

  // The widget that shows the window, and its pixels of Qt's a point. Until one is given, and when
  // it is gone, nothing is shown and nothing can be typed.
  void showIn(QWidget* widget, double zoom);

  void begin(TextInputClient& client) override;
  void update(TextInputClient& client) override;
  void end(TextInputClient& client) override;
  // The editor does, where there is a widget to show it in.
  bool drawsText() override;

 private:
  class Editor;

  void place();

  QPointer<QWidget> widget_;
  double zoom_ = 1;
  TextInputClient* client_ = nullptr;
  QPointer<Editor> editor_;
};

}  // namespace zephyl::linux_host
