#include "ui/forms/GifPictures.h"

#include <QBuffer>
#include <QImageReader>

namespace tarnwell::ui {
namespace {

constexpr qsizetype MostBytes = qsizetype{32} << 20;  // of pictures that are kept
constexpr base::Twips LargestSide = 4096 * base::TwipsPerPixel / shell::PixelsPerShown;

QImage Unpack(const shell::GifImage& frame) {
  if (frame.Width > LargestSide || frame.Height > LargestSide) return {};
  QByteArray content =
      QByteArray::fromRawData(frame.Content.data(), qsizetype(frame.Content.size()));
  QBuffer buffer(&content);
  QImage picture = QImageReader(&buffer, "gif").read();
  picture.setDevicePixelRatio(shell::PixelsPerShown);
  return picture;
}

}  // namespace

QImage GifPictures::Picture(const std::vector<shell::GifImage>& frames,
                            const shell::GifImage& frame) {
  if (unpacked_.size() != frames.size()) {
    unpacked_.assign(frames.size(), {});
    bytes_ = 0;
  }
  Unpacked& kept = unpacked_[static_cast<std::size_t>(&frame - frames.data())];
  if (!kept.Content.empty() && kept.Content == frame.Content) return kept.Picture;
  bytes_ -= kept.Picture.sizeInBytes();
  kept = {};
  QImage picture = Unpack(frame);
  if (bytes_ + picture.sizeInBytes() > MostBytes) return picture;
  bytes_ += picture.sizeInBytes();
  kept = {frame.Content, picture};
  return picture;
}

}  // namespace tarnwell::ui
