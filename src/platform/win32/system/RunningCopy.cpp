#include "platform/win32/system/RunningCopy.h"

#include <optional>
#include <string_view>
#include <utility>

#include "base/ItemList.h"
#include "base/PathSyntax.h"
#include "platform/win32/api/PostToLoop.h"
#include "platform/win32/api/WideName.h"
#include "platform/win32/files/HomeFolder.h"

namespace tarnwell::platform {
namespace {

constexpr const wchar_t* CopyWindow = L"TarnwellCopy";
constexpr ULONG_PTR OpenFolders = 0x54774F70;  // what WM_COPYDATA is about: an item list
constexpr UINT AnswerLimit = 5000;             // milliseconds

// By what a copy is told from those of others: the session has windows of its own.
std::wstring CopyName(const std::string& programFolder) {
  const base::PathSyntax& rules = base::PathSyntax::Windows();
  return Wide(rules.Key(programFolder) + "|" + rules.Key(FindHomeFolder()));
}

// Windows that never come up lie in the order in which they were made, the newest on top.
HWND OldestCopy(const std::wstring& name) {
  HWND found = nullptr;
  for (HWND next = nullptr;;) {
    next = FindWindowExW(nullptr, next, CopyWindow, name.c_str());
    if (next == nullptr) return found;
    found = next;
  }
}

// Nothing where the message is none of a copy's.
std::optional<std::vector<std::string>> FoldersOf(const COPYDATASTRUCT& data) {
  if (data.dwData != OpenFolders) return {};
  std::vector<std::string> folders;
  const std::string text(static_cast<const char*>(data.lpData), data.cbData);
  for (const std::string_view path : base::ItemList(text)) {
    if (base::PathSyntax::Windows().IsWhole(path)) folders.emplace_back(path);
  }
  return folders;
}

}  // namespace

bool AskRunningCopy(const std::string& programFolder, const std::vector<std::string>& folders) {
  HWND const copy = OldestCopy(CopyName(programFolder));
  if (copy == nullptr) return false;
  DWORD process = 0;
  GetWindowThreadProcessId(copy, &process);
  AllowSetForegroundWindow(process);
  std::string text = base::ItemList::TextOf(folders);
  COPYDATASTRUCT data{OpenFolders, static_cast<DWORD>(text.size()), text.data()};
  DWORD_PTR answer = FALSE;
  return SendMessageTimeoutW(copy, WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&data),
                             SMTO_ABORTIFHUNG, AnswerLimit, &answer) != 0 &&
         answer == TRUE;
}

// Answered first: whoever asks is not to wait for what opens.
RunningCopy::RunningCopy(const std::string& programFolder, Opens opens)
    : opens_(std::make_shared<Opens>(std::move(opens))),
      window_(CopyWindow, [this](UINT message, WPARAM, LPARAM data) -> std::optional<LRESULT> {
        if (message != WM_COPYDATA) return {};
        const auto folders = FoldersOf(*reinterpret_cast<const COPYDATASTRUCT*>(data));
        if (!folders) return FALSE;
        PostToLoop([told = std::weak_ptr<Opens>(opens_), folders] {
          if (const auto call = told.lock()) (*call)(*folders);
        });
        return TRUE;
      }) {
  SetWindowTextW(window_.Get(), CopyName(programFolder).c_str());
}

}  // namespace tarnwell::platform
