// The functions that put each component on a stage, by subject.

#pragma once

namespace zephyl::app::render {

class Stage;

// AlertSpecimens.cpp
void stageAlertInformation(Stage& stage);
void stageAlertWarning(Stage& stage);
void stageAlertError(Stage& stage);
void stageAlertTwoButtons(Stage& stage);
void stageAlertThreeButtons(Stage& stage);
void stageAlertLongText(Stage& stage);
void stageActionSheet(Stage& stage);
void stageBusy(Stage& stage);
void stageBusyTitle(Stage& stage);
void stageBusyDetail(Stage& stage);

// BadgeSpecimens.cpp
void stageBadge(Stage& stage);
void stageBadgePositions(Stage& stage);

// CellSpecimens.cpp
void stageRowCell(Stage& stage);
void stageManagedRowCell(Stage& stage);
void stageTileCell(Stage& stage);

// ColorSpecimens.cpp
void stageColorMap(Stage& stage);
void stageColorCursors(Stage& stage);
void stageBrightnessSlider(Stage& stage);
void stageColorInfo(Stage& stage);
void stageColorPicker(Stage& stage);
void stageColorPickerScreen(Stage& stage);

// ControlSpecimens.cpp
void stageSwitches(Stage& stage);
void stageSegments(Stage& stage);
void stageButtons(Stage& stage);
void stageActivityIndicators(Stage& stage);

// FieldSpecimens.cpp
void stageFloatingField(Stage& stage);
void stageTextField(Stage& stage);
void stageLabel(Stage& stage);
void stageSearchBar(Stage& stage);

// NavigationSpecimens.cpp
void stageNavigationRoot(Stage& stage);
void stageNavigationPushed(Stage& stage);
void stageNavigationLong(Stage& stage);
void stageNavigationModal(Stage& stage);
void stageSheet(Stage& stage);

// TableSpecimens.cpp
void stageTablePlain(Stage& stage);
void stageTableGrouped(Stage& stage);
void stageTableScrolled(Stage& stage);
void stageTableIndexed(Stage& stage);
void stageTableDeleting(Stage& stage);
void stageTableTicking(Stage& stage);
void stageTableSwiped(Stage& stage);
void stageTableRefreshing(Stage& stage);
void stageTableEmpty(Stage& stage);

}  // namespace zephyl::app::render
