#include "shell/AnimatedGif.h"

#include <cstddef>
#include <utility>

#include "base/Measure.h"
#include "shell/GifReader.h"

namespace tarnwell::shell {
namespace {

// Far beyond any animation, and still quickly read.
constexpr std::uint64_t LargestFile = 64 << 20;
constexpr std::size_t MostFrames = 32768;

base::Twips ShownMeasure(int pixels) {
  return pixels * base::TwipsPerPixel / PixelsPerShown;
}

}  // namespace

bool AnimatedGif::LoadAniGif(const std::string& path, std::vector<GifImage>& frames) {
  if (path.empty() || !files_.Exists(path) || files_.FolderExists(path)) {
    return Fail("File " + path + " not found");
  }
  frames.resize(1);
  std::string content;
  if (!ReadFile(path, content)) return false;
  GifReader reader(content);
  GifFrame frame;
  if (!reader.Read(frame)) return Fail("This file is not a *.gif file");
  GifRepeatCount = reader.RepeatCount();

  // Handed over as a whole: the messages let through may ask for the animation again.
  std::vector<GifImage> images;
  do {
    GifImage& image = images.emplace_back();
    const bool isFirst = images.size() == 1;
    image.Left = frames[0].Left + (isFirst ? 0 : ShownMeasure(frame.Left));
    image.Top = frames[0].Top + (isFirst ? 0 : ShownMeasure(frame.Top));
    image.Width = ShownMeasure(frame.Width);
    image.Height = ShownMeasure(frame.Height);
    image.Visible = false;
    image.Tag = frame.Delay;
    image.Content = std::move(frame.File);
    pump_.DoEvents();
  } while (images.size() < MostFrames && reader.Read(frame));
  frames = std::move(images);
  GifLastFrame = static_cast<std::int32_t>(frames.size()) - 1;
  return true;
}

bool AnimatedGif::ReadFile(const std::string& path, std::string& content) {
  const base::PathSyntax& syntax = files_.Syntax();
  platform::ItemAttributes attributes;
  base::Status status = files_.ReadAttributes(syntax.ParentOf(path),
                                              std::string(syntax.LastComponent(path)), attributes);
  if (status && attributes.Size > LargestFile) status = {1, "It is too large"};
  if (status) status = files_.ReadFile(path, content);
  return status || Fail("File " + path + " cannot be read.\r\n\r\n" + status.Reason + ".");
}

bool AnimatedGif::Fail(const std::string& text) {
  dialogs_.ShowCritical("Tarnwell", text);
  return false;
}

}  // namespace tarnwell::shell
