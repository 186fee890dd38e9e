#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <system_error>
#include <utility>

#include "app/Process.h"
#include "platform/linux/menu/TerminalCall.h"
#include "platform/linux/system/LinuxSystemInfo.h"
#include "platform/linux/system/LinuxTermination.h"
#include "platform/linux/system/RunningCopy.h"

namespace tarnwell::app {
namespace {

std::string OwnFolder() {
  return platform::LinuxSystemInfo(platform::ProgramPlaces::OfProcess()).ProgramFolder();
}

std::filesystem::path WholePath(const std::filesystem::path& typed, std::error_code& error) {
  for (const std::filesystem::path& part : typed) {
    if (part == "." || part == "..") return std::filesystem::canonical(typed, error);
  }
  return std::filesystem::absolute(typed, error);
}

}  // namespace

std::optional<int> PrepareProcess(int argc, char** argv) {
  if (const auto code = platform::AnswerTerminalCall(argc, argv)) return code;
  platform::OutliveFailedWrites();
  return {};
}

std::vector<std::string> WordsOf(int argc, char** argv) {
  return {argv + (argc > 0 ? 1 : 0), argv + argc};
}

void WriteOutput(const std::string& text) {
  std::fputs(text.c_str(), stdout);
}

void WriteErrorOutput(const std::string& text) {
  std::fputs(text.c_str(), stderr);
}

bool IsErrorOutputSeen() {
  const auto isSet = [](const char* name) {
    const char* const value = std::getenv(name);
    return value != nullptr && *value != '\0';
  };
  return isatty(STDERR_FILENO) != 0 || (!isSet("DISPLAY") && !isSet("WAYLAND_DISPLAY"));
}

TypedFolder LookAtTyped(const std::string& typed) {
  std::error_code error;
  const std::filesystem::path path = WholePath(typed, error);
  if (!error) std::filesystem::directory_iterator(path, error);
  return {path.string(), error ? error.message() : std::string()};
}

std::string FullPathOf(const std::string& typed) {
  std::error_code ignored;
  return std::filesystem::absolute(typed, ignored).lexically_normal().string();
}

bool AskRunningCopy(const std::vector<std::string>& folders) {
  return platform::AskRunningCopy(OwnFolder(), folders);
}

std::shared_ptr<void> WhenAskedToOpen(OpensFolders opens) {
  return std::make_shared<platform::RunningCopy>(OwnFolder(), std::move(opens));
}

// All of them are the toolkit's.
bool IsBelowSystemDialog(std::uintptr_t /*window*/) {
  return false;
}

// Signals end nothing by themselves.
std::shared_ptr<void> WhenAskedToEnd(std::function<void()> quit, std::function<bool()> /*save*/) {
  return std::make_shared<platform::LinuxTermination>(std::move(quit));
}

}  // namespace tarnwell::app
