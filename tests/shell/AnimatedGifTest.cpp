#include "Test.h"
#include "TestRun.h"
#include "fakes/TestFile.h"
#include "fuzz/GifProperties.h"

namespace tarnwell::shell {
namespace {

// " delay,left,top" of each frame, and how often it repeats.
std::string FramesOf(std::string_view content) {
  GifReader reader(content);
  std::ostringstream text;
  for (GifFrame frame; reader.Read(frame);) {
    text << ' ' << frame.Delay << ',' << frame.Left << ',' << frame.Top;
  }
  text << ' ' << reader.RepeatCount();
  return text.str();
}

// The same by looking for the bytes that begin a frame, which no others of the file are like.
std::string FramesByMarker(const std::string& content) {
  constexpr std::string_view marker("\0\x21\xF9", 3);
  const auto number = [&](std::size_t at) {
    return std::uint8_t(content.at(at)) + 256 * std::uint8_t(content.at(at + 1));
  };
  std::ostringstream text;
  for (std::size_t at = 0; (at = content.find(marker, at)) != std::string::npos; ++at) {
    text << ' ' << number(at + 5) * 10 << ',' << number(at + 10) << ',' << number(at + 12);
  }
  text << ' ' << (content.find(marker) + 1 >= 127 ? number(125) : 0);
  return text.str();
}

struct AnimatedGifTest : testing::Test {
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
  int cycle = 0;
  for (const GifImage& each : Images) cycle += each.Tag;
  EXPECT_TRUE(Gif.GifLastFrame >= 12 && cycle > 0 && cycle <= 600) << cycle;
}

TEST_F(AnimatedGifTest, ReadsDamagedOnesAsFarAsTheyGo) {
  std::istringstream expected(fakes::ReadTestFile("shell/gifs.txt"));
  for (std::string line; std::getline(expected, line);) {
    const std::string name = line.substr(0, line.find(' '));
    const std::string content = fakes::ReadTestFile("fuzz/gifs/" + name + ".gif");
    EXPECT_EQ(name + FramesOf(content), line);
    for (std::size_t size = 0; size <= content.size(); ++size) {
      ASSERT_EQ(fuzz::BrokenGifRule(std::string_view(content).substr(0, size)), "") << name << size;
    }
  }
  std::string noise(10'000'000, '\0'), many = fakes::ReadTestFile("fuzz/gifs/no-trailer.gif");
  std::minstd_rand random;
  for (char& byte : noise) byte = static_cast<char>(random());
  EXPECT_EQ(fuzz::BrokenGifRule(many + noise) + fuzz::BrokenGifRule("GIF89a" + noise), "");
  while (many.size() < noise.size()) many += many.substr(25);
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
  for (const char* content : {"", "GIF", "GIF89a and nothing else"}) {
    EXPECT_FALSE(Load(content));
    EXPECT_EQ(Dialogs.Criticals.back(), "This file is not a *.gif file");
    EXPECT_EQ(Images.size(), 1U);
  }
}

}  // namespace
}  // namespace tarnwell::shell
