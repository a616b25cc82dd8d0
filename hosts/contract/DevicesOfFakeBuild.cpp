#include "hosts/contract/DeviceUnderTest.h"

namespace zephyl::contract {

std::vector<DeviceMaker> devicesUnderTest() {
  return {fakeDeviceMaker()};
}

std::vector<DeviceMaker> messagingDevicesUnderTest() {
  return devicesUnderTest();
}

}  // namespace zephyl::contract
