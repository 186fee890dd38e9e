// The animation of the splash as pictures of a form, one for each frame.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "forms/Controls.h"
#include "platform/Dialogs.h"
#include "platform/FileSystem.h"
#include "platform/MessagePump.h"

namespace tarnwell::shell {

// The animation is drawn at twice the size in which it is shown.
inline constexpr int PixelsPerShown = 2;

struct GifImage : forms::Picture {
  int Tag = 0;          // delay in milliseconds
  std::string Content;  // a GIF of the frame alone, of PixelsPerShown times the picture's size
};

class AnimatedGif {
 public:
  AnimatedGif(const platform::FileSystem& files, platform::Dialogs& dialogs,
              platform::MessagePump& pump)
      : files_(files), dialogs_(dialogs), pump_(pump) {}

  std::int32_t GifRepeatCount = 0;  // kept, and not acted on
  std::int32_t GifLastFrame = 0;

  // Fills `frames`, of which the first keeps its place, and the others lie by their offsets from
  // it. False, after a message, where the file is not there or cannot be read, is larger than any
  // animation or holds no frame of one; `frames` then has its first element alone. Messages are let
  // through after each frame.
  bool LoadAniGif(const std::string& path, std::vector<GifImage>& frames);

 private:
  bool Fail(const std::string& text);
  bool ReadFile(const std::string& path, std::string& content);

  const platform::FileSystem& files_;
  platform::Dialogs& dialogs_;
  platform::MessagePump& pump_;
};

}  // namespace tarnwell::shell
