// SPDX-License-Identifier: MIT
// Draws the splash in the icon's colours.
#include "qt/window/desktop/splash.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPixmap>

#include "qt/services/code_page.h"
#include "qt/window/look/product_icon.h"
#include "shell/product.h"

namespace requite {
namespace {

constexpr QSize kSize(480, 200);
constexpr QRectF kIconPlace(36, 52, 96, 96);
constexpr qreal kTextLeft = 160;

// The tile and the link of the icon, drawn here so that the links have no frame on the splash.
constexpr QColor kTile(0x17, 0x54, 0x5d);
constexpr QColor kAmber(0xff, 0xb8, 0x4d);

QFont Sized(int pixels, QFont::Weight weight) {
  QFont font = QGuiApplication::font();
  font.setPixelSize(pixels);
  font.setWeight(weight);
  return font;
}

QPixmap Picture() {
  const qreal ratio = qGuiApp->devicePixelRatio();
  QPixmap picture(kSize * ratio);
  picture.setDevicePixelRatio(ratio);
  picture.fill(kTile);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.fillRect(QRectF(0, kSize.height() - 6, kSize.width(), 6), kAmber);
  painter.drawPixmap(kIconPlace.toRect(), ProductIcon().pixmap(kIconPlace.size().toSize(), ratio));

  const auto write = [&](qreal top, int pixels, QFont::Weight weight, const QColor& colour,
                         const QString& text) {
    painter.setFont(Sized(pixels, weight));
    painter.setPen(colour);
    painter.drawText(QRectF(kTextLeft, top, kSize.width() - kTextLeft - 16, pixels * 1.6),
                     Qt::AlignLeft | Qt::AlignVCenter, text);
  };
  write(50, 38, QFont::Bold, Qt::white, ToUnicode(product::kName));
  write(108, 15, QFont::Normal, QColor(226, 238, 240),
        QSplashScreen::tr("Checks who links back to your site"));
  write(134, 13, QFont::Normal, QColor(160, 192, 198),
        QSplashScreen::tr("Version %1, %2").arg(ToUnicode(product::kVersion), ToUnicode(product::kCompany)));
  return picture;
}

}  // namespace

Splash::Splash() : QSplashScreen(Picture()) {
  setObjectName("frmSplash");
  // Message boxes have the bare name; nothing that looks for one may find the splash.
  setWindowTitle(tr("%1 is starting").arg(ToUnicode(product::kName)));
}

}  // namespace requite
