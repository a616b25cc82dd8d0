// The names under which the store tells that groups changed.

#pragma once

namespace zephyl {

// The first three are posted in this process and system-wide, the last in this process only.
// In-process user info, where there is any, has the group under kZephylsKey.
inline constexpr char kZephylAddedNotification[] = "com.vantor.ZephylAddedNotification";
inline constexpr char kZephylChangedNotification[] = "com.vantor.ZephylChangedNotification";
inline constexpr char kZephylDeletedNotification[] = "com.vantor.ZephylDeletedNotification";
inline constexpr char kZephylDataUpdateNotification[] = "com.vantor.ZephylDataUpdateNotification";

// Kept: holds one ZephylRef in spite of its plural.
inline constexpr char kZephylsKey[] = "zephyls";

}  // namespace zephyl
