#include "platform/foundation/SystemLog.h"

#include "platform/Host.h"

namespace zephyl {

void logError(const std::string& message, std::source_location place) {
  host().systemLog().log(std::string(kErrorPrefix)
                             .append(place.function_name())
                             .append(", [Line ")
                             .append(std::to_string(place.line()))
                             .append(kErrorPlaceEnd)
                             .append(message));
}

}  // namespace zephyl
