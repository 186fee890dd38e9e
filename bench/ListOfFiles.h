// A file list over a real folder, with nothing else of the program around it.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "lister/ListerControl.h"
#include "lister/rows/NoView.h"

namespace tarnwell::lister {

using SteadyClock = std::chrono::steady_clock;

struct NoDrives : platform::Drives {
  std::vector<platform::Drive> List() const override { return {{"/", "/"}}; }
  std::string HomeFolder() const override { return ""; }
  std::string DriveOf(const std::string&) const override { return "/"; }
  void OnChange(std::function<void()>) override {}
};
struct NoWatches : platform::FolderWatch {
  std::unique_ptr<platform::Watch> Start(const std::string&, Changed) override { return nullptr; }
};
struct NoPump : platform::MessagePump {
  void DoEvents() override {}
  void WaitForEvents() override {}
};
struct NoLauncher : platform::Launcher {
  base::Status Execute(const platform::LaunchRequest&) override { return {}; }
  base::Status OpenTerminal(const std::string&) override { return {}; }
  std::vector<platform::LaunchFailure> OpenFiles(const std::vector<std::string>&,
                                                 const std::string&) override {
    return {};
  }
};
struct NoForms : platform::NumberForms {
  std::string Grouped(std::uint64_t number) const override { return std::to_string(number); }
  std::string Decimal(double number, int) const override { return std::to_string(number); }
  std::string DateAndTime(const platform::LocalTime&) const override { return ""; }
  std::string DateAndMinute(const platform::LocalTime&) const override { return ""; }
};
struct NoStamps : platform::FolderStamps {
  platform::FolderFacts ReadFacts(const std::string&) const override { return {}; }
  platform::FolderStamp Read(const std::string&) const override { return {}; }
  std::unique_ptr<platform::StampRequest> Ask(std::vector<std::string>, Told) override {
    return nullptr;
  }
};

// Tells when rows came, and stops the read there if that is all that is asked for.
struct RowsNoted : NoView {
  ListerControl* List = nullptr;
  bool Stops = false;
  std::optional<SteadyClock::time_point> Came;

  void EndReset() override {
    if (List->Rows().ChildCount(RootRow) == 0) return;
    Came = SteadyClock::now();
    List->CancelRequested = Stops;
  }
};

// Everything that a list works with.
class ListOfFiles {
 public:
  ListOfFiles(platform::FileSystem& files, platform::MessagePump& pump, platform::Clock& clock,
              platform::Collation& order)
      : files_(files), pump_(pump), clock_(clock), order_(order) {}

  // Seconds from the call to rows in order, or to all of them with their attributes.
  double Read(std::string folder, std::int64_t count, bool namesAlone) {
    const CutItems cut;
    const int brackets = 0;
    ListerControl list(FileListOf(0),
                       {files_, drives_, watches_, pump_, clock_, order_, launcher_, forms_,
                        stamps_, cut, brackets},
                       events_);
    RowsNoted view;
    view.List = &list;
    view.Stops = namesAlone;
    list.View = &view;
    const SteadyClock::time_point start = SteadyClock::now();
    list.LoadFolderContents(folder, true);
    const SteadyClock::time_point end = SteadyClock::now();
    if (list.Rows().ChildCount(RootRow) != count) throw std::runtime_error("rows are missing");
    list.View = nullptr;
    return std::chrono::duration<double>((namesAlone ? *view.Came : end) - start).count();
  }

 private:
  platform::FileSystem& files_;
  platform::MessagePump& pump_;
  platform::Clock& clock_;
  platform::Collation& order_;
  NoDrives drives_;
  NoWatches watches_;
  NoLauncher launcher_;
  NoForms forms_;
  NoStamps stamps_;
  ListerEvents events_;
};

}  // namespace tarnwell::lister
