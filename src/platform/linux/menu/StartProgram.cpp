#include "platform/linux/menu/StartProgram.h"

#include <fcntl.h>
#include <gio/gdesktopappinfo.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdlib>
#include <string_view>

#include "base/PathSyntax.h"
#include "platform/linux/posix/Descriptor.h"
#include "platform/linux/posix/GioObject.h"
#include "platform/linux/posix/SystemError.h"

namespace tarnwell::platform {
namespace {

bool SameFile(const std::string& one, const std::string& other) {
  char first[PATH_MAX], second[PATH_MAX];
  return realpath(one.c_str(), first) != nullptr && realpath(other.c_str(), second) != nullptr &&
         std::string_view(first) == second;
}

// True when the entry starts the program itself, and not something by means of the program, as an
// entry for a script does with its interpreter.
bool IsEntryOf(GAppInfo* entry, const std::string& program) {
  const char* const line = g_app_info_get_commandline(entry);
  std::vector<std::string> words;
  if (line == nullptr || !AddWords(line, words) || words.empty()) return false;
  const auto isPlain = [](const std::string& word) { return word[0] == '%' || word[0] == '-'; };
  return std::all_of(words.begin() + 1, words.end(), isPlain) &&
         SameFile(FindProgram(words.front()), program);
}

bool HasWindows(const std::string& program) {
  GList* const entries = g_app_info_get_all();
  bool found = false;
  for (GList* item = entries; item != nullptr && !found; item = item->next) {
    auto* const entry = static_cast<GAppInfo*>(item->data);
    found = IsEntryOf(entry, program) &&
            g_desktop_app_info_get_boolean(G_DESKTOP_APP_INFO(entry), "Terminal") == FALSE;
  }
  g_list_free_full(entries, g_object_unref);
  return found;
}

// What is left of a process after a fork; nothing here may take memory or a lock.
[[noreturn]] void BecomeProgram(char* const* words, char* const* environment, const char* folder,
                                int failure) {
  sigset_t none;
  sigemptyset(&none);
  sigprocmask(SIG_SETMASK, &none, nullptr);
  signal(SIGPIPE, SIG_DFL);
  close_range(STDERR_FILENO + 1, ~0U, CLOSE_RANGE_CLOEXEC);
  if (*folder == '\0' || chdir(folder) == 0) execve(words[0], words, environment);
  const int code = errno;
  [[maybe_unused]] const ssize_t told = write(failure, &code, sizeof code);
  _exit(EXIT_FAILURE);
}

std::vector<char*> PointersTo(std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  pointers.reserve(texts.size() + 1);
  for (std::string& text : texts) pointers.push_back(text.data());
  pointers.push_back(nullptr);
  return pointers;
}

// This program's own, which tells of the new folder.
std::vector<std::string> EnvironmentIn(const std::string& folder) {
  constexpr std::string_view variable = "PWD=";
  std::vector<std::string> all;
  for (char** each = environ; *each != nullptr; ++each) {
    if (folder.empty() || !std::string_view(*each).starts_with(variable)) all.emplace_back(*each);
  }
  if (!folder.empty()) all.push_back(std::string(variable) + folder);
  return all;
}

// By way of a process that ends at once: nobody has to wait for the program then, and in a session
// of its own it outlives the terminal that this program was started from.
base::Status Spawn(std::vector<std::string> words, const std::string& folder) {
  std::vector<std::string> variables = EnvironmentIn(folder);
  const std::vector<char*> arguments = PointersTo(words), environment = PointersTo(variables);
  int ends[2];
  if (pipe2(ends, O_CLOEXEC) != 0) return SystemError(errno);
  const Descriptor reading(ends[0]);
  Descriptor writing(ends[1]);
  const pid_t between = fork();
  if (between < 0) return SystemError(errno);
  if (between == 0) {
    setsid();
    const pid_t program = fork();
    if (program == 0) {
      BecomeProgram(arguments.data(), environment.data(), folder.c_str(), writing.Get());
    }
    if (program > 0) _exit(EXIT_SUCCESS);
    const int code = errno;
    [[maybe_unused]] const ssize_t told = write(writing.Get(), &code, sizeof code);
    _exit(EXIT_FAILURE);
  }
  writing = Descriptor();
  while (waitpid(between, nullptr, 0) < 0 && errno == EINTR) continue;
  int code = 0;
  ssize_t count = 0;
  // Ends without a byte once the program runs.
  while ((count = read(reading.Get(), &code, sizeof code)) < 0 && errno == EINTR) continue;
  return count == sizeof code ? SystemError(code) : base::Status();
}

}  // namespace

base::Status StartProgram(const std::vector<std::string>& words, const std::string& folder,
                          StartIn where, TerminalEnd end) {
  // As a shell writes it.
  const std::string place =
      folder == "/" ? folder : base::PathSyntax::Posix().RemoveRightSlash(folder);
  if (words.empty()) return SystemError(EINVAL);
  const bool isAlone =
      where == StartIn::OwnWindows || (where == StartIn::Fitting && HasWindows(words.front()));
  if (isAlone) return Spawn(words, place);
  // A terminal has no way to tell.
  if (access(words.front().c_str(), X_OK) != 0) return SystemError(errno);
  const std::vector<std::string> call = TerminalCall(words, place, end);
  return call.empty() ? NoTerminal(words.front()) : Spawn(call, place);
}

std::string FindProgram(const std::string& name) {
  const GioText found(g_find_program_in_path(name.c_str()));
  return found ? found.get() : "";
}

base::Status AddWords(const std::string& line, std::vector<std::string>& words) {
  if (line.find('\0') != std::string::npos) return SystemError(EINVAL);
  int count = 0;
  char** parsed = nullptr;
  GError* error = nullptr;
  if (g_shell_parse_argv(line.c_str(), &count, &parsed, &error) == FALSE) {
    const bool empty = g_error_matches(error, G_SHELL_ERROR, G_SHELL_ERROR_EMPTY_STRING) != FALSE;
    const std::string reason = error->message;
    g_error_free(error);
    return empty ? base::Status() : base::Status{EINVAL, reason};
  }
  words.insert(words.end(), parsed, parsed + count);
  g_strfreev(parsed);
  return {};
}

}  // namespace tarnwell::platform
