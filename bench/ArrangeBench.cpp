// The arrangement of five panes, beside a copy of their records, which it has to make.
#include <benchmark/benchmark.h>

#include <string>

#include "workspace/ArrangePanes.h"

namespace tarnwell::workspace {
namespace {

PaneRecords FivePanes() {
  PaneRecords panes;
  for (std::size_t i = 0; i < panes.size(); ++i) {
    panes[i].PercentWidth = panes[i].PercentHeightH = 0.2F;
    panes[i].Height = DefaultHeight;
    panes[i].WidthH = DefaultWidthH;
    panes[i].ControlGroup = static_cast<std::int16_t>(i);
    panes[i].CurrentPath = "/home/someone/a folder of some depth/" + std::to_string(i) + "/";
  }
  return panes;
}

void CopyFiveRecords(benchmark::State& state) {
  const PaneRecords panes = FivePanes();
  for ([[maybe_unused]] const auto step : state) {
    PaneRecords copy = panes;
    benchmark::DoNotOptimize(copy);
  }
}
BENCHMARK(CopyFiveRecords)->Unit(benchmark::kMicrosecond);

void ArrangeFivePanes(benchmark::State& state) {
  const PaneRecords panes = FivePanes();
  const FormMeasures measures{.Layout = static_cast<std::int32_t>(state.range(0)),
                              .InsideWidth = 28800,
                              .InsideHeight = 15000,
                              .ToolbarHeight = 435,
                              .TitleHeight = 255,
                              .TitlePictureWidth = 315,
                              .ClosePictureWidth = 315,
                              .PaneGap = 60,
                              .CommandStripHeight = 335,
                              .CommandOn = true};
  for ([[maybe_unused]] const auto step : state) {
    Arrangement arrangement = ArrangePanes2(panes, measures);
    benchmark::DoNotOptimize(arrangement);
  }
}
BENCHMARK(ArrangeFivePanes)->ArgName("horizontal")->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace tarnwell::workspace
