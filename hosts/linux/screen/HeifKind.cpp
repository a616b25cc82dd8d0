#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

#include "hosts/linux/screen/HeifPictures.h"

namespace zephyl::linux_host {

bool isHeif(const Data& file) {
  constexpr std::array<std::string_view, 8> kBrands = {"heic", "heix", "heim", "heis",
                                                       "hevc", "mif1", "msf1", "avif"};
  constexpr std::size_t kMarkAt = 4;
  constexpr std::size_t kBrandAt = 8;
  if (file.size() < kBrandAt + 4) {
    return false;
  }
  const auto* const text = reinterpret_cast<const char*>(file.data());
  const std::string_view brand(text + kBrandAt, 4);
  return std::string_view(text + kMarkAt, 4) == "ftyp" &&
         std::find(kBrands.begin(), kBrands.end(), brand) != kBrands.end();
}

}  // namespace zephyl::linux_host
