// What must hold for any content as an animation: as RecordProperties.h for records.
#pragma once

#include "shell/GifReader.h"

namespace tarnwell::fuzz {

// The first rule that the content breaks; empty when it breaks none.
inline std::string BrokenGifRule(std::string_view content) {
  shell::GifReader reader(content);
  shell::GifFrame frame, again;
  for (std::size_t count = 0; reader.Read(frame); ++count) {
    if (count * 10 > content.size()) return "reads a frame without getting any further";
    if (frame.File.size() > content.size() + 30)
      return "makes a frame's file of more than is there";
    shell::GifReader alone(frame.File);
    if (!alone.Read(again) || again.Left + again.Top != 0 || again.Delay != frame.Delay ||
        again.Width != frame.Width || again.Height != frame.Height || alone.Read(again)) {
      return "does not read the one frame again from the file that it made of it";
    }
  }
  return reader.Read(frame) ? "gives a frame behind the end" : "";
}

}  // namespace tarnwell::fuzz
