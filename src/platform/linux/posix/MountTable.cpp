#include "platform/linux/posix/MountTable.h"

#include <charconv>
#include <fstream>
#include <sstream>
#include <string_view>

namespace tarnwell::platform {
namespace {

// Blanks, backslashes and ends of lines stand there as a backslash and three octal digits.
std::string Unescape(std::string_view text) {
  std::string plain;
  for (std::size_t at = 0; at < text.size(); ++at) {
    unsigned byte = 0;
    const char* const digits = text.data() + at + 1;
    const bool isEscape = text[at] == '\\' && at + 3 < text.size() &&
                          std::from_chars(digits, digits + 3, byte, 8).ptr == digits + 3;
    plain += isEscape ? static_cast<char>(byte) : text[at];
    if (isEscape) at += 3;
  }
  return plain;
}

}  // namespace

std::vector<MountedVolume> ReadMountTable() {
  std::vector<MountedVolume> volumes;
  std::ifstream table("/proc/self/mountinfo");
  for (std::string line; std::getline(table, line);) {
    std::istringstream fields(line);
    MountedVolume volume;
    std::string above;
    fields >> volume.Id >> above >> volume.Device >> volume.Root >> volume.Path;
    if (!fields) continue;
    // Fields of which there may be any number, up to a dash.
    for (std::string field; fields >> field && field != "-";) continue;
    fields >> volume.Type >> volume.Source;
    volume.Root = Unescape(volume.Root);
    volume.Path = Unescape(volume.Path);
    volume.Source = Unescape(volume.Source);
    volumes.push_back(std::move(volume));
  }
  return volumes;
}

}  // namespace tarnwell::platform
