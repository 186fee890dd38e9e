#include "platform/linux/posix/TemporaryOwner.h"

#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <charconv>
#include <cinttypes>
#include <csignal>
#include <cstdio>
#include <ctime>
#include <fstream>
#include <iterator>

namespace tarnwell::platform {
namespace {

constexpr std::int64_t clockSlack = 60;  // seconds that clocks may disagree
constexpr int halfBits = 32;  // of a run, for the start of the system; then the container

std::string ReadText(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::uint64_t HashOf(const std::string& text) {
  std::uint64_t hash = 0xCBF29CE484222325U;
  for (const char byte : text) {
    hash = (hash ^ static_cast<unsigned char>(byte)) * 0x100000001B3U;
  }
  return hash;
}

// 0 where there is no such process to be seen.
std::uint64_t StartOf(std::uint64_t process) {
  const std::string line = ReadText("/proc/" + std::to_string(process) + "/stat");
  // The name in it may hold anything; the start is the twentieth number after it.
  std::size_t at = line.rfind(')');
  for (int field = 0; field < 20 && at != line.npos; ++field) at = line.find(' ', at + 1);
  std::uint64_t start = 0;
  if (at != line.npos) std::from_chars(line.data() + at + 1, line.data() + line.size(), start);
  return start;
}

// Installations that were copied share the number, but seldom the name.
std::uint64_t ThisMachine() {
  const std::string number = ReadText("/etc/machine-id");
  std::array<char, 256> name{};
  if (number.empty() || gethostname(name.data(), name.size() - 1) != 0) return 0;
  return HashOf(number + name.data());
}

// A /proc from elsewhere tells of other processes under these numbers.
bool ProcIsOwn() {
  std::array<char, 32> self{};
  return readlink("/proc/self", self.data(), self.size() - 1) > 0 &&
         std::to_string(getpid()) == self.data();
}

// Containers number their processes for themselves, and may have a clock of their own.
std::uint64_t ThisRun() {
  const std::string number = ReadText("/proc/sys/kernel/random/boot_id");
  struct stat realm {};
  if (number.empty() || !ProcIsOwn() || stat("/proc/self/ns/pid", &realm) != 0) return 0;
  std::string container = std::to_string(realm.st_ino);
  if (stat("/proc/self/ns/time", &realm) == 0) container += " " + std::to_string(realm.st_ino);
  return HashOf(number) >> halfBits << halfBits | HashOf(container) >> halfBits;
}

bool IsAlive(const TemporaryOwner& owner) {
  const std::uint64_t start = StartOf(owner.Process);
  if (start != 0) return start == owner.Start;
  return kill(static_cast<pid_t>(owner.Process), 0) == 0 || errno != ESRCH;
}

std::int64_t StartOfRun() {
  timespec now{};
  timespec passed{};
  clock_gettime(CLOCK_REALTIME, &now);
  clock_gettime(CLOCK_BOOTTIME, &passed);
  return now.tv_sec - passed.tv_sec;
}

}  // namespace

const TemporaryOwner& TemporaryOwner::OfProcess() {
  thread_local TemporaryOwner own;
  const auto process = static_cast<std::uint64_t>(getpid());
  // A child process begins with what its parent knew.
  if (own.Process != process) own = {ThisMachine(), ThisRun(), process, StartOf(process)};
  return own;
}

std::string TemporaryOwner::Text() const {
  std::array<char, 80> text;
  std::snprintf(text.data(), text.size(), "%" PRIx64 "-%" PRIx64 "-%" PRIx64 "-%" PRIx64, Machine,
                Run, Process, Start);
  return text.data();
}

std::optional<TemporaryOwner> TemporaryOwner::FromName(std::string_view name,
                                                       std::string_view ending) {
  if (!name.starts_with(Beginning)) return {};
  name.remove_prefix(std::string_view(Beginning).size());
  TemporaryOwner owner;
  for (std::uint64_t* const field : {&owner.Machine, &owner.Run, &owner.Process, &owner.Start}) {
    const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), *field, 16);
    if (error != std::errc() || end == name.data() + name.size() || *end != '-') return {};
    name.remove_prefix(static_cast<std::size_t>(end - name.data()) + 1);
  }
  // What a user has made of such an item by giving it another name is the user's.
  const std::string_view random = name.substr(0, RandomDigits);
  const bool isWhole = random.size() == RandomDigits && name.substr(RandomDigits) == ending &&
                       random.find_first_not_of("0123456789abcdef") == random.npos;
  return isWhole ? std::optional(owner) : std::nullopt;
}

bool TemporaryOwner::IsGone(std::int64_t changed) const {
  const TemporaryOwner& own = OfProcess();
  if (Run == 0 || own.Run == 0) return false;
  if (Run == own.Run) return Start != 0 && !IsAlive(*this);
  // In another container, into which nobody sees; clocks may have been set since.
  if (Run >> halfBits == own.Run >> halfBits) return false;
  return Machine != 0 && Machine == own.Machine && changed + clockSlack < StartOfRun();
}

}  // namespace tarnwell::platform
