// What is typed into, and labels.

#include <memory>
#include <string>

#include "platform/uikit/controllers/UISearchBar.h"
#include "platform/uikit/text/UITextField.h"

#include "apps/zephyls/render/Stage.h"
#include "apps/zephyls/render/StagedComponents.h"
#include "ui/components/ZPFloatingLabeledTextField.h"
#include "ui/components/ZPLabel.h"

namespace zephyl::app::render {

namespace {

constexpr CGFloat kWide = Stage::kWidth - 32;

// An edge, so that it is seen where the field ends.
void outline(UIView& view) {
  view.layer()->setBorderWidth(0.5);
  view.layer()->setBorderColor(UIColor::separatorColor());
}

std::shared_ptr<ZPFloatingLabeledTextField> addFloating(Stage& stage, const std::string& caption,
                                                        const std::string& text,
                                                        NSTextAlignment alignment) {
  auto field = std::make_shared<ZPFloatingLabeledTextField>();
  field->setTextAlignment(alignment);
  stage.add(caption, field, {kWide, 44});
  field->setPlaceholder("Group title");
  field->setText(text);
  outline(*field);
  return field;
}

std::shared_ptr<UITextField> addField(Stage& stage, const std::string& caption,
                                      const std::string& text) {
  auto field = std::make_shared<UITextField>();
  field->setPlaceholder("Title");
  field->setText(text);
  field->setBorderStyle(UITextBorderStyle::kRoundedRect);
  stage.add(caption, field, {kWide, 34});
  return field;
}

}  // namespace

void stageFloatingField(Stage& stage) {
  addFloating(stage, "empty", "", NSTextAlignment::kLeft);
  addFloating(stage, "text", "Family", NSTextAlignment::kLeft);
  addFloating(stage, "centred", "Family", NSTextAlignment::kCenter);
  addFloating(stage, "centred, empty", "", NSTextAlignment::kCenter);
  addFloating(stage, "right", "Family", NSTextAlignment::kRight);
  addFloating(stage, "natural, another script", "\xD7\x9E\xD7\xA9\xD7\xA4\xD7\x97\xD7\x94",
              NSTextAlignment::kNatural);
  addFloating(stage, "long", "A title that is so long that it does not fit into the field at all",
              NSTextAlignment::kLeft)
      ->setClearButtonMode(UITextFieldViewMode::kAlways);
  const auto padded = addFloating(stage, "padding of 4, red", "Family", NSTextAlignment::kLeft);
  padded->setFloatingLabelYPadding(4);
  padded->setFloatingLabelTextColor(UIColor::redColor());
  const auto typed = addFloating(stage, "typed into", "Family", NSTextAlignment::kLeft);
  stage.then([typed](UIWindow&) { typed->becomeFirstResponder(); });
}

void stageTextField(Stage& stage) {
  addField(stage, "empty", "");
  addField(stage, "text", "Family");
  addField(stage, "clear button", "Family")->setClearButtonMode(UITextFieldViewMode::kAlways);
  addField(stage, "disabled", "Family")->setEnabled(false);
  addField(stage, "right", "Family")->setTextAlignment(NSTextAlignment::kRight);
  addField(stage, "plain", "Family")->setBorderStyle(UITextBorderStyle::kNone);
  const auto typed = addField(stage, "typed into", "Family");
  typed->setClearButtonMode(UITextFieldViewMode::kWhileEditing);
  stage.then([typed](UIWindow&) { typed->becomeFirstResponder(); });
}

void stageSearchBar(Stage& stage) {
  const auto add = [&stage](const std::string& caption, const std::string& text, bool cancel) {
    auto bar = std::make_shared<UISearchBar>();
    bar->setText(text);
    bar->setShowsCancelButton(cancel);
    stage.add(caption, bar, {Stage::kWidth, bar->sizeThatFits({Stage::kWidth, 0}).height});
    return bar;
  };
  add("empty", "", false);
  add("text", "Larkspur", false);
  const auto searching = add("searching", "Larkspur", true);
  stage.then([searching](UIWindow&) { searching->becomeFirstResponder(); });
}

void stageLabel(Stage& stage) {
  struct Case {
    const char* caption;
    NSTextAlignment alignment;
    int lines;
  };
  const std::string text =
      "Conversations of this group are not shown in the groups that are there by default.";
  for (const Case& each : {Case{"padded, many lines", NSTextAlignment::kNatural, 0},
                           Case{"centred", NSTextAlignment::kCenter, 0},
                           Case{"right, one line", NSTextAlignment::kRight, 1}}) {
    const auto label = std::make_shared<ZPLabel>();
    label->setFont(UIFont::systemFontOfSize(13));
    label->setTextColor(UIColor::secondaryLabelColor());
    label->setNumberOfLines(each.lines);
    label->setTextAlignment(each.alignment);
    label->setText(text);
    outline(*label);
    stage.add(each.caption, label, {kWide, 44});
  }
}

}  // namespace zephyl::app::render
