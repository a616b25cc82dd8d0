#include "apps/zephyls/render/Specimens.h"

#include <algorithm>

#include "apps/zephyls/render/StagedComponents.h"

namespace zephyl::app::render {

const std::vector<Specimen>& allSpecimens() {
  static const std::vector<Specimen> kSpecimens = {
      {"badge", "count badges", stageBadge},
      {"badge-positions", "badges on the edges of a view", stageBadgePositions},
      {"row-cell", "groups as rows", stageRowCell},
      {"row-cell-managing", "groups as rows, managing and choosing", stageManagedRowCell},
      {"tile-cell", "groups as tiles", stageTileCell},
      {"floating-field", "text fields with a floating label", stageFloatingField},
      {"text-field", "text fields", stageTextField},
      {"label", "padded labels", stageLabel},
      {"search-bar", "search bars", stageSearchBar},
      {"color-map", "maps of hue and saturation", stageColorMap},
      {"color-cursors", "cursors of the map and the slider", stageColorCursors},
      {"brightness-slider", "sliders of brightness", stageBrightnessSlider},
      {"color-info", "swatches with the colour as text", stageColorInfo},
      {"color-picker", "a colour picker", stageColorPicker},
      {"color-picker-screen", "the screen that picks a group's colour", stageColorPickerScreen},
      {"switches", "switches", stageSwitches},
      {"segments", "segmented controls", stageSegments},
      {"buttons", "buttons", stageButtons},
      {"activity-indicators", "turning wheels", stageActivityIndicators},
      {"alert-information", "an alert with a message", stageAlertInformation},
      {"alert-warning", "an alert with a warning", stageAlertWarning},
      {"alert-error", "an alert with an error", stageAlertError},
      {"alert-two-buttons", "an alert with two answers side by side", stageAlertTwoButtons},
      {"alert-three-buttons", "an alert with three answers", stageAlertThreeButtons},
      {"alert-long-text", "an alert with a long title and message", stageAlertLongText},
      {"action-sheet", "a list of choices at the lower edge", stageActionSheet},
      {"busy", "the box that says that something goes on", stageBusy},
      {"busy-title", "the same with a title", stageBusyTitle},
      {"busy-detail", "the same with a title and a detail", stageBusyDetail},
      {"navigation-root", "a navigation bar with buttons", stageNavigationRoot},
      {"navigation-pushed", "a navigation bar with a way back", stageNavigationPushed},
      {"navigation-long", "a navigation bar with long titles", stageNavigationLong},
      {"navigation-modal", "a navigation bar to cancel or be done", stageNavigationModal},
      {"sheet", "a screen as a card over another", stageSheet},
      {"table-plain", "a plain table with headers, one row selected", stageTablePlain},
      {"table-grouped", "a grouped table, with each style of rows", stageTableGrouped},
      {"table-scrolled", "a plain table that was scrolled", stageTableScrolled},
      {"table-indexed", "a table with an index of its sections", stageTableIndexed},
      {"table-deleting", "a table whose rows can be deleted", stageTableDeleting},
      {"table-ticking", "a table whose rows are ticked", stageTableTicking},
      {"table-swiped", "a row that was swiped aside", stageTableSwiped},
      {"table-refreshing", "a table that was pulled down", stageTableRefreshing},
      {"table-empty", "a table without rows", stageTableEmpty},
  };
  return kSpecimens;
}

const Specimen* specimenNamed(std::string_view name) {
  const auto& specimens = allSpecimens();
  const auto found =
      std::find_if(specimens.begin(), specimens.end(),
                   [name](const Specimen& specimen) { return specimen.name == name; });
  return found == specimens.end() ? nullptr : &*found;
}

}  // namespace zephyl::app::render
