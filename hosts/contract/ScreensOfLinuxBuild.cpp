#include "hosts/contract/ScreenUnderTest.h"

namespace zephyl::contract {

std::vector<ScreenMaker> screensUnderTest() {
  return {fakeScreenMaker(), linuxScreenMaker()};
}

}  // namespace zephyl::contract
