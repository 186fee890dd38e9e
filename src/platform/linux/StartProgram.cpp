#include "platform/linux/StartProgram.h"

#include <gio/gdesktopappinfo.h>
#include <unistd.h>

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <string_view>
#include <vector>

#include "platform/linux/GioObject.h"

namespace tarnwell::platform {
namespace {

// The terminals that are tried, in this order, and what each wants before a program's name.
struct Terminal {
  const char* Name;
  const char* Option;  // null for none
};
constexpr Terminal terminals[] = {
    {"xdg-terminal-exec", nullptr},
    {"x-terminal-emulator", "-e"},
    {"gnome-terminal", "--"},
    {"konsole", "-e"},
    {"xfce4-terminal", "-x"},
    {"kitty", "-e"},
    {"alacritty", "-e"},
    {"foot", "-e"},
    {"xterm", "-e"},
};

std::string FindProgram(const std::string& name) {
  const GioText found(g_find_program_in_path(name.c_str()));
  return found ? found.get() : "";
}

// Adds the words of the line; an error for a quote that does not end.
base::Status AddWords(const char* line, std::vector<std::string>& words) {
  int count = 0;
  char** parsed = nullptr;
  GError* error = nullptr;
  if (g_shell_parse_argv(line, &count, &parsed, &error) == FALSE) {
    const bool empty = g_error_matches(error, G_SHELL_ERROR, G_SHELL_ERROR_EMPTY_STRING) != FALSE;
    const std::string reason = error->message;
    g_error_free(error);
    return empty ? base::Status() : base::Status{EINVAL, reason};
  }
  words.insert(words.end(), parsed, parsed + count);
  g_strfreev(parsed);
  return {};
}

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

// The words that start a terminal, up to the program's name; none where there is no terminal.
std::vector<std::string> TerminalWords() {
  std::vector<Terminal> candidates(std::begin(terminals), std::end(terminals));
  if (const char* const chosen = std::getenv("TERMINAL"); chosen != nullptr && *chosen != '\0') {
    const std::string_view path(chosen);
    const std::string_view name = path.substr(path.rfind('/') + 1);
    const auto known = std::ranges::find(terminals, name, &Terminal::Name);
    const char* const option = known != std::end(terminals) ? known->Option : "-e";
    candidates.insert(candidates.begin(), Terminal{chosen, option});
  }
  for (const Terminal& terminal : candidates) {
    const std::string found = FindProgram(terminal.Name);
    if (found.empty()) continue;
    if (terminal.Option == nullptr) return {found};
    return {found, terminal.Option};
  }
  return {};
}

base::Status Spawn(const std::vector<std::string>& words, const std::string& folder) {
  std::vector<char*> arguments;
  arguments.reserve(words.size() + 1);
  for (const std::string& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
  arguments.push_back(nullptr);
  // In a session of its own, so that it outlives the terminal that this program was started from.
  const GSpawnChildSetupFunc leave = [](gpointer) { setsid(); };
  GioError error;
  const gboolean started =
      g_spawn_async(folder.empty() ? nullptr : folder.c_str(), arguments.data(), nullptr,
                    G_SPAWN_DEFAULT, leave, nullptr, nullptr, error.Place());
  return started != FALSE ? base::Status() : error.Status();
}

}  // namespace

base::Status StartProgram(const std::string& path, const std::string& parameters,
                          const std::string& folder) {
  std::vector<std::string> words;
  if (!HasWindows(path)) {
    words = TerminalWords();
    if (words.empty()) return {ENOENT, "There is no terminal to start " + path + " in"};
  }
  words.push_back(path);
  const base::Status status = AddWords(parameters.c_str(), words);
  return status ? Spawn(words, folder) : status;
}

}  // namespace tarnwell::platform
