#include "hosts/linux/screen/PictureFile.h"

#include <QBuffer>
#include <QByteArray>
#include <QColorSpace>
#include <QImageReader>
#include <algorithm>
#include <cstdint>

#include "hosts/linux/screen/HeifPictures.h"
#include "hosts/linux/screen/PictureEnd.h"

namespace zephyl::linux_host {

namespace {

// Of the largest phone cameras, with room.
constexpr std::int64_t kMostPixels = 120'000'000;
// What JPEG files can be, which are scaled while they are read.
constexpr std::int64_t kMostScalablePixels = 1'000'000'000;

constexpr const char* kNoPicture = "This is no picture that can be read.";
constexpr const char* kDamaged = "The picture is damaged.";
constexpr const char* kTooLarge = "The picture is too large.";

// A reader of a file's bytes, which outlive it.
class Reader {
 public:
  explicit Reader(const Data& file)
      : bytes_(QByteArray::fromRawData(reinterpret_cast<const char*>(file.data()),
                                       static_cast<qsizetype>(file.size()))),
        buffer_(&bytes_) {
    buffer_.open(QIODevice::ReadOnly);
    reader_.setDecideFormatFromContent(true);
    reader_.setDevice(&buffer_);
    reader_.setAutoTransform(true);
  }

  QImageReader& operator*() { return reader_; }
  QImageReader* operator->() { return &reader_; }

  [[nodiscard]] bool isKnownKind() const {
    static const QList<QByteArray> kinds = {"png", "jpeg", "gif", "bmp", "webp", "tiff"};
    return kinds.contains(reader_.format());
  }
  [[nodiscard]] bool isTurned() const {
    return (reader_.transformation() & QImageIOHandler::TransformationRotate90) != 0;
  }

 private:
  QByteArray bytes_;
  QBuffer buffer_;
  QImageReader reader_;
};

QSize fitted(QSize size, int maximumSide) {
  if (std::max(size.width(), size.height()) <= maximumSide) {
    return size;
  }
  return size.scaled(maximumSide, maximumSide, Qt::KeepAspectRatio).expandedTo({1, 1});
}

std::int64_t pixelsOf(QSize size) {
  return static_cast<std::int64_t>(size.width()) * size.height();
}

QImage inScreenColors(QImage image) {
  if (image.colorSpace().isValid() && image.colorSpace() != QColorSpace(QColorSpace::SRgb)) {
    image.convertToColorSpace(QColorSpace::SRgb);
  }
  return image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

}  // namespace

QSize pictureSize(const Data& file) {
  if (isHeif(file)) {
    return heifSize(file);
  }
  Reader reader(file);
  if (file.empty() || !reader->canRead() || !reader.isKnownKind()) {
    return {0, 0};
  }
  const QSize size = reader->size();
  if (size.isEmpty()) {
    return {0, 0};
  }
  return reader.isTurned() ? size.transposed() : size;
}

Picture readPicture(const Data& file, int maximumSide) {
  if (isHeif(file)) {
    return readHeif(file, maximumSide, kMostPixels);
  }
  Reader reader(file);
  if (file.empty() || !reader->canRead() || !reader.isKnownKind()) {
    return {{}, kNoPicture};
  }
  const QSize size = reader->size();
  const bool scalable = reader->format() == "jpeg";
  if (size.isEmpty() || !hasPictureEnd(file)) {
    return {{}, kDamaged};
  }
  if (pixelsOf(size) > (scalable ? kMostScalablePixels : kMostPixels)) {
    return {{}, kTooLarge};
  }
  const QSize wanted = fitted(size, maximumSide);
  if (wanted != size) {
    reader->setScaledSize(wanted);
  }
  const QImage image = reader->read();
  if (image.isNull()) {
    return {{}, kDamaged};
  }
  return {inScreenColors(image), {}};
}

}  // namespace zephyl::linux_host
