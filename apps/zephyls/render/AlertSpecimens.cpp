// Alerts, choices and busy boxes over a screen.

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/uikit/controllers/UIAlertController.h"
#include "platform/uikit/controllers/UINavigationController.h"
#include "platform/uikit/text/UILabel.h"

#include "apps/zephyls/render/Stage.h"
#include "apps/zephyls/render/StagedComponents.h"
#include "services/UIViewControllerZephyls.h"

namespace zephyl::app::render {

namespace {

using Screen = std::shared_ptr<UIViewController>;

constexpr CGSize kSize{Stage::kWidth, 420};

// A screen in a navigation controller, with something to be dimmed.
Screen stageScreen(Stage& stage) {
  auto screen = std::make_shared<UIViewController>();
  screen->setTitle("Groups");
  screen->view()->setBackgroundColor(UIColor::systemBackgroundColor());
  const auto label = std::make_shared<UILabel>(CGRectMake(16, 60, Stage::kWidth - 32, 22));
  label->setText("What is behind the box");
  screen->view()->addSubview(label);
  stage.show(UINavigationController::initWithRootViewController(screen), kSize);
  return screen;
}

struct Answer {
  const char* title;
  UIAlertActionStyle style = UIAlertActionStyle::kDefault;
};

void stageBox(Stage& stage, const std::string& title, const std::string& message,
              const std::vector<Answer>& answers,
              UIAlertControllerStyle style = UIAlertControllerStyle::kAlert) {
  const Screen screen = stageScreen(stage);
  const auto alert = UIAlertController::alertControllerWithTitle(title, message, style);
  for (const Answer& answer : answers) {
    alert->addAction(UIAlertAction::actionWithTitle(answer.title, answer.style, nullptr));
  }
  stage.then(
      [screen, alert](UIWindow&) { screen->presentViewController(alert, /*animated=*/false); });
}

std::string longText() {
  std::string text;
  for (int line = 0; line < 12; ++line) {
    text.append("The conversations of this group are kept together, whoever wrote them. ");
  }
  return text;
}

}  // namespace

void stageAlertInformation(Stage& stage) {
  const Screen screen = stageScreen(stage);
  stage.then([screen](UIWindow&) { zp__showInformation(screen, "The group was saved."); });
}

void stageAlertWarning(Stage& stage) {
  const Screen screen = stageScreen(stage);
  stage.then([screen](UIWindow&) { zp__showWarning(screen, "Please enter the group title."); });
}

void stageAlertError(Stage& stage) {
  const Screen screen = stageScreen(stage);
  stage.then([screen](UIWindow&) {
    zp__showError(screen, "The group could not be saved since the disk is full.");
  });
}

void stageAlertTwoButtons(Stage& stage) {
  stageBox(stage, "Delete Group?", "Its conversations stay.",
           {{"Cancel", UIAlertActionStyle::kCancel}, {"Delete", UIAlertActionStyle::kDestructive}});
}

void stageAlertThreeButtons(Stage& stage) {
  stageBox(stage, "Add Members", "Whom do you want to add?",
           {{"From Contacts"}, {"From Messages"}, {"Cancel", UIAlertActionStyle::kCancel}});
}

void stageAlertLongText(Stage& stage) {
  stageBox(stage, "A title that takes more than one line of the box", longText(), {{"OK"}});
}

void stageActionSheet(Stage& stage) {
  stageBox(stage, "", "Change the picture of this group",
           {{"Take Photo"},
            {"Choose Photo"},
            {"Remove Photo", UIAlertActionStyle::kDestructive},
            {"Cancel", UIAlertActionStyle::kCancel}},
           UIAlertControllerStyle::kActionSheet);
}

void stageBusy(Stage& stage) {
  const Screen screen = stageScreen(stage);
  stage.then([screen](UIWindow&) { zp__showActivityIndicator(screen); });
}

void stageBusyTitle(Stage& stage) {
  const Screen screen = stageScreen(stage);
  stage.then([screen](UIWindow&) { zp__showActivityIndicator(screen, "Updating"); });
}

void stageBusyDetail(Stage& stage) {
  const Screen screen = stageScreen(stage);
  stage.then(
      [screen](UIWindow&) { zp__showActivityIndicator(screen, "Deleting", "Please wait..."); });
}

}  // namespace zephyl::app::render
