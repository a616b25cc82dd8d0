#include "hosts/linux/window/FilePicturePicker.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileDialog>
#include <QImageReader>
#include <QTimer>
#include <memory>
#include <utility>

#include "platform/foundation/NSError.h"
#include "platform/uikit/UIGraphics.h"
#include "platform/uikit/UIKitHost.h"

namespace zephyl::linux_host {
namespace {

// Beyond this no picture of a group is read.
constexpr qint64 kMostBytes = 100LL * 1024 * 1024;

QStringList readablePatterns() {
  QStringList patterns;
  for (const QByteArray& format : QImageReader::supportedImageFormats()) {
    patterns += QStringLiteral("*.") + QString::fromLatin1(format);
  }
  patterns += {QStringLiteral("*.heic"), QStringLiteral("*.heif")};
  return patterns;
}

NSError readError(const QString& path, const QString& reason) {
  return NSError("com.vantor.zephyls", -1,
                 Dictionary{{kNSLocalizedDescriptionKey,
                             (path + QStringLiteral(": ") + reason).toStdString()}});
}

void finish(const QString& path, const ImagePicker::Completion& completion) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) {
    const NSError error = readError(path, file.errorString());
    completion(nullptr, &error);
    return;
  }
  if (file.size() > kMostBytes) {
    const NSError error = readError(path, QStringLiteral("larger than 100 MB"));
    completion(nullptr, &error);
    return;
  }
  const QByteArray bytes = file.readAll();
  const UIImageRef image = UIImage::imageWithData(Data(bytes.begin(), bytes.end()));
  if (image == nullptr || image->bitmap() == nullptr) {
    const NSError error = readError(path, QStringLiteral("no picture that can be read"));
    completion(nullptr, &error);
    return;
  }
  completion(image, nullptr);
}

}  // namespace

FilePicturePicker::FilePicturePicker() = default;

FilePicturePicker::~FilePicturePicker() {
  delete dialog_.data();
}

void FilePicturePicker::showAbove(QWidget* widget) {
  widget_ = widget;
}

QFileDialog* FilePicturePicker::dialog() const {
  return dialog_;
}

bool FilePicturePicker::isSourceAvailable(UIImagePickerSource source) {
  return source == UIImagePickerSource::kPhotoLibrary;
}

void FilePicturePicker::pick(UIImagePickerSource source, UIView& /*above*/, Completion completion) {
  if (!isSourceAvailable(source) || dialog_ != nullptr) {
    QTimer::singleShot(0, qApp,
                       [completion = std::move(completion)] { completion(nullptr, nullptr); });
    return;
  }
  dialog_ = new QFileDialog(widget_);
  dialog_->setAttribute(Qt::WA_DeleteOnClose);
  dialog_->setFileMode(QFileDialog::ExistingFile);
  dialog_->setNameFilter(QFileDialog::tr("Pictures") + QStringLiteral(" (") +
                         readablePatterns().join(QLatin1Char(' ')) + QLatin1Char(')'));
  QFileDialog* const dialog = dialog_;
  QObject::connect(dialog, &QFileDialog::finished, dialog,
                   [dialog, completion = std::move(completion)](int result) {
                     const QStringList files = dialog->selectedFiles();
                     if (result == QDialog::Accepted && !files.isEmpty()) {
                       finish(files.front(), completion);
                     } else {
                       completion(nullptr, nullptr);
                     }
                   });
  dialog_->open();
}

}  // namespace zephyl::linux_host
