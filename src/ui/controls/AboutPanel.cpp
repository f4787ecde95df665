#include "ui/controls/AboutPanel.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

#include "drawing/Fonts.h"
#include "drawing/NamedImage.h"
#include "drawing/Palette.h"
#include "ui/controls/Relabelling.h"
#include "ui_AboutPanel.h"

namespace sanovia {
namespace {

// Measured from the lower edge.
constexpr QRect kStrip(92, 44, 221, 20);
constexpr double kPanelRadius = 14;
constexpr double kIconSize = 104;
constexpr double kIconTop = 28;
constexpr double kFrameOpacity = 0.25;
constexpr int kNamePixels = 28;
constexpr int kTextPixels = 14;
constexpr int kLinkPixels = 13;
constexpr int kSmallPixels = 12;

QPainterPath card(const QSizeF& size) {
  QPainterPath path;
  path.addRoundedRect(QRectF(QPointF(0, 0), size), kPanelRadius, kPanelRadius);
  return path;
}

}  // namespace

AboutPanel::AboutPanel(QWidget* window)
    : QWidget(window, Qt::Dialog | Qt::FramelessWindowHint), _ui(std::make_unique<Ui::AboutPanel>()) {
  setAttribute(Qt::WA_TranslucentBackground);
  _ui->setupUi(this);
  setFixedSize(size());
  setStyleSheet(QStringLiteral("QLabel { color: %1; } QPushButton { color: %1; border: none; padding: 0; "
                               "text-decoration: underline; }")
                    .arg(palette::white.name()));
  for (QLabel* label : {_ui->tagline, _ui->versionWord, static_cast<QLabel*>(_ui->version)})
    label->setFont(fonts::system(kTextPixels));
  _ui->name->setFont(fonts::system(kNamePixels));
  _ui->bnFolder->setFont(fonts::system(kLinkPixels));
  _ui->rights->setFont(fonts::system(kSmallPixels));
  connect(_ui->bnFolder, &QPushButton::clicked, this, &AboutPanel::folderWanted);
  keepLanguageKeys(this);
}

AboutPanel::~AboutPanel() = default;

QRect AboutPanel::clickStrip() const {
  return {kStrip.x(), height() - kStrip.y() - kStrip.height(), kStrip.width(), kStrip.height()};
}

void AboutPanel::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  QLinearGradient teal(0, 0, 0, height());
  teal.setColorAt(0, palette::teal);
  teal.setColorAt(1, palette::darkTeal);
  painter.setPen(Qt::NoPen);
  painter.setBrush(teal);
  painter.drawPath(card(size()));
  QColor frame = palette::white;
  frame.setAlphaF(kFrameOpacity);
  painter.setPen(frame);
  painter.setBrush(Qt::NoBrush);
  painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), kPanelRadius, kPanelRadius);
  NamedImage::named(QStringLiteral("Sanovia"))
      .drawInRect(painter, QRectF((width() - kIconSize) / 2, kIconTop, kIconSize, kIconSize));
}

// Where nothing lets the desk shine through the corners, they are cut off.
void AboutPanel::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  setMask(QRegion(card(size()).toFillPolygon().toPolygon()));
}

}  // namespace sanovia
