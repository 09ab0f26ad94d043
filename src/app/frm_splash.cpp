#include "app/frm_splash.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QPainter>
#include <QScreen>
#include <QSvgRenderer>

#include "settings/message_boxes.h"

namespace zerbal::app {
namespace {

constexpr QSize kSize(560, 320);  // logical pixels; the drawing's own size
constexpr QColor kTitleColour(0xFF, 0xFF, 0xFF);
constexpr QColor kTextColour(0xB8, 0xCF, 0xE6);

}  // namespace

frmSplash::frmSplash() : QWidget(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint) {
  setObjectName("frmSplash");
  setWindowTitle(tr("Zerbal is starting"));
  setAttribute(Qt::WA_OpaquePaintEvent);
  setAttribute(Qt::WA_QuitOnClose, false);
  setFixedSize(kSize);
  if (const QScreen* screen = QGuiApplication::primaryScreen()) {
    QRect place(QPoint(), kSize);
    place.moveCenter(screen->availableGeometry().center());
    move(place.topLeft());
  }
}

void frmSplash::paintEvent(QPaintEvent*) {
  if (picture_.isNull() || picture_.devicePixelRatio() != devicePixelRatioF())
    picture_ = Draw();
  QPainter(this).drawPixmap(0, 0, picture_);
}

QPixmap frmSplash::Draw() const {
  QPixmap picture(kSize * devicePixelRatioF());
  picture.setDevicePixelRatio(devicePixelRatioF());
  QPainter painter(&picture);
  painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
  QSvgRenderer(QString(":/app/splash.svg")).render(&painter, rect());
  QFont font = painter.font();
  font.setPixelSize(56);
  font.setBold(true);
  painter.setFont(font);
  painter.setPen(kTitleColour);
  const QRect texts(320, 0, 220, kSize.height());
  painter.drawText(texts.translated(0, -34), Qt::AlignLeft | Qt::AlignVCenter, settings::kProgramTitle);
  font.setPixelSize(16);
  font.setBold(false);
  painter.setFont(font);
  painter.setPen(kTextColour);
  painter.drawText(texts.translated(2, 18), Qt::AlignLeft | Qt::AlignVCenter, tr("Routes on the map"));
  painter.drawText(texts.translated(2, 44), Qt::AlignLeft | Qt::AlignVCenter,
                   tr("Version: ") + ZERBAL_VERSION);
  return picture;
}

void frmSplash::closeEvent(QCloseEvent* event) {
  event->ignore();
}

}  // namespace zerbal::app
