#include "hosts/linux/screen/PinnedFonts.h"

#include <QByteArray>
#include <QDir>
#include <cstdlib>
#include <string_view>
#include <utility>

#include <unistd.h>

namespace zephyl::linux_host {

namespace {

constexpr std::string_view kConfiguration = R"(<?xml version="1.0"?>
<!DOCTYPE fontconfig SYSTEM "urn:fontconfig:fonts.dtd">
<fontconfig>
  <dir>/usr/share/fonts</dir>
  <cachedir>/var/cache/fontconfig</cachedir>
  <selectfont>
    <rejectfont><glob>*.*</glob></rejectfont>
    <acceptfont>
      <glob>*/inter/Inter*.otf</glob>
      <glob>*/NotoColorEmoji.ttf</glob>
      <glob>*/NotoSansArabic-*.ttf</glob>
      <glob>*/NotoSansHebrew-*.ttf</glob>
      <glob>*/DroidSansFallback*.ttf</glob>
    </acceptfont>
  </selectfont>
  <match target="font">
    <edit name="antialias" mode="assign"><bool>true</bool></edit>
    <edit name="hinting" mode="assign"><bool>false</bool></edit>
    <edit name="hintstyle" mode="assign"><const>hintnone</const></edit>
    <edit name="rgba" mode="assign"><const>none</const></edit>
    <edit name="lcdfilter" mode="assign"><const>lcdnone</const></edit>
  </match>
</fontconfig>
)";

}  // namespace

PinnedFonts::PinnedFonts() {
  std::string path = (QDir::tempPath() + "/zephyls-fonts-XXXXXX").toStdString();
  const int file = ::mkstemp(path.data());
  if (file < 0) {
    return;
  }
  const bool written = ::write(file, kConfiguration.data(), kConfiguration.size()) ==
                       static_cast<ssize_t>(kConfiguration.size());
  ::close(file);
  if (!written) {
    ::unlink(path.c_str());
    return;
  }
  path_ = std::move(path);
  qputenv("FONTCONFIG_FILE", QByteArray::fromStdString(path_));
}

PinnedFonts::~PinnedFonts() {
  if (arePinned()) {
    qunsetenv("FONTCONFIG_FILE");
    ::unlink(path_.c_str());
  }
}

}  // namespace zephyl::linux_host
