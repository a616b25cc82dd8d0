#include "apps/zephyls/render/RenderCommand.h"

#include <algorithm>
#include <array>
#include <sstream>
#include <string_view>
#include <vector>

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include "apps/common/CommandError.h"
#include "apps/common/Places.h"
#include "apps/common/ReleaseNumber.h"
#include "apps/common/SharedOptions.h"
#include "apps/zephyls/Output.h"
#include "apps/zephyls/render/PictureDestination.h"
#include "apps/zephyls/render/RenderDirection.h"
#include "apps/zephyls/render/Renderer.h"
#include "apps/zephyls/render/ScreenRenderer.h"
#include "apps/zephyls/render/Screens.h"
#include "apps/zephyls/render/Specimens.h"
#include "hosts/linux/Languages.h"

namespace zephyl::app {

namespace {

using render::PictureDestination;
using render::Renderer;
using render::ScriptStep;
using render::Specimen;

constexpr char kAll[] = "all";
constexpr double kSmallestScale = 0.5;
constexpr double kLargestScale = 4;

// Empty for a scale.
std::string whyNoScale(const std::string& text) {
  double scale = 0;
  // A text that is no number is no scale; neither is a number that is none.
  const bool isNumber = CLI::detail::lexical_cast(text, scale);
  if (isNumber && scale >= kSmallestScale && scale <= kLargestScale) {
    return {};
  }
  return "a scale is a number from 0.5 to 4";
}

// Screens first, then components.
int listAll(Output& output) {
  std::vector<Row> rows;
  const auto add = [&](std::string_view name, std::string_view help) {
    if (output.isJson()) {
      output.object({{"name", name}, {"help", help}});
    } else {
      rows.push_back({{std::string(name), Style::kBold}, {std::string(help)}});
    }
  };
  for (const render::Screen& screen : render::allScreens()) {
    add(screen.name, screen.help);
  }
  for (const Specimen& specimen : render::allSpecimens()) {
    add(specimen.name, specimen.help);
  }
  output.table(rows);
  return kSuccess;
}

std::vector<Specimen> chosenSpecimens(const std::string& name) {
  if (name == kAll) {
    return render::allSpecimens();
  }
  if (const Specimen* const specimen = render::specimenNamed(name)) {
    return {*specimen};
  }
  std::string message = "there is no screen or component \"" + name + "\"; there are:";
  for (const render::Screen& screen : render::allScreens()) {
    message.append(" ").append(screen.name);
  }
  for (const Specimen& specimen : render::allSpecimens()) {
    message.append(" ").append(specimen.name);
  }
  throw CommandError(message, kWrongUsage);
}

render::RenderSettings settingsFor(const Options& options) {
  render::RenderSettings settings;
  settings.scale = options.render.scale;
  settings.dark = options.render.dark;
  settings.rightToLeft = render::runsFromRightToLeft(options);
  settings.idiom = options.idiom;
  settings.systemVersion = options.iosVersion;
  settings.languages = linux_host::preferredLanguages(
      linux_host::languageWishesOfEnvironment(options.language.value_or("")));
  settings.overlay = overlayFolder().string();
  return settings;
}

void printTree(Output& output, const std::string& tree) {
  std::istringstream lines(tree);
  for (std::string line; std::getline(lines, line);) {
    output.line(line);
  }
}

int renderScreen(const render::Screen& screen, const Options& options, Output& output) {
  const RenderWishes& wishes = options.render;
  render::ScreenRenderer renderer(options, output);
  renderer.show(screen);
  if (wishes.tree && wishes.file.empty()) {
    printTree(output, renderer.tree());
  } else {
    PictureDestination(wishes, /*several=*/false)
        .write(screen.name, wishes.tree ? renderer.tree() : renderer.png());
  }
  return renderer.exitStatus();
}

// The screens are of the user's own data, and each may want words of its own.
void tellWhatIsLeftOut(Output& output) {
  std::string message = "the screens are left out, since they show your data; render each by name:";
  for (const render::Screen& screen : render::allScreens()) {
    message.append(" ").append(screen.name);
  }
  output.complain(message);
}

int renderComponents(const Options& options, Output& output) {
  const RenderWishes& wishes = options.render;
  const std::vector<Specimen> chosen = chosenSpecimens(wishes.component);
  Renderer renderer(settingsFor(options));
  if (wishes.tree && wishes.file.empty()) {
    for (const Specimen& specimen : chosen) {
      printTree(output, renderer.tree(specimen));
    }
    return kSuccess;
  }
  const PictureDestination destination(wishes, wishes.component == kAll);
  for (const Specimen& specimen : chosen) {
    destination.write(specimen.name,
                      wishes.tree ? renderer.tree(specimen) : renderer.png(specimen));
  }
  if (wishes.component == kAll) {
    tellWhatIsLeftOut(output);
  }
  return kSuccess;
}

// A list is no picture.
void refuseToList(const RenderWishes& wishes) {
  if (!wishes.file.empty() || wishes.tree || !wishes.steps.empty() || wishes.group ||
      wishes.conversation) {
    throw CommandError("say what is to be rendered; `zephyls render` lists what there is",
                       kWrongUsage);
  }
}

void refuseOptionsOfNoUse(const RenderWishes& wishes, const render::Screen* screen) {
  using render::ScreenSubject;
  const ScreenSubject subject = screen == nullptr ? ScreenSubject::kNothing : screen->subject;
  const bool isOfGroup = subject == ScreenSubject::kGroup;
  const bool isOfConversation = subject == ScreenSubject::kConversation;
  if ((wishes.group && !isOfGroup) || (wishes.conversation && !isOfConversation)) {
    const std::string option = wishes.group && !isOfGroup ? "--group" : "--conversation";
    std::string message = "\"" + wishes.component + "\" is not about one ";
    throw CommandError(
        message.append(option.substr(2)).append("; leave ").append(option).append(" out"),
        kWrongUsage);
  }
  if (screen == nullptr && !wishes.steps.empty()) {
    throw CommandError("only screens can be tapped, swiped and typed into", kWrongUsage);
  }
}

int renderWhatIsWished(const Options& options, Output& output) {
  const RenderWishes& wishes = options.render;
  if (wishes.component.empty()) {
    refuseToList(wishes);
    return listAll(output);
  }
  const render::Screen* const screen = render::screenNamed(wishes.component);
  if (screen == nullptr) {
    static_cast<void>(chosenSpecimens(wishes.component));
  }
  refuseOptionsOfNoUse(wishes, screen);
  if (wishes.file.empty() && !wishes.tree) {
    throw CommandError(wishes.component == kAll ? "say with -o into which folder the pictures go"
                                                : "say with -o into which file the picture goes",
                       kWrongUsage);
  }
  Options shown = options;
  if (wishes.dark && !hasDarkAppearance(options.iosVersion)) {
    output.complain("release " + options.iosVersion +
                    " has no dark appearance; it is shown in the light one");
    shown.render.dark = false;
  }
  return screen != nullptr ? renderScreen(*screen, shown, output) : renderComponents(shown, output);
}

// What is done with a screen, in the order of the command line, whatever the kinds.
void addStepOptions(CLI::App& command, RenderWishes& wishes) {
  struct Kind {
    const char* option;
    const char* type;
    const char* help;
    ScriptStep::Kind kind;
  };
  static constexpr auto kKinds = std::to_array<Kind>(
      {{"--tap", "TEXT",
        "tap what is called so; all of these may be given several times, and "
        "are done in their order",
        ScriptStep::Kind::kTap},
       Kind{"--swipe", "TEXT", "swipe what is called so aside", ScriptStep::Kind::kSwipe},
       Kind{"--type", "TEXT", "type into what was tapped", ScriptStep::Kind::kType},
       Kind{"--key", "NAME",
            "press a key: Return, Tab, Down, PageDown...; Ctrl+Z takes the last change of "
            "the groups back, Ctrl+Shift+Z makes it again",
            ScriptStep::Kind::kKey}});
  for (const Kind& kind : kKinds) {
    command
        .add_option_function<std::string>(
            kind.option,
            [&wishes, what = kind.kind](const std::string& text) {
              wishes.steps.push_back({what, text});
            },
            kind.help)
        ->type_name(kind.type)
        ->check(CLI::Validator(whyEmpty, ""))
        ->take_last()
        ->trigger_on_parse();
  }
}

}  // namespace

void addRenderCommand(CLI::App& program, RenderWishes& wishes, ScreenCommand& chosen) {
  CLI::App& command = *program.add_subcommand(
      "render", "a picture of a screen on the user's data, or of a component in all its states");
  command.fallthrough();
  command.parse_complete_callback([&chosen] { chosen = renderWhatIsWished; });
  command
      .add_option("COMPONENT", wishes.component,
                  "a screen or a component, as `zephyls render` lists them, or \"all\" for one "
                  "file for each component; the screens are left out then")
      ->check(CLI::Validator(whyEmpty, ""));
  command
      .add_option("-o,--output", wishes.file,
                  "the PNG file, or for several the folder; made if it is missing, the file "
                  "replaced if it is there; - for the standard output")
      ->check(CLI::Validator(whyEmpty, ""));
  command.add_option("--scale", wishes.scale, "pixels a point (default: 2)")
      ->type_name("N")
      ->check(CLI::Validator(whyNoScale, ""));
  command.add_flag("--dark", wishes.dark, "in dark appearance, which releases have from 13 on");
  command.add_flag("--rtl", wishes.rightToLeft,
                   "from right to left; so are the languages that are written so");
  addStepOptions(command, wishes);
  command
      .add_option("--conversation", wishes.conversation,
                  "what a screen is about: a GUID; a name or address that fits only one will do")
      ->type_name("GUID");
  command.add_option("--group", wishes.group, "the group that a screen is about")
      ->type_name("TITLE|ID");
  command.footer("Screens are those of a copy: whatever is done with them, the groups stay.");
  command.add_flag("--tree", wishes.tree,
                   "the views as text instead; on the standard output without -o");
}

}  // namespace zephyl::app
