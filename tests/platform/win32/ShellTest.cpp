#include "Test.h"
#include "platform/win32/shell/CutItems.h"
#include "platform/win32/shell/ItemIds.h"

namespace tarnwell::platform {
namespace {

TEST(ShellTest, ItemsHavePlaces) {
  const ComThread com;
  ItemIds ids, child;
  ComPtr<IShellFolder> parent, folder;
  ASSERT_TRUE(ReadItemIds(R"(C:\windows\)", ids));
  EXPECT_TRUE(OpenParent(*ids, parent, child) &&
              ReadItemIds(*parent.Get(), R"(C:\windows)", child));
  EXPECT_TRUE(OpenShellFolder(*ids, folder) &&
              ReadItemIds(*folder.Get(), R"(C:\windows\system32)", child));
  EXPECT_EQ(ReadItemIds(*folder.Get(), R"(C:\windows\none)", child).Code,
            HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND));
  EXPECT_FALSE(ReadItemIds(R"(C:\none)", ids).Reason.empty());
  EXPECT_EQ(ids, nullptr);
  for (const char* path : {R"(C:\windows )", R"(C:\windows.\system32)", R"(C:\nul\)"}) {
    EXPECT_EQ(ReadItemIds(path, ids).Code, HRESULT_FROM_WIN32(ERROR_INVALID_NAME)) << path;
  }
  EXPECT_TRUE(ReadItemIds(R"(C:\)", ids));
  const std::string deep = R"(C:\windows\)" + std::string(MAX_PATH, 'x');
  EXPECT_EQ(ReadItemIds(deep, ids).Code, HRESULT_FROM_WIN32(ERROR_FILENAME_EXCED_RANGE));
}

// As the shell puts them there.
void PutOnClipboard(HWND owner, std::wstring files, char effect) {
  const auto put = [](UINT format, const std::string& bytes) {
    const HGLOBAL content = GlobalAlloc(GMEM_MOVEABLE, bytes.size());
    std::ranges::copy(bytes, static_cast<char*>(GlobalLock(content)));
    GlobalUnlock(content);
    SetClipboardData(format, content);
  };
  const DROPFILES head{.pFiles = sizeof(DROPFILES), .pt = {}, .fNC = FALSE, .fWide = TRUE};
  std::string list(reinterpret_cast<const char*>(&head), sizeof head);
  files += L'\0';
  list.append(reinterpret_cast<const char*>(files.data()), files.size() * sizeof(wchar_t));
  ASSERT_NE(OpenClipboard(owner), 0);
  EmptyClipboard();
  put(CF_HDROP, list);
  if (effect != 0) {
    put(RegisterClipboardFormatW(CFSTR_PREFERREDDROPEFFECT), {effect, 0, 0, 0});
  }
  CloseClipboard();
}

TEST(ShellTest, ItemsAreCutUntilTheClipboardHasOthers) {
  const ComThread com;
  const HWND owner =
      CreateWindowW(L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
  const std::wstring files(L"C:\\a\xD800\0C:\\\x4E2D\0", 11);
  PutOnClipboard(owner, files, 2);
  EXPECT_EQ(ItemsCutHere(), std::string("C:\\a\xED\xA0\x80\0C:\\\xE4\xB8\xAD\0", 15));
  for (const char effect : {char{5}, char{0}}) {
    PutOnClipboard(owner, files, effect);
    EXPECT_EQ(ItemsCutHere(), "");
  }
  DestroyWindow(owner);
}

}  // namespace
}  // namespace tarnwell::platform
