// Page Down held in a list of many files: from one repetition of the key until the page is painted,
// beside the painting alone.
#include <benchmark/benchmark.h>

#include <QKeyEvent>
#include <QTreeView>
#include <cstdint>
#include <memory>
#include <string>

#include "BenchApplication.h"
#include "lister/ListFixture.h"
#include "ui/list/ListerWidget.h"

namespace tarnwell::ui {
namespace {

constexpr QSize ListSize(960, 1000);

// A folder of so many files, told with their attributes.
class ManyFiles : public fakes::MemoryFileSystem {
 public:
  explicit ManyFiles(std::int64_t count)
      : MemoryFileSystem(base::PathSyntax::Posix()), count_(count) {
    AddFolder("/many");
  }
  std::unique_ptr<platform::OpenedFolder> OpenFolder(const std::string&,
                                                     base::Status&) const override {
    return std::make_unique<Folder>(count_);
  }

 private:
  struct Folder : platform::OpenedFolder {
    explicit Folder(std::int64_t count) : Count(count) {}
    base::Status Read(const platform::TakeEntry& take) override {
      for (std::int64_t number = 0; number < Count; ++number) {
        const std::string name = "IMG_2024_" + std::to_string(number * 7919 % Count) + ".jpeg";
        const platform::ItemAttributes attributes{.Size = static_cast<std::uint64_t>(number),
                                                  .Modified = number * 1'000'000'000};
        if (!take({.Name = name, .Attributes = &attributes})) break;
      }
      return {};
    }
    base::Status ReadAttributes(std::string_view, platform::ItemAttributes&) const override {
      return {};
    }
    base::Status ReadExtendedAttribute(std::string_view, platform::ExtendedAttribute,
                                       std::string&) const override {
      return {};
    }
    const std::int64_t Count;
  };

  const std::int64_t count_;
};

class FullList {
 public:
  explicit FullList(std::int64_t count) : files_(count) {
    control_.AddSortKey(0, "sName", "asc");
    control_.Initialize();
    widget_ = std::make_unique<ListerWidget>(control_, icons_);
    widget_->resize(ListSize);
    widget_->show();
    std::string folder = "/many";
    control_.LoadFolderContents(folder, true);
    PaintWhatIsDue();
  }
  ~FullList() { control_.Terminate(); }

  void Repeat(int key) {
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, {}, true);
    QApplication::sendEvent(widget_->findChild<QTreeView*>(), &press);
    PaintWhatIsDue();
  }
  void Paint() {
    widget_->findChild<QTreeView*>()->viewport()->update();
    PaintWhatIsDue();
  }
  // By position.
  int Current() const { return control_.Rows().PositionOf(control_.Rows().CurrentRow()); }

 private:
  QApplication& application_ = BenchApplication();
  fakes::FakePlatform platform_{base::PathSyntax::Posix()};
  ManyFiles files_;
  lister::ListServices services_{
      files_,           platform_.Drives, platform_.Watches,     platform_.Pump,
      platform_.Clock,  platform_.Order,  platform_.Launcher,    platform_.Forms,
      platform_.Stamps, platform_.Cut,    platform_.OpenBrackets};
  lister::EventRecord events_;
  IconSource icons_{QStringLiteral(TARNWELL_BENCH_DATA)};
  lister::ListerControl control_{100, services_, events_};
  std::unique_ptr<ListerWidget> widget_;
};

void HoldPageDown(benchmark::State& state) {
  FullList list(state.range(0));
  for ([[maybe_unused]] const auto step : state) {
    const int before = list.Current();
    list.Repeat(Qt::Key_PageDown);
    if (list.Current() > before) continue;
    if (before < state.range(0) - 1) return state.SkipWithError("the list does not scroll");
    state.PauseTiming();
    list.Repeat(Qt::Key_Home);
    state.ResumeTiming();
  }
}

void PaintAPage(benchmark::State& state) {
  FullList list(state.range(0));
  for ([[maybe_unused]] const auto step : state) list.Paint();
}

BENCHMARK(PaintAPage)->Arg(1'000'000)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();
BENCHMARK(HoldPageDown)
    ->Arg(100'000)
    ->Arg(1'000'000)
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime();

}  // namespace
}  // namespace tarnwell::ui
