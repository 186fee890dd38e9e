// A read of a folder, or other work on its rows, while it runs.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "lister/list/Pacer.h"
#include "platform/FileSystem.h"

namespace tarnwell::lister {

// How the work stands after messages were let through.
// GaveWay: other work comes first, and this one has to be asked for again.
enum class Standing { Going, Cancelled, Superseded, GaveWay };

struct ReadJob {
  // Shows the progress and lets messages through.
  using LetThrough = std::function<void(ReadJob& job, const std::string& progress)>;

  ReadJob(int number, const platform::Clock& clock, platform::MessagePump& pump,
          LetThrough letThrough)
      : Number(number),
        Pace(clock, pump),
        Through(std::move(letThrough)),
        Waits(pump, [this](const std::string& place) {
          return Pump((SoFar ? SoFar() + ". " : "") + WaitText(place));
        }) {}

  const int Number;  // of the load that it belongs to
  Pacer Pace;
  std::unique_ptr<platform::OpenedFolder> Folder;
  lister::Standing Standing = lister::Standing::Going;
  bool HeedsCancel = true;
  bool MaySort = false;   // the rows on show are the ones that it works on
  bool GivesWay = false;  // to rows that come meanwhile
  LetThrough Through;
  std::function<std::string()> SoFar;  // says how far the work is, if anything does
  // Any call that the job makes may have to wait for another machine.
  const platform::WaitScope Waits;

  bool Goes() const { return Standing == lister::Standing::Going; }
  bool IsSuperseded() const { return Standing == lister::Standing::Superseded; }
  // Afterwards rows may have changed places, or the work may go on no longer. True while it does.
  bool Pump(const std::string& progress) {
    Through(*this, progress);
    return Goes();
  }
};

}  // namespace tarnwell::lister
