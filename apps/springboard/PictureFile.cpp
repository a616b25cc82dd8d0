#include "apps/springboard/PictureFile.h"

#include <QBuffer>
#include <QByteArray>
#include <QImage>
#include <QImageReader>
#include <QSize>
#include <optional>

namespace zephyl::app {

namespace {

// What cameras, picture libraries and clipboards give. Not among them are formats that draw or load
// other files while they are read.
constexpr const char* kFormats[] = {"png", "jpeg", "heic", "heif", "webp", "tiff", "gif", "bmp"};

StoredPicture refused(std::string reason) {
  return {{}, std::move(reason)};
}

bool isRead(const QByteArray& format) {
  for (const char* known : kFormats) {
    if (format == known) {
      return true;
    }
  }
  return false;
}

// By the header alone; nothing when the picture may be decoded.
std::optional<std::string> whyNotDecoded(const QImageReader& reader, const PictureLimits& limits) {
  if (!isRead(reader.format())) {
    return "it is no picture of a known kind";
  }
  const QSize size = reader.size();
  if (size.isEmpty()) {
    return "it does not say how large the picture is";
  }
  const std::int64_t pixels = std::int64_t{size.width()} * size.height();
  if (pixels > limits.pixels) {
    return "the picture has " + std::to_string(pixels) + " pixels, of at most " +
           std::to_string(limits.pixels);
  }
  return std::nullopt;
}

// The decoder does not miss the very end of a PNG that was cut short.
bool isWholePng(const QImageReader& reader, const QByteArray& bytes) {
  return reader.format() == "png" && bytes.contains(QByteArrayView("IEND\xae\x42\x60\x82"));
}

StoredPicture encoded(const QImage& image, const PictureLimits& limits) {
  QBuffer png;
  if (!png.open(QIODevice::WriteOnly) || !image.save(&png, "PNG")) {
    return refused("it cannot be written as PNG");
  }
  if (static_cast<std::size_t>(png.size()) > limits.bytes) {
    return refused("as PNG it has " + std::to_string(png.size()) + " bytes, of at most " +
                   std::to_string(limits.bytes));
  }
  return {png.data().toStdString(), {}};
}

}  // namespace

StoredPicture storedPicture(const Data& file, const PictureLimits& limits) {
  if (file.size() > limits.bytes) {
    return refused("the file has " + std::to_string(file.size()) + " bytes, of at most " +
                   std::to_string(limits.bytes));
  }
  // Eight bytes a pixel at most; a limit of the whole process, of which this is the only reader.
  QImageReader::setAllocationLimit(400);
  QByteArray bytes = QByteArray::fromRawData(reinterpret_cast<const char*>(file.data()),
                                             static_cast<qsizetype>(file.size()));
  QBuffer source(&bytes);
  QImageReader reader(&source);
  reader.setDecideFormatFromContent(true);
  reader.setAutoTransform(true);
  if (auto reason = whyNotDecoded(reader, limits)) {
    return refused(std::move(*reason));
  }
  const bool stays = isWholePng(reader, bytes);
  const QImage image = reader.read();
  if (image.isNull()) {
    return refused("it does not decode: " + reader.errorString().toStdString());
  }
  return stays ? StoredPicture{std::string(file.begin(), file.end()), {}} : encoded(image, limits);
}

}  // namespace zephyl::app
