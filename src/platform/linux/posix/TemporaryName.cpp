#include "platform/linux/posix/TemporaryName.h"

#include <sys/random.h>

#include <cerrno>
#include <cinttypes>
#include <cstdio>

namespace tarnwell::platform {

ErrorNumber TemporaryName::Renew(const char* ending) {
  std::uint64_t number = 0;
  if (getrandom(&number, sizeof number, 0) != sizeof number) return errno;
  std::snprintf(text_.data(), text_.size(), "%s%s-%016" PRIx64 "%s", TemporaryOwner::Beginning,
                TemporaryOwner::OfProcess().Text().c_str(), number, ending);
  return NoError;
}

}  // namespace tarnwell::platform
