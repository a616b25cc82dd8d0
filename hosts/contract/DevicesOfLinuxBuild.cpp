#include "hosts/contract/DeviceUnderTest.h"

namespace zephyl::contract {

std::vector<DeviceMaker> devicesUnderTest() {
  return {fakeDeviceMaker(), linuxDeviceMaker()};
}

std::vector<DeviceMaker> messagingDevicesUnderTest() {
  return {fakeDeviceMaker(), linuxDeviceMaker(), linuxOverBusDeviceMaker()};
}

}  // namespace zephyl::contract
