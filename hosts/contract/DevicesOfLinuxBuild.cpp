#include "hosts/contract/DeviceUnderTest.h"

namespace zephyl::contract {

std::vector<DeviceMaker> devicesUnderTest() {
  return {fakeDeviceMaker(), linuxDeviceMaker()};
}

}  // namespace zephyl::contract
