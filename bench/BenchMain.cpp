// Runs the benchmarks, offscreen and with the same fonts everywhere.

#include <QApplication>

#include <benchmark/benchmark.h>

#include "hosts/linux/screen/PinnedFonts.h"

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("QT_ACCESSIBILITY", "0");
  const zephyl::linux_host::PinnedFonts fonts;
  const QApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
    return 1;
  }
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
