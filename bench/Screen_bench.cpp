// What the screen costs: the colour map, a list drawn anew and brought up to date, and laying
// tables out.

#include <QColor>
#include <QImage>
#include <QPainter>
#include <QRectF>
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <stdexcept>
#include <string>

#include <benchmark/benchmark.h>
#include <malloc.h>

#include "platform/uikit/CGBitmap.h"
#include "platform/uikit/UIGraphics.h"
#include "platform/uikit/text/UITextField.h"

#include "bench/BenchScreen.h"
#include "bench/Comparison.h"
#include "bench/PaintedList.h"
#include "hosts/linux/screen/ScaledPictures.h"
#include "ui/components/HRColorMapView.h"
#include "ui/components/UIZPBadgeView.h"

namespace zephyl::bench {
namespace {

using linux_host::WindowPicture;

struct Difference {
  int largest = 0;  // of a channel, of 255
  std::int64_t pixels = 0;
};

Difference difference(const QImage& one, const QImage& other) {
  if (one.size() != other.size()) {
    throw std::runtime_error("the pictures are not of one size");
  }
  Difference result;
  const std::ptrdiff_t bytes = std::ptrdiff_t{one.width()} * 4;
  for (int y = 0; y < one.height(); ++y) {
    const uchar* const left = one.constScanLine(y);
    const uchar* const right = other.constScanLine(y);
    for (std::ptrdiff_t pixel = 0; pixel < bytes; pixel += 4) {
      int most = 0;
      for (std::ptrdiff_t channel = pixel; channel < pixel + 4; ++channel) {
        most = std::max(most, std::abs(left[channel] - right[channel]));
      }
      result.largest = std::max(result.largest, most);
      result.pixels += static_cast<std::int64_t>(most > 0);
    }
  }
  return result;
}

constexpr CGSize kMapSize{375, 500};
constexpr CGFloat kTile = 16;
constexpr double kLimit = 0.95;

// The same map: strips of hues, and bands of white over them.
QImage paintedColorMap() {
  constexpr int kColumns = static_cast<int>(kMapSize.width / kTile);
  constexpr int kRows = static_cast<int>(kMapSize.height / kTile);
  constexpr int kPixels = static_cast<int>(kTile * BenchScreen::kScale);
  QImage image(kColumns * kPixels, kRows * kPixels, QImage::Format_ARGB32_Premultiplied);
  QPainter painter(&image);
  for (int column = 0; column < kColumns; ++column) {
    painter.fillRect(column * kPixels, 0, kPixels, image.height(),
                     QColor::fromHsvF(static_cast<float>(column) / kColumns, 1, 1));
  }
  for (int row = 0; row < kRows; ++row) {
    QColor white(Qt::white);
    white.setAlphaF(static_cast<float>(row * kLimit / (kRows - 1)));
    painter.fillRect(0, row * kPixels, image.width(), kPixels, white);
  }
  return image;
}

// 1: in memory that is fresh from the system each time, as for the one map that a screen shows. 0:
// in memory that the process has used before.
void BM_ColorMap(benchmark::State& state) {
  constexpr int kMegabyte = 1 << 20;
  mallopt(M_MMAP_THRESHOLD, state.range(0) == 1 ? kMegabyte : 32 * kMegabyte);
  mallopt(M_TRIM_THRESHOLD, 64 * kMegabyte);
  BenchScreen screen;
  const auto make = [] { return HRColorMapView::colorMapImageWithSize(kMapSize, kTile, kLimit); };
  const QImage map = linux_host::imageOf(make()->bitmap());
  const Difference off = difference(map, paintedColorMap());
  if (off.largest > 1) {
    throw std::runtime_error("the colour maps differ by " + std::to_string(off.largest));
  }
  const auto bytes = static_cast<std::size_t>(map.sizeInBytes());
  const auto clear = [bytes] {
    const auto buffer = std::make_unique_for_overwrite<std::uint8_t[]>(bytes);
    std::memset(buffer.get(), 0x7F, bytes);
    benchmark::DoNotOptimize(buffer.get());
    benchmark::ClobberMemory();
  };
  compare(state, [&] { benchmark::DoNotOptimize(make()); },
          {{"fill_rect", [] { benchmark::DoNotOptimize(paintedColorMap().constBits()); }},
           {"memset", clear}});
  state.counters["off_by"] = off.largest;
}
BENCHMARK(BM_ColorMap)
    ->Arg(1)
    ->Arg(0)
    ->UseManualTime()
    ->Iterations(401)
    ->Unit(benchmark::kMillisecond);

std::int64_t repaint(ListWindow& list) {
  list.window().setNeedsDisplay();
  return BenchScreen::update(list.picture()).painted;
}

void BM_ListRepaint(benchmark::State& state) {
  BenchScreen screen;
  ListWindow list(screen);
  repaint(list);
  QImage paper(list.picture().image().size(), QImage::Format_ARGB32_Premultiplied);
  PaintedList painted;
  Difference off;
  for (const bool prepared : {false, true}) {
    painted.paint(paper, prepared);
    off = difference(list.picture().image(), paper);
    constexpr std::int64_t kFew = 1000;
    if (off.pixels > kFew) {
      throw std::runtime_error("the lists differ in " + std::to_string(off.pixels) + " pixels");
    }
  }
  compare(state, [&] { repaint(list); },
          {{"painter", [&] { painted.paint(paper, /*prepared=*/false); }},
           {"prepared", [&] { painted.paint(paper, /*prepared=*/true); }}});
  state.counters["pixels_off"] = static_cast<double>(off.pixels);
}
BENCHMARK(BM_ListRepaint)->UseManualTime()->Iterations(201)->Unit(benchmark::kMillisecond);

// Beside drawing all of it anew. Counts the pixels, too.
template <class Change>
void compareWithRepaint(benchmark::State& state, ListWindow& list, const Change& change) {
  repaint(list);
  WindowPicture::Update done;
  std::int64_t whole = 0;
  compare(state,
          [&] {
            change();
            done = BenchScreen::update(list.picture());
          },
          {{"repaint", [&] { whole = repaint(list); }}});
  state.counters["painted"] = static_cast<double>(done.painted);
  state.counters["moved"] = static_cast<double>(done.moved);
  state.counters["whole"] = static_cast<double>(whole);
}

void BM_ScrollStep(benchmark::State& state) {
  BenchScreen screen;
  ListWindow list(screen);
  constexpr CGFloat kStep = 10;
  compareWithRepaint(state, list, [&] {
    list.table().setContentOffset({0, list.table().contentOffset().y + kStep});
  });
}
BENCHMARK(BM_ScrollStep)->UseManualTime()->Iterations(301)->Unit(benchmark::kMillisecond);

void BM_BadgeChange(benchmark::State& state) {
  BenchScreen screen;
  ListWindow list(screen);
  std::int64_t value = 0;
  compareWithRepaint(state, list, [&] { list.badge().setBadgeValue(10 + ++value % 80); });
}
BENCHMARK(BM_BadgeChange)->UseManualTime()->Iterations(301)->Unit(benchmark::kMillisecond);

void BM_TypedLetter(benchmark::State& state) {
  BenchScreen screen;
  ListWindow list(screen);
  const auto field = std::make_shared<UITextField>(CGRectMake(0, 0, BenchScreen::kSize.width, 36));
  field->setBorderStyle(UITextBorderStyle::kRoundedRect);
  list.table().setTableHeaderView(field);
  list.window().layoutWindow();
  std::string text;
  compareWithRepaint(state, list, [&] {
    text = text.size() < 30 ? text + "anna bolin "[text.size() % 11] : std::string();
    field->textInputDidChange(text);
  });
}
BENCHMARK(BM_TypedLetter)->UseManualTime()->Iterations(301)->Unit(benchmark::kMillisecond);

// Reloads, lays out, goes to the middle and lays out again; beside the same with 100 rows.
void BM_TableLayout(benchmark::State& state) {
  constexpr std::size_t kFewRows = 100;
  BenchScreen screen;
  ListWindow few(screen, kFewRows);
  ListWindow many(screen, static_cast<std::size_t>(state.range(0)));
  const auto layOut = [](ListWindow& list) {
    UITableView& table = list.table();
    table.reloadData();
    list.window().layoutWindow();
    table.setContentOffset({0, table.contentSize().height / 2});
    list.window().layoutWindow();
  };
  compare(state, [&] { layOut(many); }, {{"100_rows", [&] { layOut(few); }}});
}
BENCHMARK(BM_TableLayout)
    ->Arg(100)
    ->Arg(10'000)
    ->Arg(100'000)
    ->UseManualTime()
    ->Iterations(201)
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace zephyl::bench
