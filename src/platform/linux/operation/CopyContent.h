// The content of one file, by the cheapest way that the file systems offer.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

#include "platform/linux/posix/ErrorNumber.h"
#include "platform/linux/posix/ItemIdentity.h"

namespace tarnwell::platform {

// Shares the blocks where that goes, lets the kernel copy where that goes, and otherwise reads and
// writes; holes stay holes. Remembers what did not go between two volumes. Serves one file after
// the other.
class ContentCopier {
 public:
  // Hears of every few megabytes, and ends the copy by false.
  using TakeProgress = std::function<bool(std::uint64_t bytes)>;

  // Both files are at their beginning, the target empty. ECANCELED after a false. After
  // another error IsReadError tells which side it was.
  ErrorNumber Copy(int from, const struct statx& source, int to, const struct statx& target,
                   const TakeProgress& progress);
  bool IsReadError() const { return isReadError_; }
  // Bytes that the last copy found in the source, holes included.
  std::uint64_t Length() const { return length_; }

 private:
  struct Ways {
    ItemIdentity From;
    ItemIdentity To;
    bool Clone = true;
    bool Range = true;
  };

  void ChooseWays(const struct statx& source, const struct statx& target);
  bool Clones(int from, int to);
  ErrorNumber CopyByExtents(int from, int to, std::uint64_t size, const TakeProgress& progress);
  ErrorNumber CopyRange(int from, int to, std::uint64_t start, std::uint64_t end,
                        const TakeProgress& progress);
  // Up to `end`, or to the end of the source.
  ErrorNumber CopyByHand(int from, int to, std::uint64_t start, std::uint64_t end,
                         const TakeProgress& progress);
  ErrorNumber WriteAll(int to, std::size_t count, std::uint64_t at);

  static constexpr std::size_t bufferSize = 262144;

  std::optional<Ways> ways_;
  std::unique_ptr<char[]> buffer_ = std::make_unique_for_overwrite<char[]>(bufferSize);
  std::uint64_t length_ = 0;
  bool isReadError_ = false;
};

}  // namespace tarnwell::platform
