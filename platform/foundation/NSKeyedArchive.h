// Keyed archives of property-list values and images: the data that messages between processes
// carry. Pure functions, any thread.
//
// Dictionaries, arrays, strings, data, numbers, dates and nulls are archived in the phone's layout:
// a binary property list of {"$version", "$archiver", "$top": {"root": reference}, "$objects"}. An
// image is an object of our own form, {"$class": UIImage, "UIImageData": bytes of its file}: both
// ends of every message with an image are ours, and the phone's own form is no matter of files.

#pragma once

#include "platform/Export.h"
#include "platform/foundation/PropertyList.h"
#include "platform/foundation/Value.h"
#include "platform/uikit/UIImage.h"

namespace zephyl {

// An image as a part of a value that is archived: {"$class": "UIImage", "UIImageData": bytes}.
[[nodiscard]] ZP_EXPORT Value archivableImage(const UIImage& image);

// The image that a value archived in this way stands for; null for every other value.
[[nodiscard]] ZP_EXPORT UIImageRef imageOfValue(const Value& value);

// Empty, and never an archive, when the value holds a `Uid`, text that is not UTF-8, a date outside
// the years 0 to 9999 or more than 512 containers inside one another.
[[nodiscard]] ZP_EXPORT Data archivedData(const Value& root);
[[nodiscard]] ZP_EXPORT Data archivedImage(const UIImage& image);

// The root object, with an image in it as `archivableImage` makes it; or why there is none. Reading
// is bounded as that of property lists is, whatever the bytes are.
[[nodiscard]] ZP_EXPORT PropertyListResult unarchivedValue(const Data& archive);

// Null when the bytes are not an archive whose root is an image.
[[nodiscard]] ZP_EXPORT UIImageRef unarchivedImage(const Data& archive);

}  // namespace zephyl
