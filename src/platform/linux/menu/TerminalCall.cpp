#include "platform/linux/menu/TerminalCall.h"

#include <pwd.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <string_view>

#include "base/Text.h"
#include "platform/linux/menu/StartProgram.h"
#include "platform/linux/posix/SystemError.h"

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
    {"kgx", "--"},
    {"konsole", "-e"},
    {"xfce4-terminal", "-x"},
    {"lxterminal", "-e"},
    {"kitty", "-e"},
    {"alacritty", "-e"},
    {"foot", "-e"},
    {"xterm", "-e"},
};

constexpr std::string_view startOption = "--start-terminal";    // then the own path, and the words
constexpr std::string_view insideOption = "--inside-terminal";  // then folder and words, coded
constexpr std::string_view shellOption = "--shell-behind";      // the same, and a shell after it

constexpr std::string_view HexDigits = "0123456789abcdef";

// Begins with a letter, so that an empty word is one too.
std::string Coded(std::string_view word) {
  std::string coded = "x";
  for (const char byte : word) {
    coded += HexDigits[static_cast<unsigned char>(byte) >> 4];
    coded += HexDigits[static_cast<unsigned char>(byte) & 0xF];
  }
  return coded;
}

std::optional<std::string> Decoded(std::string_view coded) {
  if (!coded.starts_with('x') || coded.size() % 2 == 0) return std::nullopt;
  std::string word;
  for (std::size_t at = 1; at < coded.size(); at += 2) {
    const std::size_t high = HexDigits.find(coded[at]), low = HexDigits.find(coded[at + 1]);
    if (high == HexDigits.npos || low == HexDigits.npos) return std::nullopt;
    word += static_cast<char>(high << 4 | low);
  }
  return word;
}

// No terminal finds anything in such a path but itself.
bool IsHarmless(std::string_view path) {
  return std::ranges::all_of(path, [](char each) {
    return (each >= 'a' && each <= 'z') || (each >= 'A' && each <= 'Z') ||
           (each >= '0' && each <= '9') || each == '/' || each == '.' || each == '_' || each == '-';
  });
}

// Where this program's file is. By way of the running process where the path is an odd one, or the
// file was replaced meanwhile; that serves as long as this process lives.
std::string OwnFile() {
  char path[PATH_MAX];
  const ssize_t size = readlink("/proc/self/exe", path, sizeof path);
  std::string own(path, static_cast<std::size_t>(std::max<ssize_t>(size, 0)));
  if (!own.empty() && IsHarmless(own) && access(own.c_str(), X_OK) == 0) return own;
  return "/proc/" + std::to_string(getpid()) + "/exe";
}

// The words that start a terminal, up to the program's name.
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

std::vector<std::string> CallOf(const std::string& own, const std::vector<std::string>& words,
                                const std::string& folder, TerminalEnd end) {
  std::vector<std::string> call = TerminalWords();
  if (call.empty()) return call;
  const std::string_view option = end == TerminalEnd::Shell ? shellOption : insideOption;
  call.insert(call.end(), {own, std::string(option), Coded(folder)});
  std::ranges::transform(words, std::back_inserter(call), Coded);
  return call;
}

// The code of the error if the program cannot be started.
int Become(const std::vector<std::string>& words) {
  // The system would look for it in the folder at hand.
  if (words.front().find('/') == std::string::npos) return ENOENT;
  std::vector<char*> arguments;
  arguments.reserve(words.size() + 1);
  for (const std::string& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
  arguments.push_back(nullptr);
  execv(arguments.front(), arguments.data());
  return errno;
}

int StartTerminal(const std::string& own, std::vector<std::string> program) {
  char folder[PATH_MAX];
  if (getcwd(folder, sizeof folder) == nullptr) folder[0] = '\0';
  const std::string found = FindProgram(program.front());
  if (!found.empty()) program.front() = found;
  const std::vector<std::string> call = CallOf(own, program, folder, TerminalEnd::Closes);
  return call.empty() ? EXIT_FAILURE : Become(call);
}

void TellFailure(const std::string& program, int code) {
  std::printf("%s cannot be started: %s\n", base::ForDisplay(program).c_str(),
              SystemError(code).Reason.c_str());
  std::fflush(stdout);
}

// Interrupts from the keyboard are for the program alone.
void Run(const std::vector<std::string>& words) {
  const auto interrupted = std::signal(SIGINT, SIG_IGN);
  const auto quit = std::signal(SIGQUIT, SIG_IGN);
  const pid_t program = fork();
  if (program == 0) {
    std::signal(SIGINT, interrupted);
    std::signal(SIGQUIT, quit);
    TellFailure(words.front(), Become(words));
    _exit(EXIT_FAILURE);
  }
  int state = 0;
  while (program > 0 && waitpid(program, &state, 0) < 0 && errno == EINTR) continue;
  std::signal(SIGINT, interrupted);
  std::signal(SIGQUIT, quit);
}

int RunInside(const std::string& codedFolder, const std::vector<std::string>& codedWords,
              TerminalEnd end) {
  const std::optional<std::string> folder = Decoded(codedFolder);
  std::vector<std::string> words;
  for (const std::string& coded : codedWords) {
    const std::optional<std::string> word = Decoded(coded);
    if (!word) return EXIT_FAILURE;
    words.push_back(*word);
  }
  if (!folder) return EXIT_FAILURE;
  int code = 0;
  if (!folder->empty() && chdir(folder->c_str()) != 0) code = errno;
  if (code == 0 && !folder->empty()) setenv("PWD", folder->c_str(), 1);
  if (code == 0 && end == TerminalEnd::Shell) {
    Run(words);
    words = {UserShell()};
  }
  if (code == 0) code = Become(words);
  // The terminal closes with this process.
  TellFailure(words.front(), code);
  std::puts("Press Enter to close.");
  while (std::getchar() != '\n' && std::feof(stdin) == 0) continue;
  return EXIT_FAILURE;
}

}  // namespace

std::vector<std::string> TerminalCall(const std::vector<std::string>& words,
                                      const std::string& folder, TerminalEnd end) {
  return CallOf(OwnFile(), words, folder, end);
}

std::string TerminalPrefix() {
  if (TerminalWords().empty()) return "";
  const std::string own = OwnFile();
  return own + " " + std::string(startOption) + " " + own;
}

std::string UserShell() {
  const char* const chosen = std::getenv("SHELL");
  if (chosen != nullptr && *chosen == '/' && access(chosen, X_OK) == 0) return chosen;
  const passwd* const user = getpwuid(getuid());
  const bool has = user != nullptr && user->pw_shell != nullptr && *user->pw_shell != '\0';
  return has ? user->pw_shell : "/bin/sh";
}

base::Status NoTerminal(const std::string& program) {
  return {ENOENT, "There is no terminal to start " + program + " in"};
}

std::optional<int> AnswerTerminalCall(int count, char** arguments) {
  constexpr int words = 3;  // behind the option and what comes first
  if (count <= words) return std::nullopt;
  const std::vector<std::string> rest(arguments + words, arguments + count);
  if (arguments[1] == startOption) return StartTerminal(arguments[2], rest);
  if (arguments[1] == insideOption) return RunInside(arguments[2], rest, TerminalEnd::Closes);
  if (arguments[1] == shellOption) return RunInside(arguments[2], rest, TerminalEnd::Shell);
  return std::nullopt;
}

}  // namespace tarnwell::platform
