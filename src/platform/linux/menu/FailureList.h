// What went wrong with some of several items, told in one message.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "base/Status.h"
#include "platform/CountedTexts.h"
#include "platform/Dialogs.h"
#include "platform/NumberForms.h"

namespace tarnwell::platform {

struct FailureWords {
  std::string_view Named;  // of one item: "%1 could not be opened."
  CountedText Numbered;    // of several, whose lines follow
};

class FailureList {
 public:
  explicit FailureList(const NumberForms& forms) : forms_(forms) {}

  // A success is not noted.
  void Add(const std::string& path, const base::Status& status);
  // Names the items and the reasons; nothing is shown where nothing failed.
  void Show(Dialogs& dialogs, const FailureWords& words) const;

 private:
  const NumberForms& forms_;
  std::string lines_;  // about the first of them
  std::string first_;  // the name of the first, and its reason
  std::string reason_;
  std::size_t count_ = 0;
};

}  // namespace tarnwell::platform
