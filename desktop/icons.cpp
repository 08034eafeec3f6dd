#include "desktop/icons.h"

#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>
#include <algorithm>
#include <utility>

#include "desktop/theme.h"

namespace kalvo {
namespace {

// The drawings are written in the light theme's values.
QByteArray ThemedDrawing(const QString& name, const QColor& line) {
  QFile file(":/icons/" + name + ".svg");
  if (!file.open(QIODevice::ReadOnly)) return {};
  QString drawing = QString::fromLatin1(file.readAll());
  // By way of the names: a new value may be another token's old one.
  for (const ThemeToken& token : kThemeTokens) {
    drawing.replace((kLightTheme.*token.color).name(), QString("@%1;").arg(token.name),
                    Qt::CaseInsensitive);
  }
  const Theme& theme = ActiveTheme();
  for (const ThemeToken& token : kThemeTokens) {
    const bool is_line = token.color == &Theme::ink2 && line.isValid();
    drawing.replace(QString("@%1;").arg(token.name), (is_line ? line : theme.*token.color).name());
  }
  return drawing.toLatin1();
}

QPixmap Render(const QString& name, const QSize& pixels, const QColor& line) {
  const QString key = QString("kalvo/%1/%2x%3/%4/%5")
                          .arg(name)
                          .arg(pixels.width())
                          .arg(pixels.height())
                          .arg(line.isValid() ? line.name() : QString())
                          .arg(ActiveTheme().window.name());
  QPixmap pixmap;
  if (QPixmapCache::find(key, &pixmap)) return pixmap;
  pixmap = QPixmap(pixels);
  pixmap.fill(Qt::transparent);
  QSvgRenderer renderer(ThemedDrawing(name, line));
  QPainter painter(&pixmap);
  renderer.setAspectRatioMode(Qt::KeepAspectRatio);
  renderer.render(&painter);
  QPixmapCache::insert(key, pixmap);
  return pixmap;
}

class ThemeIconEngine : public QIconEngine {
 public:
  ThemeIconEngine(QString name, const QColor& line) : name_(std::move(name)), line_(line) {}

  QIconEngine* clone() const override { return new ThemeIconEngine(*this); }

  // Square, so that a wider place aligns it.
  QSize actualSize(const QSize& size, QIcon::Mode, QIcon::State) override {
    const int side = std::min(size.width(), size.height());
    return {side, side};
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State) override {
    return Render(name_, size, mode == QIcon::Disabled ? ActiveTheme().ink3 : line_);
  }

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override {
    const double ratio = painter->device()->devicePixelRatioF();
    painter->drawPixmap(rect, pixmap((QSizeF(rect.size()) * ratio).toSize(), mode, state));
  }

 private:
  QString name_;
  QColor line_;
};

}  // namespace

QIcon ThemeIcon(const QString& name, const QColor& line) {
  return QIcon(new ThemeIconEngine(name, line));
}

QPixmap IconPixmap(const QString& name, int size, double ratio, const QColor& line) {
  const int pixels = qRound(size * ratio);
  QPixmap pixmap = Render(name, {pixels, pixels}, line);
  pixmap.setDevicePixelRatio(ratio);
  return pixmap;
}

}  // namespace kalvo
