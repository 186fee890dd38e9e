// Stamps of folders, with those of other machines kept from the window's thread.
#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/FolderStamps.h"
#include "platform/afar/FarCalls.h"

namespace tarnwell::platform {

class FarStamps : public FolderStamps {
 public:
  FarStamps(std::shared_ptr<FolderStamps> stamps, FarCalls calls)
      : stamps_(std::move(stamps)), calls_(std::move(calls)) {}

  // A folder of a place that does not answer is not there, and not local.
  FolderFacts ReadFacts(const std::string& folder) const override {
    return calls_.Get<FolderFacts>(folder,
                                   [stamps = stamps_, folder] { return stamps->ReadFacts(folder); },
                                   {.Stamp = {}, .IsLocal = false});
  }
  // Of folders that were near, mostly: a glance has to do.
  FolderStamp Read(const std::string& folder) const override {
    return calls_.GetAt<FolderStamp>(
        calls_.PlaceOf(folder), [stamps = stamps_, folder] { return stamps->Read(folder); }, {},
        true);
  }
  std::unique_ptr<StampRequest> Ask(std::vector<std::string> folders, Told told) override {
    return stamps_->Ask(std::move(folders), std::move(told));
  }

 private:
  const std::shared_ptr<FolderStamps> stamps_;
  const FarCalls calls_;
};

}  // namespace tarnwell::platform
