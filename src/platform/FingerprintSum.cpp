#include "platform/FingerprintSum.h"

#include <functional>

namespace tarnwell::platform {
namespace {

constexpr std::int64_t coarseTimes = 2'000'000'000;  // nanoseconds

// The last step of the generator SplitMix64: each bit of the number has a part in each of its own.
std::uint64_t Stir(std::uint64_t number) {
  number = (number ^ number >> 30) * 0xBF58476D1CE4E5B9U;
  number = (number ^ number >> 27) * 0x94D049BB133111EBU;
  return number ^ number >> 31;
}

}  // namespace

std::uint64_t ShareOf(std::string_view name, const ItemFingerprint& item) {
  std::uint64_t share = Stir(std::hash<std::string_view>()(name) ^ item.Kind);
  share = Stir(share + item.Size);
  share = Stir(share + static_cast<std::uint64_t>(item.Modified));
  return Stir(share + item.Below);
}

std::int64_t CoarseTime(std::int64_t time) {
  const std::int64_t rest = time % coarseTimes;
  return time - (rest < 0 ? rest + coarseTimes : rest);
}

}  // namespace tarnwell::platform
