// Reaches items that were found below a folder by their paths from there on. Each is looked at from
// the folder that holds it, the last of which is held open: many of one folder follow each other.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/FileSystem.h"

namespace tarnwell::lister {

class FoundFolder : public platform::OpenedFolder {
 public:
  FoundFolder(const platform::FileSystem& files, std::string folder)
      : files_(files), folder_(std::move(folder)) {}

  // Names are not read here: hands over none.
  base::Status Read(const platform::TakeEntry&) override { return {}; }
  base::Status ReadAttributes(std::string_view name,
                              platform::ItemAttributes& attributes) const override;
  base::Status ReadExtendedAttribute(std::string_view name, platform::ExtendedAttribute attribute,
                                     std::string& text) const override;

 private:
  // The item's own name in the folder that is open then; none where that cannot be opened.
  std::string_view Enter(std::string_view name) const;

  const platform::FileSystem& files_;
  const std::string folder_;
  mutable std::string part_;  // the way to the folder that is open
  mutable std::unique_ptr<platform::OpenedFolder> opened_;
  mutable base::Status status_;  // of opening it
  mutable bool isTried_ = false;
};

}  // namespace tarnwell::lister
