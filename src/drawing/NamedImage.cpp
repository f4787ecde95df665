#include "drawing/NamedImage.h"

#include <QFile>
#include <QFileInfo>
#include <QPainter>
#include <QSvgRenderer>

namespace sanovia {

NamedImage::NamedImage() = default;

NamedImage NamedImage::named(const QString& name) {
  NamedImage image;
  const QString path =
      QStringLiteral(":/images/") + QFileInfo(name).completeBaseName() + QStringLiteral(".svg");
  if (!name.isEmpty() && QFile::exists(path)) image._drawing = std::make_shared<QSvgRenderer>(path);
  return image;
}

QSizeF NamedImage::size() const { return isNull() ? QSizeF() : QSizeF(_drawing->defaultSize()); }

void NamedImage::drawInRect(QPainter& painter, const QRectF& rect, double fraction) const {
  if (isNull()) return;
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setOpacity(painter.opacity() * fraction);
  _drawing->render(&painter, rect);
  painter.restore();
}

}  // namespace sanovia
