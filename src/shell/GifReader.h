// Reads an animated GIF frame by frame (GIF89a specification of CompuServe, 1990). Goes by the
// file's blocks and leaves the pixels packed: each frame is given out as a GIF of its own, for a
// library to decode. Whatever the bytes are, they are read once and no further than their end.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace tarnwell::shell {

struct GifFrame {
  int Delay = 0;  // milliseconds
  int Left = 0;   // pixels, within the whole picture
  int Top = 0;
  int Width = 0;
  int Height = 0;
  std::string File;  // a GIF of this frame alone, which fills it; its data may be cut short
};

class GifReader {
 public:
  // `content` is to outlive the reader.
  explicit GifReader(std::string_view content);

  // The next frame: a picture with a graphic control extension before it. False at the end: of the
  // bytes, at the trailer, or where a byte begins no block.
  bool Read(GifFrame& frame);

  // The 16-bit count that stands at bytes 126 and 127, counted from 1, of what comes before the
  // first frame: behind a table of 32 colours that is the number of repeats. 0 when less comes
  // before. To be asked after the first frame.
  std::int32_t RepeatCount() const;

 private:
  bool Holds(std::size_t at, std::size_t count) const;
  int Number(std::size_t at) const;
  std::size_t BehindTable(std::size_t flagsAt, std::size_t at) const;
  std::size_t BehindData(std::size_t at) const;
  void TakeFrame(std::size_t picture, GifFrame& frame) const;

  std::string_view content_;
  std::size_t at_ = 0;       // where the next block begins
  std::size_t screen_ = 0;   // length of the descriptor of the whole picture and of its colours
  std::size_t lead_ = 0;     // length of what comes before the first frame
  std::size_t control_ = 0;  // place of the extension that waits for its picture; 0 for none
};

}  // namespace tarnwell::shell
