// Port: the few numbers and texts that the desktop keeps for this user and this program, apart from
// the program's own files.
#pragma once

#include <string>
#include <vector>

#include "base/Status.h"

namespace tarnwell::platform {

class UserSettings {
 public:
  virtual ~UserSettings() = default;

  // `usual` where the number is not there, or what is there is none.
  virtual int ReadNumber(const std::string& section, const std::string& name, int usual) const = 0;
  // Keeps the number, from the return on; whatever else is kept stays. The reason of a failure
  // names the file, if there is one.
  virtual base::Status WriteNumber(const std::string& section, const std::string& name,
                                   int value) = 0;
  // The same for a row of texts, in UTF-8; none where there is no such row.
  virtual std::vector<std::string> ReadTexts(const std::string& section,
                                             const std::string& name) const = 0;
  virtual base::Status WriteTexts(const std::string& section, const std::string& name,
                                  const std::vector<std::string>& texts) = 0;
};

}  // namespace tarnwell::platform
