#include "apps/zephyls/render/RenderDirection.h"

#include "apps/common/TextDirection.h"
#include "apps/zephyls/Options.h"
#include "hosts/linux/Languages.h"

namespace zephyl::app::render {

bool runsFromRightToLeft(const Options& options) {
  return options.render.rightToLeft ||
         textsRunFromRightToLeft(linux_host::preferredLanguages(
             linux_host::languageWishesOfEnvironment(options.language.value_or(""))));
}

}  // namespace zephyl::app::render
