// Whose a temporary item is.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tarnwell::platform {

// A process, told from all others on this machine and on those that it shares volumes with.
struct TemporaryOwner {
  // Of a temporary item's name; the owner's text and a random number stand between.
  static constexpr const char* Beginning = ".tarnwell-";
  static constexpr const char* Ending = ".tmp";
  // Of a folder that holds whole items, which belong beside it: see HoldFolder.
  static constexpr const char* HoldEnding = ".hold";
  static constexpr std::size_t RandomDigits = 16;  // hexadecimal, small letters

  std::uint64_t Machine = 0;  // 0 where the machine has no name of its own
  // From one start of the system to the next, which the upper half tells; the lower one tells the
  // container. 0 if unknown.
  std::uint64_t Run = 0;
  std::uint64_t Process = 0;  // its number in that container
  std::uint64_t Start = 0;    // when it began: numbers of processes are used again

  static const TemporaryOwner& OfProcess();
  // That of the item of this name; nothing for any other name.
  static std::optional<TemporaryOwner> FromName(std::string_view name,
                                                std::string_view ending = Ending);
  std::string Text() const;

  // Whether the process is certainly no more, by what this one can see. `changed` is when its item
  // was changed last, in seconds since 1970: it tells of a run before this one.
  bool IsGone(std::int64_t changed) const;
};

}  // namespace tarnwell::platform
