#include "ui/components/HRColorMapImages.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "platform/uikit/CGBitmap.h"
#include "platform/uikit/CGContext.h"
#include "platform/uikit/UIColor.h"
#include "platform/uikit/UIScreen.h"

namespace zephyl {
namespace {

constexpr CGFloat kMostTiles = 1e5;
constexpr CGFloat kMostPixels = 64 << 20;
constexpr std::uint32_t kOpaque = 0xFF000000;

// What arithmetic adds to a whole number of pixels is no pixel more.
CGFloat pixels(CGFloat points, CGFloat scale) {
  return std::ceil(points * scale - 1e-6);
}

// Where each of `count` tiles of `tile` pixels begins, and where the last ends.
std::vector<std::size_t> edges(int count, CGFloat tile, std::size_t end) {
  std::vector<std::size_t> places;
  places.reserve(static_cast<std::size_t>(count) + 1);
  for (int index = 0; index < count; ++index) {
    places.push_back(std::min(end, static_cast<std::size_t>(std::lround(index * tile))));
  }
  places.push_back(end);
  return places;
}

// White's alpha over the strips, from 0 in the top row to the limit in the bottom row.
CGFloat whiteAlpha(int row, int rows, CGFloat limit) {
  const CGFloat last = std::clamp(finite(limit), 0.0, 1.0);
  return rows > 1 ? static_cast<CGFloat>(row) / (rows - 1) * last : 0;
}

UIColor stripColor(int column, int columns) {
  return UIColor::colorWithHue(static_cast<CGFloat>(column) / columns, 1, 1, 1);
}

std::uint32_t word(CGFloat channel) {
  return static_cast<std::uint32_t>(std::lround(std::clamp(channel, 0.0, 1.0) * 255));
}

// White at `alpha` of 255 over a channel.
std::uint32_t whitened(std::uint32_t channel, std::uint32_t alpha) {
  return alpha + (channel * (255 - alpha) + 127) / 255;
}

struct Canvas {
  std::size_t width = 0;
  std::size_t height = 0;
  CGFloat scale = 1;
  [[nodiscard]] bool isEmpty() const { return width == 0; }
};

// Empty for more pixels than can be held.
Canvas canvasFor(const HRColorGrid& grid) {
  const CGFloat scale = UIScreen::mainScreen().scale();
  const CGFloat width = pixels(grid.size().width, scale);
  const CGFloat height = pixels(grid.size().height, scale);
  if (grid.isEmpty() || !(width >= 1 && height >= 1 && width * height <= kMostPixels)) {
    return {};
  }
  return {static_cast<std::size_t>(width), static_cast<std::size_t>(height), scale};
}

UIImageRef imageOf(std::vector<std::uint32_t> words, const Canvas& canvas) {
  auto bitmap = std::make_shared<CGBitmap>();
  bitmap->width = canvas.width;
  bitmap->height = canvas.height;
  bitmap->pixels = std::move(words);
  return std::make_shared<const UIImage>(std::move(bitmap), canvas.scale);
}

// The channels of 255.
struct Strip {
  std::uint32_t red = 0;
  std::uint32_t green = 0;
  std::uint32_t blue = 0;
};

std::vector<Strip> stripsOf(int columns) {
  std::vector<Strip> strips;
  strips.reserve(static_cast<std::size_t>(columns));
  for (int column = 0; column < columns; ++column) {
    const UIColor::Channels channels = stripColor(column, columns).channels();
    strips.push_back({word(channels.red), word(channels.green), word(channels.blue)});
  }
  return strips;
}

// A line of pixels of a band in which white has `alpha` of 255.
void fillLine(std::vector<std::uint32_t>& line, const std::vector<Strip>& strips,
              const std::vector<std::size_t>& columnEdges, std::uint32_t alpha) {
  for (std::size_t column = 0; column < strips.size(); ++column) {
    const Strip& strip = strips[column];
    const std::uint32_t color = kOpaque | whitened(strip.red, alpha) << 16U |
                                whitened(strip.green, alpha) << 8U | whitened(strip.blue, alpha);
    std::fill(line.begin() + static_cast<std::ptrdiff_t>(columnEdges[column]),
              line.begin() + static_cast<std::ptrdiff_t>(columnEdges[column + 1]), color);
  }
}

}  // namespace

HRColorGrid HRColorGrid::fitting(CGSize size, CGFloat tileSize) {
  const CGFloat columns = std::trunc(size.width / tileSize);
  const CGFloat rows = std::trunc(size.height / tileSize);
  // Said so that NaN is refused too.
  const bool fits = tileSize > 0 && std::isfinite(tileSize) && columns >= 1 && rows >= 1 &&
                    columns <= kMostTiles && rows <= kMostTiles;
  return fits ? HRColorGrid{static_cast<int>(columns), static_cast<int>(rows), tileSize}
              : HRColorGrid{};
}

namespace detail {

UIImageRef colorMapImage(const HRColorGrid& grid, CGFloat limit) {
  const Canvas canvas = canvasFor(grid);
  if (canvas.isEmpty()) {
    return nullptr;
  }
  const std::vector<Strip> strips = stripsOf(grid.columns);
  const CGFloat tile = grid.tileSize * canvas.scale;
  const auto columnEdges = edges(grid.columns, tile, canvas.width);
  const auto rowEdges = edges(grid.rows, tile, canvas.height);
  // Grown row by row: cleared first, the pixels would be written twice.
  std::vector<std::uint32_t> words;
  words.reserve(canvas.width * canvas.height);
  std::vector<std::uint32_t> line(canvas.width);
  for (int row = 0; row < grid.rows; ++row) {
    fillLine(line, strips, columnEdges, word(whiteAlpha(row, grid.rows, limit)));
    const auto place = static_cast<std::size_t>(row);
    for (std::size_t y = rowEdges[place]; y < rowEdges[place + 1]; ++y) {
      words.insert(words.end(), line.begin(), line.end());
    }
  }
  return imageOf(std::move(words), canvas);
}

UIImageRef colorMapBackgroundImage(const HRColorGrid& grid) {
  const Canvas canvas = canvasFor(grid);
  return canvas.isEmpty()
             ? nullptr
             : imageOf(std::vector<std::uint32_t>(canvas.width * canvas.height, kOpaque), canvas);
}

UIImageRef drawnColorMapImage(const HRColorGrid& grid, CGFloat limit) {
  return UIImage::hr_imageWithSize(grid.size(), [&](CGContext& context, const CGRect& rect) {
    const CGFloat tile = grid.tileSize;
    for (int column = 0; column < grid.columns; ++column) {
      context.fill({CGRectMake(column * tile, 0, tile, rect.height())},
                   stripColor(column, grid.columns));
    }
    for (int row = 0; row < grid.rows; ++row) {
      context.fill({CGRectMake(0, row * tile, rect.width(), tile)},
                   UIColor::colorWithWhite(1, whiteAlpha(row, grid.rows, limit)));
    }
  });
}

UIImageRef drawnColorMapBackgroundImage(const HRColorGrid& grid) {
  return UIImage::hr_imageWithSize(grid.size(), [&](CGContext& context, const CGRect& rect) {
    const CGFloat tile = grid.tileSize;
    context.fill({rect}, UIColor::whiteColor());
    for (int column = 0; column < grid.columns; ++column) {
      for (int row = 0; row < grid.rows; ++row) {
        context.fill({CGRectMake(column * tile, row * tile, tile, tile)}, UIColor::blackColor());
      }
    }
  });
}

}  // namespace detail
}  // namespace zephyl
