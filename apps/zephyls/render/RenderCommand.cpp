#include "apps/zephyls/render/RenderCommand.h"

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <sstream>
#include <system_error>
#include <vector>

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include "apps/common/CommandError.h"
#include "apps/common/Places.h"
#include "apps/zephyls/Output.h"
#include "apps/zephyls/render/Renderer.h"
#include "apps/zephyls/render/Specimens.h"
#include "hosts/linux/FileContents.h"
#include "hosts/linux/Languages.h"

namespace zephyl::app {

namespace {

namespace fs = std::filesystem;
using render::Renderer;
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

int listSpecimens(Output& output) {
  std::vector<Row> rows;
  for (const Specimen& specimen : render::allSpecimens()) {
    if (output.isJson()) {
      output.object({{"name", specimen.name}, {"help", specimen.help}});
    } else {
      rows.push_back({{std::string(specimen.name), Style::kBold}, {std::string(specimen.help)}});
    }
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
  std::string message = "there is no component \"" + name + "\"; there are:";
  for (const Specimen& specimen : render::allSpecimens()) {
    message.append(" ").append(specimen.name);
  }
  throw CommandError(message, kWrongUsage);
}

render::RenderSettings settingsFor(const Options& options) {
  render::RenderSettings settings;
  settings.scale = options.render.scale;
  settings.dark = options.render.dark;
  settings.rightToLeft = options.render.rightToLeft;
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

// Where each goes: the file that was named, or one of its name in the folder that was.
class Destination {
 public:
  Destination(const RenderWishes& wishes, bool several)
      : path_(wishes.file), suffix_(wishes.tree ? ".txt" : ".png") {
    std::error_code error;
    isFolder_ = several || fs::is_directory(path_, error);
    if (several) {
      makeFolder();
    }
  }

  void write(std::string_view name, const std::string& content) const {
    fs::path file = path_;
    if (isFolder_) {
      file /= std::string(name).append(suffix_);
    }
    if (const auto failure = linux_host::replaceFile(file.string(), content)) {
      throw CommandError(file.string() + ": " + *failure);
    }
  }

 private:
  void makeFolder() const {
    std::error_code error;
    fs::create_directories(path_, error);
    if (error || !fs::is_directory(path_, error)) {
      throw CommandError("cannot make the folder " + path_.string() +
                         (error ? ": " + error.message() : ": there is a file of that name"));
    }
  }

  fs::path path_;
  std::string suffix_;
  bool isFolder_ = false;
};

int renderComponents(const Options& options, Output& output) {
  const RenderWishes& wishes = options.render;
  if (wishes.component.empty()) {
    return listSpecimens(output);
  }
  const std::vector<Specimen> chosen = chosenSpecimens(wishes.component);
  const bool prints = wishes.tree && wishes.file.empty();
  if (wishes.file.empty() && !wishes.tree) {
    throw CommandError(wishes.component == kAll ? "say with -o into which folder the pictures go"
                                                : "say with -o into which file the picture goes",
                       kWrongUsage);
  }
  Renderer renderer(settingsFor(options));
  if (prints) {
    for (const Specimen& specimen : chosen) {
      printTree(output, renderer.tree(specimen));
    }
    return kSuccess;
  }
  const Destination destination(wishes, wishes.component == kAll);
  for (const Specimen& specimen : chosen) {
    destination.write(specimen.name,
                      wishes.tree ? renderer.tree(specimen) : renderer.png(specimen));
  }
  return kSuccess;
}

}  // namespace

void addRenderCommand(CLI::App& program, RenderWishes& wishes, ScreenCommand& chosen) {
  CLI::App& command = *program.add_subcommand(
      "render", "a picture of a component of the screens, in all its states");
  command.fallthrough();
  command.parse_complete_callback([&chosen] { chosen = renderComponents; });
  command.add_option("COMPONENT", wishes.component,
                     "as `zephyls render` lists them, or \"all\" for one file each");
  command.add_option("-o,--output", wishes.file,
                     "the file, or for several the folder; made if it is missing, replaced if it "
                     "is there");
  command.add_option("--scale", wishes.scale, "pixels a point (default: 2)")
      ->type_name("N")
      ->check(CLI::Validator(whyNoScale, ""));
  command.add_flag("--dark", wishes.dark, "in dark appearance");
  command.add_flag("--rtl", wishes.rightToLeft, "from right to left");
  command.add_flag("--tree", wishes.tree,
                   "the views as text instead; on the standard output without -o");
}

}  // namespace zephyl::app
