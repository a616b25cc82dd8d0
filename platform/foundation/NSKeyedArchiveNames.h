// The names that keyed archives are made of.

#pragma once

namespace zephyl::detail {

inline constexpr const char* kArchiverName = "NSKeyedArchiver";
inline constexpr int kArchiveVersion = 100000;

inline constexpr const char* kVersionKey = "$version";
inline constexpr const char* kArchiverKey = "$archiver";
inline constexpr const char* kTopKey = "$top";
inline constexpr const char* kRootKey = "root";
inline constexpr const char* kObjectsKey = "$objects";
inline constexpr const char* kClassKey = "$class";
inline constexpr const char* kClassNameKey = "$classname";
inline constexpr const char* kClassesKey = "$classes";

inline constexpr const char* kNull = "$null";
inline constexpr const char* kKeysKey = "NS.keys";
inline constexpr const char* kElementsKey = "NS.objects";
inline constexpr const char* kTimeKey = "NS.time";
inline constexpr const char* kStringKey = "NS.string";
inline constexpr const char* kDataKey = "NS.data";

inline constexpr const char* kImageClass = "UIImage";
inline constexpr const char* kImageDataKey = "UIImageData";

}  // namespace zephyl::detail
