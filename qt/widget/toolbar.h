// The toolbar at the top of the graph. The key of a button is a command word, which a click passes
// to the callback.
//
// The toolbar's object name is "tbrGraph", a button's is that and its key: "tbrGraph.refresh".
#pragma once

#include <QString>
#include <QToolBar>
#include <functional>

namespace kurv {

class Toolbar final : public QToolBar {
  Q_OBJECT

 public:
  // `press` gets the key of the pressed button, inside the button's own event.
  Toolbar(const std::function<void(const QString&)>& press, QWidget* parent);

  // The preferred height, a multiple of four logical pixels: so the plot below begins on a whole
  // device pixel at a ratio of 1.25, 1.5 and 1.75 as well.
  int preferred_height() const;

  // Whether the buttons can be reached by Tab. A click never takes the focus.
  void set_tab_stops(bool on);

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void add_divider();
  void add_button(const QString& key, const QString& tip, const QString& image);
  // Makes the icons anew, in the palette's colour and the font's size.
  void update_icons();

  std::function<void(const QString&)> m_press;
  QWidget* m_overflow_button = nullptr;
};

}  // namespace kurv
