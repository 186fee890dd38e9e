#include "Test.h"
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

}  // namespace
}  // namespace tarnwell::platform
