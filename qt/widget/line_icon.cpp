#include "qt/widget/line_icon.h"

#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QPixmap>
#include <QSvgRenderer>

// Outside of any namespace, as Q_INIT_RESOURCE requires. Without it the resources of a static
// library are not registered.
static void load_drawings() {
  Q_INIT_RESOURCE(kurvgraph_icons);
}

namespace kurv {

namespace {

// The colour of the lines in the files.
constexpr const char* kIconInk = "#000000";

class LineIcon final : public QIconEngine {
 public:
  LineIcon(QByteArray drawing, const QPalette& palette)
      : m_drawing(std::move(drawing)), m_palette(palette) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
    const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
    QByteArray drawing = m_drawing;
    drawing.replace(kIconInk, m_palette.color(group, QPalette::ButtonText).name().toLatin1());
    QSvgRenderer(drawing).render(painter, rect);
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap result(size);
    result.fill(Qt::transparent);
    QPainter painter(&result);
    paint(&painter, QRect(QPoint(0, 0), size), mode, state);
    return result;
  }

  QIconEngine* clone() const override { return new LineIcon(*this); }

 private:
  QByteArray m_drawing;
  QPalette m_palette;
};

}  // namespace

QIcon line_icon(const QString& name, const QPalette& palette) {
  load_drawings();
  QFile file(QStringLiteral(":/KurvGraph/icons/%1.svg").arg(name));
  if (!file.open(QIODevice::ReadOnly)) return {};
  return QIcon(new LineIcon(file.readAll(), palette));
}

}  // namespace kurv
