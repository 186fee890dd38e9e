#include "Test.h"
#include "TestApplication.h"
#include "fakes/TestFile.h"
#include "shell/GifReader.h"
#include "ui/forms/GifPictures.h"
#include "ui/toolkit/Convert.h"

namespace tarnwell::ui {
namespace {

// The colours down the left edge of the first frame.
std::string EdgeOf(const std::string& content) {
  shell::GifFrame frame;
  if (!shell::GifReader(content).Read(frame)) return "none";
  std::vector<shell::GifImage> frames(1);
  frames[0].Width = frames[0].Height = ToTwips(frame.Width / shell::PixelsPerShown);
  frames[0].Content = frame.File;
  std::string text;
  const QImage picture = GifPictures().Picture(frames, frames[0]);
  for (int y = 0; y < picture.height(); ++y) text += picture.pixelColor(0, y).name().toStdString();
  return text;
}

TEST(GifPicturesTest, UnpacksFramesAndOutlivesDamage) {
  TestApplication();
  const auto read = [](const std::string& name) {
    return fakes::ReadTestFile("fuzz/gifs/" + name);
  };
  EXPECT_EQ(EdgeOf(read("local-table.gif")), "#070809#070809");
  EXPECT_EQ(EdgeOf(read("interlaced.gif")),
            "#c80000#ffffff#0000c8#ffffff#00c800#ffffff#0000c8#ffffff");
  EXPECT_EQ(EdgeOf(read("huge.gif")), "");
  for (const auto& entry : std::filesystem::directory_iterator(TARNWELL_TESTS "/fuzz/gifs")) {
    const std::string content = read(entry.path().filename());
    for (std::size_t size = 0; size < content.size(); ++size) EdgeOf(content.substr(0, size));
  }
}

}  // namespace
}  // namespace tarnwell::ui
