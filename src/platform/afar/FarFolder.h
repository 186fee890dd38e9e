// Folders that are held open, of another machine or with items that lead there.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_set>
#include <utility>

#include "platform/FileSystem.h"
#include "platform/afar/FarCalls.h"

namespace tarnwell::platform {

// Of a far place: each call is FarCalls'.
class FarFolder : public OpenedFolder {
 public:
  FarFolder(std::shared_ptr<OpenedFolder> folder, FarCalls calls, FarPlace place)
      : folder_(std::move(folder)), calls_(std::move(calls)), place_(std::move(place)) {}
  FarFolder(const FarFolder&) = delete;
  FarFolder& operator=(const FarFolder&) = delete;
  ~FarFolder() override;

  base::Status Read(const TakeEntry& take) override;
  base::Status ReadAttributes(std::string_view name, ItemAttributes& attributes) const override;
  base::Status ReadExtendedAttribute(std::string_view name, ExtendedAttribute attribute,
                                     std::string& text) const override;

 private:
  std::shared_ptr<OpenedFolder> folder_;  // also of calls that were left
  const FarCalls calls_;
  const FarPlace place_;
};

// Of this machine, where links and mounts may lead to far places. Those are given a glance alone,
// so that one that is silent does not keep the items beside it. All but the beginning of a large
// one is read by another thread, ahead of what is done with the items.
class NearFolder : public OpenedFolder {
 public:
  // `plain`: its path, without links.
  NearFolder(std::shared_ptr<OpenedFolder> folder, FarCalls calls, std::string plain);

  base::Status Read(const TakeEntry& take) override;
  base::Status ReadAttributes(std::string_view name, ItemAttributes& attributes) const override;
  void ReadManyAttributes(WantedAttributes& wanted) const override;
  base::Status ReadExtendedAttribute(std::string_view name, ExtendedAttribute attribute,
                                     std::string& text) const override;

 private:
  class Rest;

  std::optional<FarPlace> PlaceOf(std::string_view name) const;

  std::shared_ptr<OpenedFolder> folder_;
  const FarCalls calls_;
  const std::string plain_;
  bool leadsAway_ = false;                    // there is somewhere to be led
  std::unordered_set<std::string> suspects_;  // names of links and of far mounts
  bool knowsAll_ = false;                     // no other name can lead away
};

}  // namespace tarnwell::platform
