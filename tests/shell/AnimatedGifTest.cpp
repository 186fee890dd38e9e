#include "Test.h"
#include "TestRun.h"
#include "fakes/TestFile.h"
#include "fuzz/GifProperties.h"

namespace tarnwell::shell {
namespace {

// "delay at left,top" of each frame, and how often it repeats.
std::string FramesOf(std::string_view content) {
  GifReader reader(content);
  GifFrame frame;
  std::string text;
  while (reader.Read(frame)) {
    text += std::to_string(frame.Delay) + " at " + std::to_string(frame.Left) + "," +
            std::to_string(frame.Top) + "; ";
  }
  return text + std::to_string(reader.RepeatCount());
}

// The same by looking for the bytes that begin a frame, which no other bytes of the file are like.
std::string FramesByMarker(const std::string& content) {
  constexpr std::string_view marker("\0\x21\xF9", 3);
  const auto number = [&](std::size_t at) {
    return std::uint8_t(content.at(at)) + 256 * std::uint8_t(content.at(at + 1));
  };
  std::string text;
  std::size_t at = content.find(marker);
  const int repeats = at + 1 >= 127 ? number(125) : 0;
  for (; at != std::string::npos; at = content.find(marker, at + 1)) {
    text += std::to_string(number(at + 1 + 4) * 10) + " at " + std::to_string(number(at + 1 + 9)) +
            "," + std::to_string(number(at + 1 + 11)) + "; ";
  }
  return text + std::to_string(repeats);
}

class AnimatedGifTest : public testing::Test {
 protected:
  bool Load(const std::string& content) {
    Machine.Files.AddFile("C:\\a.gif", content);
    return Gif.LoadAniGif("C:\\a.gif", Images);
  }
  TestMachine Machine;
  fakes::FakeDialogs Dialogs;
  AnimatedGif Gif{Machine.Files, Dialogs, Machine.Pump};
  std::vector<GifImage> Images{1};
};

TEST_F(AnimatedGifTest, ReadsTheShippedOneWhoseCycleIsShort) {
  const std::string shipped = fakes::ReadTestFile("../data/ring6full.gif");
  EXPECT_EQ(FramesOf(shipped), FramesByMarker(shipped));
  ASSERT_TRUE(Load(shipped));
  EXPECT_GE(Gif.GifLastFrame, 12);
  int cycle = 0;
  for (const GifImage& each : Images) cycle += each.Tag;
  EXPECT_TRUE(cycle > 0 && cycle <= 600) << cycle;
}

TEST_F(AnimatedGifTest, ReadsDamagedOnesAsFarAsTheyGo) {
  const std::map<std::string, std::string> frames = {
      {"two-frames", "20 at 0,0; 3000 at 2,4; 0"},
      {"repeats", "20 at 0,0; 7"},
      {"interlaced", "50 at 0,0; 0"},
      {"local-table", "50 at 0,0; 0"},
      {"beyond-the-screen", "0 at 6,6; 0 at 65535,65535; 0"},
      {"huge", "655350 at 65535,65535; 0"},
      {"no-trailer", "20 at 0,0; 30 at 0,0; 0"},
      {"no-frames", "0"},
      {"still", "0"},
      {"no-colours", "20 at 0,0; 0"},
      {"no-size", "20 at 0,0; 0"},
      {"short-control", "0 at 0,0; 90 at 1,1; 0"},
      {"long-blocks", "20 at 0,0; 0"},
      {"marker-in-comment", "20 at 2,2; 30 at 4,2; 0"},
      {"data-of-noise", "20 at 0,0; 0"}};
  std::size_t count = 0;
  for (const auto& entry : std::filesystem::directory_iterator(TARNWELL_TESTS "/fuzz/gifs")) {
    const std::string content =
        fakes::ReadTestFile("fuzz/gifs/" + entry.path().filename().string());
    EXPECT_EQ(FramesOf(content), frames.at(entry.path().stem())) << entry.path();
    for (std::size_t size = 0; size <= content.size(); ++size) {
      ASSERT_EQ(fuzz::BrokenGifRule(std::string_view(content).substr(0, size)), "")
          << entry.path() << ", first " << size << " bytes";
    }
    ++count;
  }
  EXPECT_EQ(count, frames.size());

  std::string noise(10'000'000, '\0');
  std::minstd_rand random;
  for (char& byte : noise) byte = static_cast<char>(random());
  const std::string frame = fakes::ReadTestFile("fuzz/gifs/no-trailer.gif");
  EXPECT_EQ(fuzz::BrokenGifRule(frame + noise), "");
  EXPECT_EQ(fuzz::BrokenGifRule("GIF89a" + noise), "");
  std::string many = frame;
  while (many.size() < noise.size()) many += frame.substr(25);
  ASSERT_TRUE(Load(many));
  EXPECT_EQ(Gif.GifLastFrame, 32767);
}

TEST_F(AnimatedGifTest, PlacesFramesByHalfTheirOffsetsFromTheFirst) {
  Images[0].Left = Images[0].Top = 150;
  for (int times = 0; times < 2; ++times) {
    ASSERT_TRUE(Load(fakes::ReadTestFile("fuzz/gifs/marker-in-comment.gif")));
    ASSERT_EQ(Images.size(), 2U);
    EXPECT_TRUE(Images[0].Left == 150 && Images[0].Top == 150 && Images[0].Width == 30);
    EXPECT_TRUE(Images[1].Left == 180 && Images[1].Top == 165 && Images[1].Tag == 30);
  }
  EXPECT_EQ(Machine.Pump.Calls, 4);  // after each frame
  ASSERT_TRUE(Load(fakes::ReadTestFile("fuzz/gifs/repeats.gif")));
  EXPECT_TRUE(Gif.GifRepeatCount == 7 && Gif.GifLastFrame == 0 && Images.size() == 1);
}

TEST_F(AnimatedGifTest, TellsOfFilesThatItCannotPlay) {
  Machine.Files.AddFile("C:\\folder\\x", "");
  EXPECT_FALSE(Gif.LoadAniGif("", Images));
  EXPECT_FALSE(Gif.LoadAniGif("C:\\gone.gif", Images));
  EXPECT_FALSE(Gif.LoadAniGif("C:\\folder", Images));
  EXPECT_EQ(Dialogs.Criticals,
            (Texts{"File  not found", "File C:\\gone.gif not found", "File C:\\folder not found"}));
  for (const char* content : {"", "PNG", "GIF", "GIF89a and nothing else"}) {
    EXPECT_FALSE(Load(content));
    EXPECT_EQ(Dialogs.Criticals.back(), "This file is not a *.gif file");
    EXPECT_EQ(Images.size(), 1U);
  }
  EXPECT_EQ(Dialogs.Criticals.size(), 7U);
}

}  // namespace
}  // namespace tarnwell::shell
