#include "apps/zephyls/EditingTest.h"

#include "apps/zephyls/Base64.h"

namespace zephyl::app::test {

namespace {

std::string bytesOf(const char* text) {
  const auto bytes = bytesOfBase64(text);
  return bytes ? std::string(bytes->begin(), bytes->end()) : std::string();
}

}  // namespace

std::string onePixelPng() {
  return bytesOf(
      "iVBORw0KGgoAAAANSUhEUgAAAAEAAAABCAIAAACQd1PeAAAADElEQVR4nGP438AAAAQBAYDFKhhdAAAAAElFTkSuQmC"
      "C");
}

std::string onePixelBmp() {
  return bytesOf(
      "Qk06AAAAAAAAADYAAAAoAAAAAQAAAAEAAAABABgAAAAAAAQAAAATCwAAEwsAAAAAAAAAAAAAAID/AA==");
}

}  // namespace zephyl::app::test
