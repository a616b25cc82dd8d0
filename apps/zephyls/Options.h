// What the user asked for, as the command line gives it.

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/uikit/UIDevice.h"

#include "apps/common/SourceOptions.h"
#include "apps/zephyls/render/ScriptStep.h"

namespace zephyl::app {

// What `groups create` and `groups edit` are to make of a group; nothing: as it is.
struct GroupWishes {
  std::optional<std::string> title;
  std::optional<std::string> subTitle;
  std::optional<std::string> colour;   // as typed; "none" for no colour
  std::optional<std::string> picture;  // a file; "none" for no picture
  std::optional<std::string> maskedText;
  std::optional<bool> isProtected;
  std::optional<bool> hides;
  std::optional<bool> masks;
  std::optional<bool> enabled;
};

// What `render` is to make.
struct RenderWishes {
  std::string component;  // or a screen, or "all"; empty: a list of them
  std::string file;       // or, for several, a folder
  double scale = 2;
  bool dark = false;
  bool rightToLeft = false;
  bool tree = false;

  // Of screens.
  std::vector<render::ScriptStep> steps;
  std::optional<std::string> conversation;  // a GUID, name or address
  std::optional<std::string> group;         // a title or an identifier
};

struct Options {
  SourceOptions sources;
  std::string iosVersion = "14.0";
  UIUserInterfaceIdiom idiom = UIUserInterfaceIdiom::kPhone;
  std::optional<bool> biometrics;    // nothing: what this machine has
  bool namesMachinesReader = false;  // that this was said, and is not only the default
  std::optional<std::string> language;
  bool json = false;

  // The command's own arguments.
  std::optional<std::string> group;  // a title or an identifier
  std::string guid;                  // of a conversation
  std::vector<std::string> words;    // to search for
  std::string key;                   // of a setting
  std::string value;
  std::vector<std::string> groups;  // titles or identifiers, to be changed or exported
  GroupWishes wishes;
  RenderWishes render;
  std::vector<std::string> people;  // who becomes a member, or is one no longer
  std::string copy;                 // a safety copy's name, or "last"
  std::string file;                 // to export to or import from; "-" for the standard streams
  std::optional<bool> replaces;  // whether an import takes the place of the groups that are there
  bool dryRun = false;
  bool force = false;
  bool yes = false;
};

}  // namespace zephyl::app
