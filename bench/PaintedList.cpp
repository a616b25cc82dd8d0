#include "bench/PaintedList.h"

#include <QColor>
#include <QPainter>
#include <QPainterPath>
#include <QPen>
#include <QStaticText>
#include <QTransform>
#include <cstddef>
#include <string>

#include "platform/foundation/NSBundle.h"
#include "platform/uikit/UIImage.h"

#include "bench/BenchScreen.h"
#include "hosts/linux/screen/ScaledPictures.h"
#include "hosts/linux/screen/ScreenFonts.h"
#include "model/ZPLocalizedText.h"

namespace zephyl::bench {

namespace {

constexpr double kWidth = BenchScreen::kSize.width;
constexpr double kScale = BenchScreen::kScale;
constexpr double kBar = 44;
constexpr double kRow = 44;
constexpr std::size_t kRows = 19;  // The last one in part.
constexpr double kHairline = 1 / kScale;
constexpr double kAscent = 0.952148;  // Of a font's size.

constexpr QRgb kBlack = qRgb(0, 0, 0);
constexpr QRgb kBlue = qRgb(0, 122, 255);
constexpr QRgb kLine = qRgba(60, 60, 67, 74);

QFont font(double size, UIFont::Weight weight = UIFont::Weight::kRegular) {
  return linux_host::screenFont(UIFont::systemFontOfSize(size, weight));
}

double topOf(std::size_t row) {
  return kBar + kRow * static_cast<double>(row);
}

// In pixels; the painter's space is points.
void fill(QPainter& painter, double x, double y, double width, double height, QRgb color) {
  painter.fillRect(QRectF(x, y, width, height), QColor::fromRgba(color));
}

void stroke(QPainter& painter, const QPolygonF& line, double width, QRgb color) {
  QPainterPath path;
  path.addPolygon(line);
  painter.strokePath(
      path, QPen(QColor::fromRgba(color), width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
}

void fillDisc(QPainter& painter, QPointF center, double radius, const QColor& color) {
  QPainterPath path;
  path.addEllipse(center, radius, radius);
  painter.fillPath(path, color);
}

}  // namespace

struct PaintedList::Text {
  QString text;
  QFont font;
  QColor color;
  QPointF baseline;
  // Its upper left corner, and the text as it was shaped.
  QPointF corner;
  QStaticText prepared;
};

PaintedList::PaintedList() {
  const auto bundle = NSBundle::bundleWithPath(kZephylsSettingsBundlePath);
  lock_ = linux_host::imageOf(UIImage::imageNamed("locked", *bundle)->bitmap());
  const auto groups = shownGroups(kRows);
  for (std::size_t index = 0; index < groups.size(); ++index) {
    locked_.push_back(groups[index].locked);
    active_.push_back(groups[index].active);
    addRow(index, QString::fromStdString(groups[index].title),
           QString::fromStdString(groups[index].subtitle), groups[index].active);
  }
  constexpr double kBadgeSize = 13;
  addCenteredText("7", font(kBadgeSize, UIFont::Weight::kBold), Qt::white,
                  ListWindow::kBadgeCenter.x,
                  topOf(ListWindow::kBadgeRow) + 14.243163 + kAscent * kBadgeSize);
  addBar();
}

PaintedList::~PaintedList() = default;

void PaintedList::addText(const QString& text, const QFont& font, const QColor& color, double x,
                          double baseline) {
  const QFontMetricsF metrics(font);
  Text added{text, font, color, {x, baseline}, {x, baseline - metrics.ascent()}, {}};
  added.prepared.setText(text);
  added.prepared.setTextFormat(Qt::PlainText);
  added.prepared.setPerformanceHint(QStaticText::AggressiveCaching);
  added.prepared.prepare(QTransform::fromScale(kScale, kScale), font);
  texts_.push_back(added);
}

void PaintedList::addCenteredText(const QString& text, const QFont& font, const QColor& color,
                                  double middle, double baseline) {
  const double width = QFontMetricsF(font).horizontalAdvance(text);
  addText(text, font, color, middle - width / 2, baseline);
}

void PaintedList::addRow(std::size_t index, const QString& title, const QString& subtitle,
                         bool active) {
  constexpr double kTitleSize = 17;
  constexpr double kSubtitleSize = 13;
  const double top = topOf(index);
  addText(title, font(kTitleSize), kBlack, 36, top + 2 + kAscent * kTitleSize);
  addText(subtitle, font(kSubtitleSize), QColor::fromRgbF(0.5F, 0.5F, 0.5F), 36,
          top + 24.333333 + kAscent * kSubtitleSize);
  if (active) {
    addText(QString::fromUtf8("\u2713"), font(kTitleSize), kBlack, 360,
            top + 9.333333 + kAscent * kTitleSize);
  }
}

void PaintedList::addBar() {
  constexpr double kSize = 17;
  const double baseline = 12 + kAscent * kSize;
  addText("Edit", font(kSize), kBlue, 16, baseline);
  addCenteredText(ListWindow::kTitle, font(kSize, UIFont::Weight::kSemibold), kBlack, kWidth / 2,
                  baseline);
}

void PaintedList::paint(QImage& image, bool prepared) const {
  image.fill(Qt::white);
  QPainter painter(&image);
  painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
  painter.scale(kScale, kScale);
  for (std::size_t index = 0; index < kRows; ++index) {
    paintRow(painter, index);
  }
  paintBar(painter);
  for (const Text& text : texts_) {
    painter.setFont(text.font);
    painter.setPen(text.color);
    if (prepared) {
      painter.drawStaticText(text.corner, text.prepared);
    } else {
      painter.drawText(text.baseline, text.text);
    }
  }
}

void PaintedList::paintRow(QPainter& painter, std::size_t index) const {
  const double top = topOf(index);
  if (locked_[index]) {
    painter.drawImage(QRectF(7, top + 10, 24, 24), lock_);
  }
  if (!active_[index]) {
    const double x = 366;
    const double y = top + 15.666667;
    stroke(painter, {{x + 1, y + 1}, {x + 6.5, y + 6.5}, {x + 1, y + 12}}, 2, qRgb(199, 199, 204));
  }
  if (static_cast<std::int64_t>(index) == ListWindow::kBadgeRow) {
    constexpr double kSide = 26.513671;
    const QPointF center(ListWindow::kBadgeCenter.x, top + ListWindow::kBadgeCenter.y);
    fillDisc(painter, center, kSide / 2 - 1, Qt::white);
    fillDisc(painter, center, kSide / 2 - 3, Qt::blue);
  }
  fill(painter, 16, top + kRow - kHairline, kWidth - 16, kHairline, kLine);
}

void PaintedList::paintBar(QPainter& painter) {
  fill(painter, 0, 0, kWidth, kBar, qRgb(249, 249, 249));
  fill(painter, 0, kBar, kWidth, kHairline, kLine);
  stroke(painter, {{351.5, 22}, {368.5, 22}}, 1.7, kBlue);
  stroke(painter, {{360, 13.5}, {360, 30.5}}, 1.7, kBlue);
}

}  // namespace zephyl::bench
