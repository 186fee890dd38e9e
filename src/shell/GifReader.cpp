#include "shell/GifReader.h"

namespace tarnwell::shell {
namespace {

constexpr std::string_view Signature = "GIF";
constexpr std::size_t ScreenSizeAt = 6;
constexpr std::size_t ScreenFlagsAt = 10;
constexpr std::size_t ScreenLength = 13;

constexpr char Extension = '\x21';
constexpr char GraphicControl = '\xF9';
constexpr char ControlLength = 4;  // of its data
constexpr std::string_view NoControl("\0\0\0\0", 4);

constexpr char Picture = '\x2C';
constexpr std::size_t PictureSizeAt = 5;
constexpr std::size_t PictureFlagsAt = 9;
constexpr std::size_t PictureLength = 10;

constexpr char Trailer = '\x3B';

constexpr unsigned HasTable = 0x80;
constexpr unsigned TableBits = 0x07;
constexpr std::size_t BytesPerColour = 3;

constexpr std::size_t LeadWithRepeats = 127;
constexpr int MillisecondsPerUnit = 10;

std::size_t ByteOf(char byte) {
  return static_cast<unsigned char>(byte);
}

}  // namespace

GifReader::GifReader(std::string_view content) : content_(content), at_(content.size()) {
  if (content.starts_with(Signature) && Holds(0, ScreenLength)) {
    at_ = screen_ = BehindTable(ScreenFlagsAt, ScreenLength);
  }
}

bool GifReader::Read(GifFrame& frame) {
  while (Holds(at_, 1)) {
    const std::size_t block = at_;
    switch (content_[block]) {
      case Extension:
        at_ = BehindData(block + 2);
        if (!Holds(block, 3) || content_[block + 1] != GraphicControl) break;
        control_ = block;
        if (lead_ == 0) lead_ = block;
        break;
      case Picture:
        if (!Holds(block, PictureLength)) return false;
        // A byte on how the data are packed comes before them.
        at_ = BehindData(BehindTable(block + PictureFlagsAt, block + PictureLength) + 1);
        if (control_ == 0) break;
        TakeFrame(block, frame);
        control_ = 0;
        return true;
      case '\0':  // data that were ended twice
        ++at_;
        break;
      default:
        return false;
    }
  }
  return false;
}

std::int32_t GifReader::RepeatCount() const {
  return lead_ >= LeadWithRepeats ? Number(LeadWithRepeats - 2) : 0;
}

void GifReader::TakeFrame(std::size_t picture, GifFrame& frame) const {
  const bool hasDelay = ByteOf(content_[control_ + 2]) >= NoControl.size();
  frame.Delay = hasDelay ? Number(control_ + 4) * MillisecondsPerUnit : 0;
  frame.Left = Number(picture + 1);
  frame.Top = Number(picture + 3);
  frame.Width = Number(picture + PictureSizeAt);
  frame.Height = Number(picture + PictureSizeAt + 2);

  // The whole picture is to be as large as this frame, which goes to its corner.
  frame.File = content_.substr(0, screen_);
  frame.File.replace(ScreenSizeAt, 4, content_.substr(picture + PictureSizeAt, 4));
  frame.File.append({Extension, GraphicControl, ControlLength});
  frame.File.append(hasDelay ? content_.substr(control_ + 3, NoControl.size()) : NoControl);
  frame.File.push_back('\0');
  frame.File.append({Picture, '\0', '\0', '\0', '\0'});
  frame.File.append(content_.substr(picture + PictureSizeAt, at_ - picture - PictureSizeAt));
  frame.File.push_back(Trailer);
}

bool GifReader::Holds(std::size_t at, std::size_t count) const {
  return at <= content_.size() && count <= content_.size() - at;
}

int GifReader::Number(std::size_t at) const {
  return static_cast<int>(ByteOf(content_[at]) | ByteOf(content_[at + 1]) << 8);
}

// Where the table of colours at `at` ends, which is there and as long as the flags say.
std::size_t GifReader::BehindTable(std::size_t flagsAt, std::size_t at) const {
  const unsigned flags = static_cast<unsigned char>(content_[flagsAt]);
  const std::size_t colours = (flags & HasTable) != 0 ? std::size_t{2} << (flags & TableBits) : 0;
  return at + colours * BytesPerColour;
}

std::size_t GifReader::BehindData(std::size_t at) const {
  while (Holds(at, 1)) {
    const std::size_t length = ByteOf(content_[at]);
    at += 1 + length;
    if (length == 0) return at;
  }
  return content_.size();
}

}  // namespace tarnwell::shell
