#include "hosts/linux/window/TextOverlay.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <vector>

#include "hosts/linux/window/WindowTest.h"

namespace zephyl::linux_host {
namespace {

class Client : public TextInputClient {
 public:
  explicit Client(UIView& view) : view_(view) {}
  [[nodiscard]] UIView& textInputView() override { return view_; }
  [[nodiscard]] CGRect textInputRect() const override { return CGRectMake(5, 2, 100, 20); }
  [[nodiscard]] NSAttributedString::Attributes textInputAttributes() const override {
    return {UIFont::systemFontOfSize(15), UIColor::redColor()};
  }
  [[nodiscard]] NSTextAlignment textInputAlignment() const override {
    return NSTextAlignment::kRight;
  }
  [[nodiscard]] std::string textInputText() const override { return text; }
  [[nodiscard]] UIReturnKeyType textInputReturnKey() const override {
    return UIReturnKeyType::kDone;
  }
  void textInputDidChange(const std::string& typed) override {
    text = typed;
    typings.push_back(typed);
  }
  void textInputDidReturn() override { ++returns; }
  void textInputDidTab(bool forwards) override { tabs.push_back(forwards); }

  std::string text = "Wo";
  std::vector<std::string> typings;
  int returns = 0;
  std::vector<bool> tabs;

 private:
  UIView& view_;
};

class TextOverlayTest : public WindowTest {
 protected:
  TextOverlayTest() { window_->addSubview(field_); }

  [[nodiscard]] QLineEdit* editor() const {
    auto* const found = phone_->findChild<QLineEdit*>();
    return found == nullptr || found->isHidden() ? nullptr : found;
  }

  void type(const QString& text, int key = Qt::Key_A) {
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
    QCoreApplication::sendEvent(editor(), &event);
  }

  std::shared_ptr<UIView> field_ = std::make_shared<UIView>(CGRectMake(10, 40, 150, 30));
  Client client_{*field_};
};

TEST_F(TextOverlayTest, LiesOverTheTextAsTheFieldShowsIt) {
  show();
  typing_->begin(client_);
  ASSERT_NE(editor(), nullptr);
  EXPECT_EQ(editor()->geometry(), QRect(15, 42, 100, 20));
  EXPECT_EQ(editor()->text(), QStringLiteral("Wo"));
  EXPECT_EQ(editor()->font().pixelSize(), 15);
  EXPECT_EQ(editor()->palette().color(QPalette::Text), QColor(255, 0, 0));
  EXPECT_TRUE(editor()->alignment().testFlag(Qt::AlignRight));
}

TEST_F(TextOverlayTest, EveryLetterReachesTheField) {
  show();
  typing_->begin(client_);
  type(QStringLiteral("r"));
  type(QStringLiteral("k"));
  EXPECT_EQ(client_.typings, (std::vector<std::string>{"Wor", "Work"}));
}

TEST_F(TextOverlayTest, ReturnAndTabAreTheFields) {
  show();
  typing_->begin(client_);
  type({}, Qt::Key_Return);
  type({}, Qt::Key_Tab);
  EXPECT_EQ(client_.returns, 1);
  EXPECT_EQ(client_.tabs, std::vector<bool>{true});
}

TEST_F(TextOverlayTest, AnUpdateWithTheTextThatIsThereKeepsTheCaret) {
  show();
  typing_->begin(client_);
  editor()->setCursorPosition(1);
  typing_->update(client_);
  EXPECT_EQ(editor()->cursorPosition(), 1);
  client_.text = "Home";
  typing_->update(client_);
  EXPECT_EQ(editor()->text(), QStringLiteral("Home"));
}

TEST_F(TextOverlayTest, EndingHidesItAndKeysGoToTheWindow) {
  show();
  typing_->begin(client_);
  Client other(*field_);
  typing_->end(other);
  EXPECT_NE(editor(), nullptr);
  typing_->end(client_);
  EXPECT_EQ(editor(), nullptr);
}

TEST_F(TextOverlayTest, WhatBeganBeforeTheWindowIsTypedIntoOnceThereIsOne) {
  typing_->begin(client_);
  show();
  ASSERT_NE(editor(), nullptr);
  EXPECT_EQ(editor()->text(), QStringLiteral("Wo"));
}

TEST_F(TextOverlayTest, AWindowThatGoesTakesTheEditorAlong) {
  show();
  typing_->begin(client_);
  phone_.reset();
  typing_->update(client_);
  typing_->end(client_);
  EXPECT_TRUE(client_.typings.empty());
}

}  // namespace
}  // namespace zephyl::linux_host
