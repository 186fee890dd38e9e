#include <shellapi.h>

#include "MenuServices.h"
#include "RunUntil.h"
#include "TempFolder.h"
#include "platform/win32/menu/MenuEntries.h"
#include "platform/win32/menu/MenuMessages.h"

namespace tarnwell::platform {
namespace {

std::wstring CaptionIn(HMENU menu, UINT place) {
  wchar_t caption[100] = L"";
  GetMenuStringW(menu, place, caption, static_cast<int>(std::size(caption)), MF_BYPOSITION);
  return caption;
}

std::string CopiedFiles() {
  std::string names;
  if (OpenClipboard(nullptr) == 0) return "no clipboard";
  const auto files = static_cast<HDROP>(GetClipboardData(CF_HDROP));
  const UINT count = files == nullptr ? 0 : DragQueryFileW(files, 0xFFFFFFFF, nullptr, 0);
  for (UINT at = 0; at < count; ++at) {
    wchar_t name[MAX_PATH] = L"";
    DragQueryFileW(files, at, name, MAX_PATH);
    names += Narrow(name) + "|";
  }
  CloseClipboard();
  return names;
}

TEST(WindowsContextMenuTest, CarriesTheShellsEntriesOut) {
  const TempFolder place;
  place.Make({"a.txt=text", "\u00e9\u4e2d=", "dir/c=", "dir/d="});
  std::string copied;
  {
    TestedMenus tested;
    for (const std::vector<std::string>& names : {std::vector<std::string>{"a.txt", "\u00e9\u4e2d"},
                                                  {"dir\\c", "dir\\d"},
                                                  {"a.txt", "dir\\c"}}) {
      const auto menu = tested.Create();
      const auto items = tested.Menus.ForItems(place / "", names);
      // Not every shell has a menu for items of several folders; none has one for others then.
      if (items == nullptr && names[0] == "a.txt" && names[1] == "dir\\c") continue;
      std::vector<ContextEntry> entries;
      ASSERT_TRUE(items->Fill(menu->Handle(), 1, 32767, entries));
      const auto copy = std::ranges::find(entries, "&Copy", &ContextEntry::Caption);
      ASSERT_NE(copy, entries.end());
      EXPECT_EQ(items->Invoke(copy->Id - 1), NoOperation);
      copied = place / names[0] + "|" + place / names[1] + "|";
      EXPECT_EQ(CopiedFiles(), copied);
    }
    const auto menu = tested.Create();
    std::vector<ContextEntry> entries;
    EXPECT_FALSE(tested.Menus.ForItems("C:\\", {})->Fill(0, 1, 32767, entries));
    EXPECT_EQ(tested.Menus.ForItems(place / "", {"none"}), nullptr);
    EXPECT_EQ(tested.Menus.Find(place / "none").Code, HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND));
    EXPECT_TRUE(tested.Menus.Find("C:\\"));
    // The shell would take it for the file beside it.
    std::ofstream(PathOf(place / "a.txt.")) << "other";
    EXPECT_EQ(tested.Menus.Find(place / "a.txt.").Code, HRESULT_FROM_WIN32(ERROR_INVALID_NAME));
  }
  EXPECT_EQ(CopiedFiles(), copied);
}

TEST(WindowsContextMenuTest, OwnEntriesStandAboveTheShells) {
  TestedMenus tested;
  const auto popup = tested.Create();
  const auto menu = reinterpret_cast<HMENU>(popup->Handle());
  const auto items = tested.Menus.ForItems("C:\\", {"windows"});
  std::vector<ContextEntry> entries;
  ASSERT_TRUE(items->Fill(popup->Handle(), 1, 32767, entries));
  const int shells = GetMenuItemCount(menu);
  EXPECT_EQ(shells, static_cast<int>(entries.size()));
  ContextEntry line, colours, made;
  line.IsSeparator = true;
  colours.Caption = "&Colour\n";
  colours.Children = {{119999, "Red", "red", false, true, false, {}}};
  made.Id = 111795;
  made.Caption = "&New";
  made.Enabled = false;
  for (const ContextEntry& entry : {line, colours, made}) EXPECT_TRUE(popup->InsertOnTop(entry));
  EXPECT_EQ(GetMenuItemCount(menu), shells + 3);
  EXPECT_EQ(CaptionIn(menu, 0) + CaptionIn(menu, 1), L"&New\tF7&Colour\u240A");
  EXPECT_NE(GetMenuState(menu, 111795, MF_BYCOMMAND) & MF_DISABLED, 0U);
  const HMENU below = GetSubMenu(menu, 1);
  EXPECT_EQ(GetMenuItemID(below, 0), 119999U);
  MENUITEMINFOW info{};
  info.cbSize = sizeof info;
  info.fMask = MIIM_BITMAP;
  DIBSECTION picture{};
  GetMenuItemInfoW(below, 0, TRUE, &info);
  ASSERT_NE(GetObjectW(info.hbmpItem, sizeof picture, &picture), 0);
  EXPECT_EQ(*static_cast<const std::uint32_t*>(picture.dsBm.bmBits), 0xFFFF0000);
  popup->Remove(111795);
  EXPECT_EQ(CaptionIn(menu, 0), L"&Colour\u240A");
}

// A menu whose entries are drawn by itself.
struct DrawingMenu : IContextMenu3 {
  std::map<UINT, int> Messages;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** found) override {
    *found = static_cast<IContextMenu3*>(this);
    return id == IID_IContextMenu3 ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE QueryContextMenu(HMENU, UINT, UINT, UINT, UINT) override {
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE InvokeCommand(CMINVOKECOMMANDINFO*) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE GetCommandString(UINT_PTR offset, UINT, UINT*, char* verb,
                                             UINT) override {
    wcscpy(reinterpret_cast<wchar_t*>(verb), L"delete");
    return offset == 4 ? S_OK : E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE HandleMenuMsg(UINT, WPARAM, LPARAM) override { return E_FAIL; }
  HRESULT STDMETHODCALLTYPE HandleMenuMsg2(UINT message, WPARAM, LPARAM, LRESULT* result) override {
    ++Messages[message];
    *result = message == WM_MENUCHAR ? MAKELRESULT(3, MNC_SELECT) : 0;
    return S_OK;
  }
};

TEST(WindowsContextMenuTest, ShellDrawsByTheWindowsMessages) {
  const TestWindow window;
  DrawingMenu drawing;
  const ComPtr<IContextMenu> shell(&drawing);
  {
    const MenuMessages messages(window.Handle, shell);
    EXPECT_TRUE(messages.Outcome());
    for (const UINT message : {WM_DRAWITEM, WM_MEASUREITEM}) {
      EXPECT_EQ(SendMessageW(window.Handle, message, 0, 0), TRUE);
    }
    EXPECT_EQ(SendMessageW(window.Handle, WM_INITMENUPOPUP, 0, 0), 0);
    EXPECT_EQ(SendMessageW(window.Handle, WM_MENUCHAR, 'x', 0), MAKELRESULT(3, MNC_SELECT));
    SendMessageW(window.Handle, WM_USER, 0, 0);
    const std::map<UINT, int> drawn{
        {WM_DRAWITEM, 1}, {WM_MEASUREITEM, 1}, {WM_INITMENUPOPUP, 1}, {WM_MENUCHAR, 1}};
    EXPECT_EQ(drawing.Messages, drawn);
    for (const auto& [message, times] : drawn) EXPECT_EQ(TestWindow::Messages[message], times);
    EXPECT_EQ(TestWindow::Messages[WM_USER], 1);
    {
      const MenuMessages inner(window.Handle, shell);  // the outer one goes on
    }
    SendMessageW(window.Handle, WM_CLOSE, 0, 0);
    EXPECT_EQ(TestWindow::Messages[WM_CLOSE], 0);
  }
  EXPECT_TRUE(RunUntil([] { return TestWindow::Messages[WM_CLOSE] == 1; }));
  SendMessageW(window.Handle, WM_DRAWITEM, 0, 0);
  EXPECT_EQ(drawing.Messages[WM_DRAWITEM], 1);

  const HMENU menu = CreatePopupMenu();
  AppendMenuW(menu, MF_OWNERDRAW, 14, nullptr);
  AppendMenuW(menu, MF_OWNERDRAW, 15, nullptr);
  AppendMenuW(menu, MF_STRING | MF_GRAYED, 99, L"&Beyond");
  const std::vector<ContextEntry> entries = EntriesOf(menu, {10, 20}, *shell.Get());
  DestroyMenu(menu);
  ASSERT_EQ(entries.size(), 3U);
  EXPECT_EQ(entries[0].Caption + entries[1].Caption + entries[2].Caption, "Delete&Beyond");
  EXPECT_TRUE(entries[2].Id == 0 && !entries[2].Enabled && entries[0].Id == 14);
}

}  // namespace
}  // namespace tarnwell::platform
