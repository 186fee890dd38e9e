// One colour of the skin changes, as the colour dialog reports it live, until everything is painted
// anew: the main window with five panes of 100,000 files each, and the skin chooser over it, beside
// the painting alone.
#include <benchmark/benchmark.h>

#include <QWidget>

#include "BenchApplication.h"
#include "shell/TestRun.h"
#include "ui/forms/SkinChooserWindow.h"
#include "ui/main/MainWindow.h"
#include "ui/operation/OperationViews.h"

namespace tarnwell::ui {
namespace {

constexpr int FileCount = 100'000;
constexpr QSize WindowSize(1920, 1080);
// Far enough that colours derived from it change as well.
constexpr base::Colour ColourStep = base::Rgb(5, 11, 7);

std::string SkinContent() {
  std::ifstream file(TARNWELL_BENCH_DATA "/skins/Earl Grey.twk", std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

// What outlives the run of the program.
struct FullMachine : shell::TestMachine {
  FullMachine() {
    for (int file = 0; file < FileCount; ++file) {
      Files.AddFile("C:\\file " + std::to_string(file) + ".txt");
    }
    Files.AddFile("C:\\Tarnwell\\user.usr",
                  "\"ProgramPosition\",0,0,9000,9000,0\r\n\"Layout\",0,0,0,0,0\r\n"
                  "\"Status\",0,0,0,0,0\r\n");
    Files.AddFile("C:\\Tarnwell\\skins\\Earl Grey.twk", SkinContent());
  }
};

class FivePanes {
 public:
  using ShowColour = std::function<void(base::Colour)>;

  FivePanes() {
    run_.Start();
    run_.Form().View = &window_;
    window_.Sync();
    window_.Show(nullptr);
    window_.resize(WindowSize);  // the screen is smaller
    run_.Main().MenuClick("mnuChooseSkin");
    chooser_ = dynamic_cast<settings::frmSkinChooser*>(run_.Host.OpenForms().back());
    chooserWindow_ = std::make_unique<SkinChooserWindow>(*chooser_);
    chooser_->View = chooserWindow_.get();
    chooserWindow_->Sync();
    chooserWindow_->Show(&window_);
    PaintWhatIsDue();
  }

  // Every pane is filled and can be seen.
  bool IsReady() {
    for (int pane = 0; pane < lister::PaneCount; ++pane) {
      const lister::ListerControl* const files = run_.Space().Lists.Find(lister::FileListOf(pane));
      if (files == nullptr || !files->Visible) return false;
      if (files->Rows().ChildCount(lister::RootRow) < FileCount) return false;
    }
    return window_.size() == WindowSize && chooserWindow_->isVisible();
  }

  // Opens the colour dialog of that row of the chooser, and lets `use` show colours in it.
  void ChooseColour(std::size_t row, const std::function<void(const ShowColour&)>& use) {
    run_.Dialogs.OnColour = [&use](const platform::ColourQuestion& question) {
      use(question.Shown);
      return std::optional<base::Colour>();
    };
    chooser_->cmdChooseClick(row);
    PaintWhatIsDue();
  }

  QImage Picture() { return window_.grab().toImage(); }
  QList<QWidget*> Widgets() const { return window_.findChildren<QWidget*>(); }

 private:
  QApplication& application_ = BenchApplication();
  FullMachine machine_;
  shell::TestRun run_{machine_};
  IconSource icons_{QStringLiteral(TARNWELL_BENCH_DATA)};
  OperationViews operations_{run_.Operations,
                             {machine_.Files.Syntax(), machine_.Clock, machine_.Forms, icons_},
                             [] { return false; }};
  MainWindow window_{run_.Main(), icons_, operations_};
  settings::frmSkinChooser* chooser_ = nullptr;
  std::unique_ptr<SkinChooserWindow> chooserWindow_;
};

FivePanes& Panes() {
  static auto* const panes = new FivePanes;
  return *panes;
}

void PaintFivePanes(benchmark::State& state) {
  const QList<QWidget*> widgets = Panes().Widgets();
  for ([[maybe_unused]] const auto step : state) {
    for (QWidget* const widget : widgets) widget->update();
    PaintWhatIsDue();
  }
}

void ChangeOneColour(benchmark::State& state) {
  if (!Panes().IsReady()) return state.SkipWithError("the panes are not filled");
  const auto row = static_cast<std::size_t>(state.range(0));
  state.SetLabel(std::string(settings::SkinColourKeys[row]));
  const QImage before = Panes().Picture();
  Panes().ChooseColour(row, [&](const auto& show) {
    base::Colour colour = base::Rgb(90, 100, 110);
    show(colour);
    PaintWhatIsDue();
    if (Panes().Picture() == before) return state.SkipWithError("nothing is painted");
    for ([[maybe_unused]] const auto step : state) {
      colour = (colour + ColourStep) & base::White;
      show(colour);
      PaintWhatIsDue();
    }
  });
}

BENCHMARK(PaintFivePanes)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();
// One that whole windows go by, two of lists, two that one kind of control goes by.
BENCHMARK(ChangeOneColour)
    ->Arg(settings::ColorProgramBackground)
    ->Arg(settings::ColorListText)
    ->Arg(settings::ColorActiveItemOutline)
    ->Arg(settings::ColorActiveTitle)
    ->Arg(settings::ColorDriveList)
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime();

}  // namespace
}  // namespace tarnwell::ui
