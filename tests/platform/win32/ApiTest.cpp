#include "RunUntil.h"
#include "platform/win32/api/FileTime.h"
#include "platform/win32/api/PostToLoop.h"
#include "platform/win32/api/ProcessText.h"
#include "platform/win32/api/SystemError.h"
#include "platform/win32/api/WideName.h"

namespace tarnwell::platform {
namespace {

TEST(ApiTest, PathsOfAnyLengthKeepTheirNames) {
  EXPECT_EQ(LongPath(R"(C:\a. )"), LR"(\\?\C:\a. )");
  EXPECT_EQ(LongPath(R"(\\server\share\a)"), LR"(\\?\UNC\server\share\a)");
  EXPECT_EQ(LongPath(R"(C:\..\a\.\\b\..\c\)"), LR"(\\?\C:\a\c)");
  EXPECT_EQ(LongPath(R"(\\server\share\..\a\)"), LR"(\\?\UNC\server\share\a)");
  EXPECT_EQ(LongPath(R"(C:\a\..)") + LongPath(R"(\\server\share\)"),
            LR"(\\?\C:\\\?\UNC\server\share)");
  for (const char* path : {R"(C:\a)", R"(\\server\share)", "name"}) {
    EXPECT_EQ(FromLongPath(LongPath(path)), path);
  }
  EXPECT_EQ(FromLongPath(LR"(\\?\Volume{1-2}\a)"), R"(\\?\Volume{1-2}\a)");
}

TEST(ApiTest, FoldersThatPeopleNameComeAsTheListsHaveThem) {
  EXPECT_EQ(FullFolder(R"(\\?\C:\a\..\b\)"), R"(C:\b)");
  EXPECT_EQ(FullFolder(R"(\\?\UNC\nas\photos\)"), R"(\\nas\photos)");
  EXPECT_EQ(FullFolder(R"(\\?\Volume{1}\a)"), R"(\\?\Volume{1}\a)");
  EXPECT_EQ(FullFolder("C:/") + FullFolder("C:/a b/"), R"(C:\C:\a b)");
}

TEST(ApiTest, TimesBeforeAndBehindTheEpoch) {
  EXPECT_EQ(FromFileTime({0, 0}), UnknownTime);
  EXPECT_EQ(FromFileTime({0xD53E8000, 0x019DB1DE}), 0);
  EXPECT_EQ(FromFileTime({0xD53E7FFF, 0x019DB1DE}), -100);
  EXPECT_EQ(FromFileTime({0xFFFFFFFF, 0xFFFFFFFF}), UnknownTime);
}

TEST(ApiTest, ReasonsAreWords) {
  EXPECT_TRUE(SystemError(ERROR_SUCCESS));
  const base::Status status = SystemError(ERROR_ACCESS_DENIED);
  EXPECT_EQ(status.Code, ERROR_ACCESS_DENIED);
  EXPECT_FALSE(status.Reason.empty() || status.Reason.ends_with('.')) << status.Reason;
  EXPECT_EQ(ComError(HRESULT_FROM_WIN32(ERROR_ACCESS_DENIED)).Reason, status.Reason);
  EXPECT_FALSE(ComError(E_FAIL));
}

TEST(ApiTest, PostsComInOrderAlsoWithinALoopOfACall) {
  std::string made;
  std::thread([&made] {
    PostToLoop([&made] {
      made += "a";
      EXPECT_TRUE(RunUntil([&made] { return made == "abc"; }));
      made += "d";
    });
    for (const char* each : {"b", "c"}) PostToLoop([&made, each] { made += each; });
  }).join();
  EXPECT_TRUE(RunUntil([&made] { return made.size() == 4; }));
  EXPECT_EQ(made, "abcd");
}

}  // namespace
}  // namespace tarnwell::platform
