// Far places, as paths, drives and links tell them.
#pragma once

#include <chrono>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/afar/FarPlaces.h"

namespace tarnwell::platform {

// Where a link of this machine leads; an empty text for what is none, and for a volume that is
// mounted here.
using ReadLinkHere = std::function<std::string(const std::string& path)>;
std::string LinkHere(const std::string& path);

// As FarPlaces::Find. `readLink` is asked for items of this machine alone.
std::optional<FarPlace> FindFarPlace(const std::string& path, LastLink last, std::string& plain,
                                     const ReadLinkHere& readLink);

// A place is a share, by the name of its server. Items of one folder are asked for in a row: the
// way to it is looked at once in a while.
class WindowsFarPlaces : public FarPlaces {
 public:
  explicit WindowsFarPlaces(ReadLinkHere readLink = LinkHere,
                            std::chrono::milliseconds knownFor = std::chrono::seconds(1))
      : readLink_(std::move(readLink)), knownFor_(knownFor) {}

  using FarPlaces::Find;
  std::optional<FarPlace> Find(const std::string& path, LastLink last,
                               std::string& plain) const override;
  // A network path leads to whatever there is, at any time.
  bool Any() const override { return true; }
  // None of both: only links lead to shares from here.
  std::optional<FarPlace> FindBelow(const std::string& /*plain*/) const override { return {}; }
  std::vector<std::string> MountedIn(const std::string& /*plain*/) const override { return {}; }

 private:
  std::string KnownFolder() const;
  void Know(std::string folder) const;

  const ReadLinkHere readLink_;
  const std::chrono::milliseconds knownFor_;
  mutable std::mutex mutex_;
  mutable std::string known_;  // a folder with no link on the way to it, nor itself one
  mutable std::chrono::steady_clock::time_point knownSince_;
};

}  // namespace tarnwell::platform
