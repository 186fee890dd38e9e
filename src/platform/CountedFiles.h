// Files with several names, so that each is counted once.
#pragma once

#include <cstddef>
#include <cstdint>
#include <unordered_set>

namespace tarnwell::platform {

// What tells a file from every other, whatever its names; as long as it is not deleted.
struct FileIdentity {
  std::uint64_t Device = 0;
  std::uint64_t Number = 0;
  bool operator==(const FileIdentity&) const = default;
};

class CountedFiles {
 public:
  // False if it was added before.
  bool Add(const FileIdentity& file) { return files_.insert(file).second; }

 private:
  struct Hash {
    std::size_t operator()(const FileIdentity& file) const {
      return static_cast<std::size_t>((file.Number ^ file.Device) * 0x9E3779B97F4A7C15U);
    }
  };

  std::unordered_set<FileIdentity, Hash> files_;
};

}  // namespace tarnwell::platform
