#include "drawing/NamedImage.h"

#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QPainter>
#include <QSvgRenderer>

namespace sanovia {

struct NamedImage::Drawing {
  explicit Drawing(QString file) : path(std::move(file)) {}

  QSvgRenderer& read() {
    if (!renderer) renderer = std::make_unique<QSvgRenderer>(path);
    return *renderer;
  }

  QString path;
  std::unique_ptr<QSvgRenderer> renderer;
};

NamedImage::NamedImage() = default;

NamedImage NamedImage::named(const QString& name) {
  static QHash<QString, std::shared_ptr<Drawing>> drawings;
  auto drawing = drawings.constFind(name);
  if (drawing == drawings.cend()) {
    const QString path =
        QStringLiteral(":/images/") + QFileInfo(name).completeBaseName() + QStringLiteral(".svg");
    const bool isThere = !name.isEmpty() && QFile::exists(path);
    drawing = drawings.insert(name, isThere ? std::make_shared<Drawing>(path) : nullptr);
  }
  NamedImage image;
  image._drawing = *drawing;
  return image;
}

QSizeF NamedImage::size() const { return isNull() ? QSizeF() : QSizeF(_drawing->read().defaultSize()); }

void NamedImage::drawInRect(QPainter& painter, const QRectF& rect, double fraction) const {
  if (isNull()) return;
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setOpacity(painter.opacity() * fraction);
  _drawing->read().render(&painter, rect);
  painter.restore();
}

}  // namespace sanovia
