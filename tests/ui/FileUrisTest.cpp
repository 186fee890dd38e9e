#include <QClipboard>
#include <QGuiApplication>

#include "Test.h"
#include "TestApplication.h"
#include "ui/services/QtFileClipboard.h"
#include "ui/toolkit/FileUris.h"
#include "ui/toolkit/PathUri.h"

namespace tarnwell::ui {
namespace {

using namespace std::string_literals;
using platform::ClipboardFiles;

TEST(FileUris, ComeBackAsTheyWere) {
  const std::string items = "/d/a b\xFF%\n#?\0/d/\xC3\xA4\0/\0"s;
  EXPECT_EQ(MimeDataOf(items)->data("text/uri-list"),
            "file:///d/a%20b%FF%25%0A%23%3F\r\nfile:///d/%C3%A4\r\nfile:///\r\n");
  TestApplication();
  QtFileClipboard clipboard;
  for (const bool cut : {false, true}) {
    clipboard.Put({items, cut, 0});
    EXPECT_TRUE(clipboard.HasFiles());
    EXPECT_EQ(clipboard.Get().Items, items);
    EXPECT_EQ(clipboard.Get().IsCut, cut);
    // As a program takes it that knows but one of the formats.
    const std::unique_ptr<QMimeData> all = ClipboardDataOf({items, cut, 0});
    QMimeData lists, marked;
    lists.setData("text/uri-list", all->data("text/uri-list"));
    lists.setData("application/x-kde-cutselection", all->data("application/x-kde-cutselection"));
    marked.setData("x-special/gnome-copied-files", all->data("x-special/gnome-copied-files"));
    for (const QMimeData* const data : {&lists, &marked}) {
      EXPECT_TRUE(HasFiles(*data));
      EXPECT_EQ(FilesOf(*data).Items, items);
      EXPECT_EQ(FilesOf(*data).IsCut, cut);
    }
    EXPECT_EQ(all->text(), QString::fromUtf8("/d/a b\xFF%\n#?\n/d/\xC3\xA4\n/"));
  }
  clipboard.Clear();
  EXPECT_FALSE(clipboard.HasFiles());
  EXPECT_EQ(clipboard.Get().Items, "");
}

// What the shell of the system cuts is not put there by the program itself.
TEST(FileUris, AreCutUntilTheClipboardHasOthers) {
  TestApplication();
  std::string byShell;
  std::vector<std::string> told;
  QtFileClipboard clipboard([&byShell] { return byShell; });
  clipboard.CutChanged = [&told](const std::string& items) { told.push_back(items); };
  for (const std::string& items : {"/shells\0"s, "/shells\0"s, ""s}) {
    byShell = items;
    QGuiApplication::clipboard()->setMimeData(new QMimeData);
  }
  EXPECT_EQ(told, (std::vector<std::string>{"/shells\0"s, ""}));
}

TEST(FileUris, AreReadFromOtherPrograms) {
  const QByteArray host = QSysInfo::machineHostName().toUtf8();
  QMimeData data;
  data.setData("text/uri-list",
               "# from a browser\r\n\r\nfile:///a%2Bb/c%e4.txt\r\n"
               "FILE://LocalHost/x//\r\nfile:/short\nfile://" +
                   host.toUpper() +
                   "/mine\nhttps://example.org/a\r\nfile://elsewhere/share/f\n"
                   "file:relative\nfile:///nul%00name\n/no/address\nfile://\n"
                   "file:///100%\nfile:///50%2\nfile:///%zz");
  ClipboardFiles files = FilesOf(data);
  EXPECT_EQ(files.Items, "/a+b/c\xE4.txt\0/x\0/short\0/mine\0/100%\0/50%2\0/%zz\0"s);
  EXPECT_EQ(files.Foreign, 6);
  EXPECT_FALSE(files.IsCut);

  // What is said of a cut counts for the list that says it; without one the other list serves.
  data.setData("x-special/gnome-copied-files",
               QByteArray("cut\nfile:///a/../one/.\rfile:///../t%20wo//\n") + QByteArray(1, '\0'));
  files = FilesOf(data);
  EXPECT_EQ(files.Items, "/one\0/t wo\0"s);
  EXPECT_TRUE(files.IsCut);
  EXPECT_EQ(files.Foreign, 0);
  EXPECT_EQ(PathOfUri("file:///a/b%2f%2E./..x/c/.."), "/a/..x");
  EXPECT_EQ(PathOfUri("file:///a/.."), "/");
  const base::PathSyntax& windows = base::PathSyntax::Windows();
  for (const char* path : {"C:\\", "C:\\a b\\\xC3\xA4", "\\\\server\\share\\x"}) {
    EXPECT_EQ(PathOfUri(UriOfPath(path, windows), windows), path);
  }
  EXPECT_EQ(UriOfPath("C:\\a b", windows), "file:///C:/a%20b");
  EXPECT_EQ(UriOfPath("\\\\server\\x", windows), "file://server/x");
  EXPECT_EQ(PathOfUri("file:///C:/a%5C..%5cb", windows) + PathOfUri("file:///a", windows), "C:\\b");
  for (const char* broken : {"", "cut", "cut\n", "paste\nfile:///one"}) {
    data.setData("x-special/gnome-copied-files", broken);
    EXPECT_EQ(FilesOf(data).Foreign, 6) << broken;
    EXPECT_FALSE(FilesOf(data).IsCut) << broken;
  }
  QMimeData text;
  text.setText("file:///a");
  EXPECT_FALSE(HasFiles(text));
  EXPECT_EQ(FilesOf(text).Items + std::to_string(FilesOf(text).Foreign), "0");
}

}  // namespace
}  // namespace tarnwell::ui
