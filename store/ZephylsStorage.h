// What the store keeps its groups in, and the bundle of its texts and pictures.
//
// Every call runs on the caller's thread; a request to the message center blocks it.

#pragma once

#include <memory>
#include <optional>

#include "platform/Export.h"
#include "platform/Published.h"
#include "platform/foundation/NSBundle.h"
#include "platform/foundation/Value.h"

namespace zephyl {

class ZP_EXPORT ZephylsStorage {
 public:
  ZephylsStorage(const ZephylsStorage&) = delete;
  ZephylsStorage& operator=(const ZephylsStorage&) = delete;

  // The dictionaries of the groups file, from the file itself or through the message center;
  // nothing when there is none or it cannot be read. Elements of other types are left in.
  [[nodiscard]] std::optional<Array> getAllGroups();

  // `groups` becomes the whole file. Kept: written in place, not atomically.
  bool saveGroupsDataToDisk(const Array& groups);

  // Null while there is no such bundle; asked again on the next call.
  [[nodiscard]] std::shared_ptr<NSBundle> zephylsBundle();

 protected:
  ZephylsStorage() = default;
  ~ZephylsStorage() = default;

 private:
  Published<NSBundle> zephylsBundle_;
};

}  // namespace zephyl
