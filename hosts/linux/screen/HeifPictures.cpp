#include "hosts/linux/screen/HeifPictures.h"

#include <algorithm>
#include <memory>

#include <libheif/heif.h>

namespace zephyl::linux_host {

namespace {

constexpr const char* kDamaged = "The picture is damaged.";

struct Release {
  void operator()(heif_context* context) const { heif_context_free(context); }
  void operator()(heif_image_handle* handle) const { heif_image_handle_release(handle); }
  void operator()(heif_image* image) const { heif_image_release(image); }
};

template <typename Thing>
using Owned = std::unique_ptr<Thing, Release>;

bool failed(const heif_error& error) {
  return error.code != heif_error_Ok;
}

// The picture that a file is about, with what it is read from.
struct Opened {
  Owned<heif_context> context{heif_context_alloc()};
  Owned<heif_image_handle> picture;
};

// `file` outlives what is opened.
Opened open(const Data& file) {
  // Larger ones are refused before anything is taken for them.
  constexpr int kLongestSide = 32767;
  Opened opened;
  heif_context_set_maximum_image_size_limit(opened.context.get(), kLongestSide);
  heif_image_handle* picture = nullptr;
  if (!failed(heif_context_read_from_memory_without_copy(opened.context.get(), file.data(),
                                                         file.size(), nullptr)) &&
      !failed(heif_context_get_primary_image_handle(opened.context.get(), &picture))) {
    opened.picture.reset(picture);
  }
  return opened;
}

QSize sizeOf(const heif_image_handle* picture) {
  return {heif_image_handle_get_width(picture), heif_image_handle_get_height(picture)};
}

// The pixels, scaled so that no side is longer.
QImage copied(const heif_image* image, int maximumSide) {
  int bytesARow = 0;
  const std::uint8_t* const pixels =
      heif_image_get_plane_readonly(image, heif_channel_interleaved, &bytesARow);
  const QSize size(heif_image_get_width(image, heif_channel_interleaved),
                   heif_image_get_height(image, heif_channel_interleaved));
  if (pixels == nullptr || size.isEmpty()) {
    return {};
  }
  const QImage borrowed(pixels, size.width(), size.height(), bytesARow, QImage::Format_RGBA8888);
  if (std::max(size.width(), size.height()) <= maximumSide) {
    return borrowed.convertToFormat(QImage::Format_ARGB32_Premultiplied);
  }
  const QSize fitted =
      size.scaled(maximumSide, maximumSide, Qt::KeepAspectRatio).expandedTo({1, 1});
  return borrowed.scaled(fitted, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
      .convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

}  // namespace

QSize heifSize(const Data& file) {
  const Opened opened = open(file);
  const QSize size = opened.picture != nullptr ? sizeOf(opened.picture.get()) : QSize();
  return size.isEmpty() ? QSize(0, 0) : size;
}

Picture readHeif(const Data& file, int maximumSide, std::int64_t mostPixels) {
  const Opened opened = open(file);
  if (opened.picture == nullptr) {
    return {{}, kDamaged};
  }
  const QSize size = sizeOf(opened.picture.get());
  if (static_cast<std::int64_t>(size.width()) * size.height() > mostPixels) {
    return {{}, "The picture is too large."};
  }
  heif_image* decoded = nullptr;
  const heif_error error = heif_decode_image(opened.picture.get(), &decoded, heif_colorspace_RGB,
                                             heif_chroma_interleaved_RGBA, nullptr);
  const Owned<heif_image> image(decoded);
  QImage pixels = failed(error) || image == nullptr ? QImage() : copied(image.get(), maximumSide);
  if (pixels.isNull()) {
    return {{}, kDamaged};
  }
  return {std::move(pixels), {}};
}

}  // namespace zephyl::linux_host
