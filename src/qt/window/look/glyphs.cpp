// SPDX-License-Identifier: MIT
// Draws each picture on a square of sixteen units.
#include "qt/window/look/glyphs.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <QPixmap>
#include <initializer_list>

namespace requite {
namespace {

constexpr qreal kUnits = 16;
constexpr qreal kLine = 1.4;

QPolygonF Shape(std::initializer_list<QPointF> points) { return QPolygonF(QList<QPointF>(points)); }

/// One drawing; `colour` is the pen, and the brush of filled parts.
struct Brushwork {
  QPainter& Painter;
  QColor Colour;

  void Fill(const QPolygonF& shape) const {
    Painter.setPen(Qt::NoPen);
    Painter.setBrush(Colour);
    Painter.drawPolygon(shape);
  }
  void UseLine(const QColor& colour, qreal width = kLine) const {
    Painter.setBrush(Qt::NoBrush);
    Painter.setPen(QPen(colour, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  }
  void Lines(std::initializer_list<QPointF> points) const {
    UseLine(Colour);
    Painter.drawPolyline(Shape(points));
  }
  /// A filled circle with a sign in the background's colour.
  void Badge(std::initializer_list<std::initializer_list<QPointF>> sign) const {
    Painter.setPen(Qt::NoPen);
    Painter.setBrush(Colour);
    Painter.drawEllipse(QRectF(1, 1, 14, 14));
    UseLine(Colour.lightness() > 140 ? Qt::black : Qt::white, 2);
    for (const auto& stroke : sign) Painter.drawPolyline(Shape(stroke));
  }
};

void DrawOptions(const Brushwork& brush) {
  const qreal knobs[] = {10.5, 5, 9};
  qreal y = 3.5;
  for (const qreal knob : knobs) {
    brush.Lines({{1.5, y}, {14.5, y}});
    brush.Painter.setBrush(brush.Colour);
    brush.Painter.drawEllipse(QPointF(knob, y), 1.5, 1.5);
    y += 4.5;
  }
}

void DrawSite(const Brushwork& brush) {
  brush.UseLine(brush.Colour);
  brush.Painter.drawEllipse(QRectF(1.5, 1.5, 13, 13));
  brush.Painter.drawEllipse(QRectF(5, 1.5, 6, 13));
  brush.Painter.drawLine(QPointF(1.5, 8), QPointF(14.5, 8));
}

void Draw(Glyph glyph, const Brushwork& brush) {
  switch (glyph) {
    case Glyph::Start: return brush.Fill(Shape({{3.5, 2}, {14, 8}, {3.5, 14}}));
    case Glyph::More: return brush.Lines({{3.5, 6}, {8, 10.5}, {12.5, 6}});
    case Glyph::Skip:
      brush.Fill(Shape({{2, 3}, {9.5, 8}, {2, 13}}));
      return brush.Fill(Shape({{9.5, 3}, {9.5, 13}, {13.5, 13}, {13.5, 3}, {11.5, 3}, {11.5, 8}}));
    case Glyph::Stop: return brush.Fill(Shape({{3, 3}, {13, 3}, {13, 13}, {3, 13}}));
    case Glyph::Options: return DrawOptions(brush);
    case Glyph::Open:
      brush.Lines({{1.5, 13}, {1.5, 3}, {6, 3}, {7.5, 5}, {13, 5}, {13, 7}});
      return brush.Lines({{1.5, 13}, {4, 7}, {15, 7}, {12.5, 13}, {1.5, 13}});
    case Glyph::Save:
      brush.Lines({{2, 2}, {12, 2}, {14, 4}, {14, 14}, {2, 14}, {2, 2}});
      brush.Lines({{5, 2}, {5, 6}, {11, 6}, {11, 2}});
      return brush.Lines({{4.5, 14}, {4.5, 9.5}, {11.5, 9.5}, {11.5, 14}});
    case Glyph::New:
      brush.Lines({{9.5, 1.5}, {3, 1.5}, {3, 14.5}, {13, 14.5}, {13, 5}, {9.5, 1.5}, {9.5, 5}, {13, 5}});
      return;
    case Glyph::Site: return DrawSite(brush);
    case Glyph::Found: return brush.Badge({{{4.5, 8.3}, {7, 10.8}, {11.5, 5.5}}});
    case Glyph::Redirect: return brush.Badge({{{4, 8}, {11.5, 8}}, {{8.5, 5}, {11.5, 8}, {8.5, 11}}});
    case Glyph::Missing: return brush.Badge({{{5.3, 5.3}, {10.7, 10.7}}, {{10.7, 5.3}, {5.3, 10.7}}});
  }
}

class GlyphEngine final : public QIconEngine {
 public:
  GlyphEngine(Glyph glyph, Tone tone) : glyph_(glyph), tone_(tone) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->translate(rect.topLeft());
    painter->scale(rect.width() / kUnits, rect.height() / kUnits);
    if (mode == QIcon::Disabled) painter->setOpacity(0.35);
    Draw(glyph_, {*painter, ShadeOf(tone_)});
    painter->restore();
  }
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap picture(size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    paint(&painter, QRect(QPoint(), size), mode, state);
    return picture;
  }
  [[nodiscard]] QIconEngine* clone() const override { return new GlyphEngine(*this); }

 private:
  Glyph glyph_;
  Tone tone_;
};

}  // namespace

QColor Between(const QColor& from, const QColor& to, double share) {
  const auto mix = [share](int a, int b) { return static_cast<int>(a + (b - a) * share); };
  return QColor(mix(from.red(), to.red()), mix(from.green(), to.green()), mix(from.blue(), to.blue()));
}

QColor ShadeOf(Tone tone) {
  const QPalette palette = QGuiApplication::palette();
  const bool dark = palette.color(QPalette::Base).lightness() < 128;
  switch (tone) {
    case Tone::Blue: return dark ? QColor(130, 175, 255) : QColor(0, 64, 192);
    case Tone::Green: return dark ? QColor(110, 215, 130) : QColor(0, 110, 40);
    case Tone::Red: return dark ? QColor(255, 135, 125) : QColor(185, 0, 15);
    case Tone::Faint: return Between(palette.color(QPalette::Base), palette.color(QPalette::Text), 0.65);
    case Tone::Text: break;
  }
  return palette.color(QPalette::WindowText);
}

QIcon GlyphIcon(Glyph glyph, Tone tone) { return QIcon(new GlyphEngine(glyph, tone)); }

}  // namespace requite
