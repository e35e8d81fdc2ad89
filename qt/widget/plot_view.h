// The plot inside the widget: it shows the finished picture, and takes the mouse and the keys that
// belong to the plot.
//
// Its object name is "PicGraph". A screen reader finds a chart whose name is the title and whose
// description gives curves, points and limits, with the hit targets that are shown as children.
#pragma once

#include <KurvGraph/picture.h>
#include <KurvGraph/read_out.h>

#include <QPoint>
#include <QPointF>
#include <QRect>
#include <QWidget>
#include <functional>
#include <optional>
#include <vector>

#include "control/mouse.h"
#include "dialogs/client.h"
#include "qt/widget/plot_menu.h"
#include "qt/widget/plot_targets.h"
#include "qt/widget/read_out.h"

namespace kurv {

class PlotView final : public QWidget {
  Q_OBJECT

 public:
  // Both must outlive the view.
  PlotView(Client& client, const Picture& picture, QWidget* parent);

  // While the surrounding widget shows the hourglass, the plot sets no cursor of its own.
  void set_busy(bool busy);
  // The cursor while another object handles a drag; nullopt ends it.
  void set_gesture_cursor(std::optional<Qt::CursorShape> shape);
  // The mouse has done this, which was for another object.
  void note_mouse(const QMouseEvent& event);
  // After the picture may have changed.
  void picture_changed();
  // After the document may have changed; costs next to nothing where it has not.
  void describe();

  // The target with the keyboard's focus.
  std::optional<HitTarget> focused() const;
  void focus_on(const HitTarget& target);
  // Opens the target's editor, as a double click does, after the current event.
  void edit(const HitTarget& target);
  // Both in pixels of the view.
  QRect bounds_of(const HitTarget& target) const;
  std::optional<HitTarget> target_under(QPointF at) const;
  // What is at a point of the screen.
  Clicked clicked_at(QPoint on_screen) const;
  // What the keyboard is on.
  Clicked clicked_by_key() const;
  SurfacePoint twips(QPointF pixel) const;
  // Where the keyboard opens the menu, on the screen: at the point of a curve or the target that it
  // is on, else in the middle.
  QPoint menu_point() const;

  bool readout_enabled() const { return m_read_out.is_on; }
  void set_readout_enabled(bool on);
  void set_x_text(AxisText text);
  // What the keyboard points at, while it is on the curves.
  std::optional<ReadOut> focused_point() const;
  // The ring around the point that is read out, in pixels of the view; empty without one.
  QRect ring() const;

  Client& client() const { return m_client; }
  const ControlState& state() const { return m_client.control().state(); }

 Q_SIGNALS:
  // A right click has been released.
  void menu_wanted(QPoint at_on_screen);
  // What the read-out says has changed.
  void pointed(const kurv::ReadOut& read_out);

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  bool focusNextPrevChild(bool next) override;

 private:
  ControlState& control_state() { return m_client.control().state(); }
  double scale() const;  // twips per logical pixel
  QRectF pixels(const Rect& rect) const;
  std::vector<QRectF> pixels(const std::vector<Rect>& rects) const;

  // press() or double_press() of the router.
  using RoutePress = bool (*)(ControlState&, MouseButton, SurfacePoint);
  void take_press(QMouseEvent& event, RoutePress route);
  void end_drag();
  void run_later(const std::function<void(ControlState&)>& work);
  void update_cursor();
  std::optional<Qt::CursorShape> cursor_shape() const;
  void show_tip(const QPoint& at, const QPoint& on_screen);

  void set_focused(const std::optional<HitTarget>& target);
  bool handles(const QKeyEvent& event) const;
  // How far the key moves the focused item, in twips; nothing for other keys.
  std::optional<SurfacePoint> step_of(const QKeyEvent& event) const;
  void move_focused(SurfacePoint step);

  // -- Read-out, which is in plot_view_read_out.cpp -------------------------------------------
  // After each event: what is under the mouse now.
  void follow_mouse(const QEvent& event);
  void read_out_again();
  void read_out_at_mouse();
  void show_read_out(const std::optional<FoundPoint>& point, const std::optional<DataPoint>& place);
  // What the finder says; nothing where it fails.
  template <class Search>
  std::optional<FoundPoint> found(Search search);
  void show_point_tip();
  bool is_on_curves() const { return m_read_out.is_by_keyboard; }
  // Returns whether there is a point to go to.
  bool go_to_curves();
  void leave_curves();
  void move_point(PointMove move);
  void paint_ring(QPainter& painter) const;

  Client& m_client;
  const Picture& m_picture;
  bool m_busy = false;
  std::optional<Qt::CursorShape> m_gesture_cursor;
  std::optional<QPointF> m_mouse;      // while the mouse is over the view
  QPointF m_pressed_at;                // the last press that the router took
  std::optional<HitTarget> m_focused;  // that Tab has reached
  PlotReadOut m_read_out;
};

}  // namespace kurv
