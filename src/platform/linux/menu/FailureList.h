// What went wrong with some of several items, told in one message.
#pragma once

#include <cstddef>
#include <string>

#include "base/Status.h"
#include "platform/Dialogs.h"
#include "platform/NumberForms.h"

namespace tarnwell::platform {

class FailureList {
 public:
  explicit FailureList(const NumberForms& forms) : forms_(forms) {}

  // A success is not noted.
  void Add(const std::string& path, const base::Status& status);
  // Names the items and the reasons; nothing is shown where nothing failed. `what` follows a name:
  // "could not be opened".
  void Show(Dialogs& dialogs, const std::string& what) const;

 private:
  const NumberForms& forms_;
  std::string lines_;  // about the first of them
  std::string first_;  // the name of the first, and its reason
  std::string reason_;
  std::size_t count_ = 0;
};

}  // namespace tarnwell::platform
