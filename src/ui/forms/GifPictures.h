// The pictures of an animation, unpacked as they are shown.
#pragma once

#include <QImage>
#include <cstddef>
#include <string>
#include <vector>

#include "shell/AnimatedGif.h"

namespace tarnwell::ui {

class GifPictures {
 public:
  // The picture of `frame`, which is one of `frames`. Null where its data make none, and where it
  // is larger than any screen.
  QImage Picture(const std::vector<shell::GifImage>& frames, const shell::GifImage& frame);

 private:
  struct Unpacked {
    std::string Content;  // what the picture was made from
    QImage Picture;
  };

  std::vector<Unpacked> unpacked_;  // as far as there is room, under the frames' numbers
  qsizetype bytes_ = 0;
};

}  // namespace tarnwell::ui
