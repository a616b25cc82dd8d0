// The peer of a list of groups: the same picture, painted by hand with a QPainter. Knows nothing of
// views; every place is a number. Main thread.

#pragma once

#include <QColor>
#include <QFont>
#include <QImage>
#include <QString>
#include <cstddef>
#include <vector>

class QPainter;

namespace zephyl::bench {

class PaintedList {
 public:
  PaintedList();
  ~PaintedList();
  PaintedList(const PaintedList&) = delete;
  PaintedList& operator=(const PaintedList&) = delete;

  // The whole of `image`, which is of the screen's size. Prepared texts are shaped once and kept,
  // the others each time.
  void paint(QImage& image, bool prepared) const;

 private:
  struct Text;

  void addText(const QString& text, const QFont& font, const QColor& color, double x,
               double baseline);
  void addCenteredText(const QString& text, const QFont& font, const QColor& color, double middle,
                       double baseline);
  void addRow(std::size_t index, const QString& title, const QString& subtitle, bool active);
  void addBar();
  static void paintBar(QPainter& painter);
  void paintRow(QPainter& painter, std::size_t index) const;

  QImage lock_;
  std::vector<bool> locked_;
  std::vector<bool> active_;
  std::vector<Text> texts_;
};

}  // namespace zephyl::bench
