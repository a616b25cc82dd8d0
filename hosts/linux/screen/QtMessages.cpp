#include "hosts/linux/screen/QtMessages.h"

#include <QString>
#include <QtGlobal>
#include <algorithm>
#include <array>

namespace zephyl::linux_host {

namespace {

constexpr auto kRemarks = std::to_array<std::string_view>(
    {"QStandardPaths: XDG_RUNTIME_DIR not set", "OpenType support missing for "});

QtMessageHandler previous = nullptr;

void handle(QtMsgType type, const QMessageLogContext& context, const QString& message) {
  const bool isWarning = type == QtDebugMsg || type == QtInfoMsg || type == QtWarningMsg;
  if (!isWarning || !isQtRemark(message.toStdString())) {
    previous(type, context, message);
  }
}

}  // namespace

bool isQtRemark(std::string_view message) {
  // Some begin with white space.
  message.remove_prefix(std::min(message.find_first_not_of(' '), message.size()));
  return std::any_of(kRemarks.begin(), kRemarks.end(),
                     [message](std::string_view remark) { return message.starts_with(remark); });
}

void leaveOutQtRemarks() {
  if (previous == nullptr) {
    previous = qInstallMessageHandler(handle);
  }
}

}  // namespace zephyl::linux_host
