// A view of a picture that takes time to draw.
#pragma once

#include <QImage>
#include <QString>
#include <QTimer>
#include <QWidget>
#include <functional>

namespace kurv::app {

// Draws a little after the last change of the picture or of the size, so that several changes in a
// row are drawn once, and later where drawing takes longer. The picture is in the centre. One that
// cannot be drawn has its reason in its place.
class PictureView : public QWidget {
 public:
  // Returns a picture for this view, of its size in device pixels at most; a null one leaves it
  // empty. May throw UserError, Fault and std::bad_alloc.
  using Draw = std::function<QImage()>;
  explicit PictureView(Draw draw, QWidget* parent = nullptr);

  // To be called when the picture has changed.
  void draw_later();
  // A text in place of a picture, until draw_later() is called.
  void show_text(const QString& text);

  // What is shown; null before anything has been drawn.
  const QImage& picture() const { return m_picture; }
  // What is shown in its place.
  const QString& text() const { return m_text; }
  // Whether the picture is that of the last change.
  bool is_current() const { return !m_delay.isActive(); }

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void draw();
  void replace_content(const QImage& picture, const QString& text);

  Draw m_draw;
  bool m_has_picture = false;  // drawn or still to be drawn
  QImage m_picture;
  QString m_text;
  QTimer m_delay;
};

}  // namespace kurv::app
