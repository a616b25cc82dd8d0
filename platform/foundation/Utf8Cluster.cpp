#include "platform/foundation/Utf8Cluster.h"

#include <algorithm>
#include <array>

#include "platform/foundation/Utf8.h"

namespace zephyl {

namespace {

constexpr char32_t kJoiner = 0x200D;
constexpr char32_t kFirstPicture = 0x2190;

struct Range {
  char32_t first;
  char32_t last;
};

constexpr Range kFlagHalves{0x1F1E6, 0x1F1FF};

// In order: marks, signs that choose a form, skin tones, tags, and the later parts of Korean
// syllables.
constexpr auto kJoining = std::to_array<Range>(
    {{0x300, 0x36F},     {0x483, 0x489},     {0x591, 0x5BD},    {0x5BF, 0x5BF},
     {0x5C1, 0x5C2},     {0x5C4, 0x5C5},     {0x5C7, 0x5C7},    {0x610, 0x61A},
     {0x64B, 0x65F},     {0x670, 0x670},     {0x6D6, 0x6DC},    {0x6DF, 0x6E4},
     {0x6E7, 0x6E8},     {0x6EA, 0x6ED},     {0x900, 0x903},    {0x93A, 0x93C},
     {0x93E, 0x94F},     {0x951, 0x957},     {0x962, 0x963},    {0x981, 0x983},
     {0x9BC, 0x9BC},     {0x9BE, 0x9CD},     {0xA01, 0xA03},    {0xA3C, 0xA51},
     {0xA81, 0xA83},     {0xABC, 0xABC},     {0xABE, 0xACD},    {0xB82, 0xB82},
     {0xBBE, 0xBCD},     {0xC00, 0xC04},     {0xC3E, 0xC56},    {0xC81, 0xC83},
     {0xCBC, 0xCBC},     {0xCBE, 0xCD6},     {0xD00, 0xD03},    {0xD3E, 0xD4D},
     {0xE31, 0xE31},     {0xE34, 0xE3A},     {0xE47, 0xE4E},    {0xEB1, 0xEB1},
     {0xEB4, 0xEBC},     {0xEC8, 0xECE},     {0x102B, 0x103E},  {0x1160, 0x11FF},
     {0x17B4, 0x17D3},   {0x1AB0, 0x1AFF},   {0x1DC0, 0x1DFF},  {0x200C, 0x200C},
     {0x20D0, 0x20FF},   {0x3099, 0x309A},   {0xFE00, 0xFE0F},  {0xFE20, 0xFE2F},
     {0x1F3FB, 0x1F3FF}, {0xE0020, 0xE007F}, {0xE0100, 0xE01EF}});

bool isIn(const Range& range, char32_t code) {
  return code >= range.first && code <= range.last;
}

bool joins(char32_t code) {
  const auto* const range = std::find_if(kJoining.begin(), kJoining.end(),
                                         [code](const Range& each) { return code <= each.last; });
  return range != kJoining.end() && code >= range->first;
}

}  // namespace

std::size_t utf8ClusterLength(std::string_view text, std::size_t at) {
  const Utf8Character first = utf8CharacterAt(text, at);
  std::size_t end = at + first.length;
  bool halfFlag = isIn(kFlagHalves, first.codePoint);
  char32_t last = first.codePoint;
  while (first.length > 0 && end < text.size()) {
    const Utf8Character next = utf8CharacterAt(text, end);
    const bool endsFlag = halfFlag && isIn(kFlagHalves, next.codePoint);
    const bool isJoined = last == kJoiner && next.codePoint >= kFirstPicture;
    if (next.length == 0 ||
        !(endsFlag || isJoined || next.codePoint == kJoiner || joins(next.codePoint))) {
      break;
    }
    halfFlag = false;
    last = next.codePoint;
    end += next.length;
  }
  return end - at;
}

}  // namespace zephyl
