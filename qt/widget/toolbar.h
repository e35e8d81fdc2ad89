// The toolbar at the top of the graph. Each of its buttons has a command word for a key and does
// nothing but hand it over.
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
  // `press` gets the key of the pressed button, while the button is still in the middle of it.
  Toolbar(const std::function<void(const QString&)>& press, QWidget* parent);

  // The height that it wants, a multiple of four logical pixels: what stands below begins on a
  // whole device pixel at a ratio of 1.25, 1.5 and 1.75 as well.
  int wanted_height() const;

  // Whether the buttons can be reached by Tab. A click never takes the focus.
  void set_reachable(bool on);

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void add_divider();
  void add_button(const QString& key, const QString& tip, const QString& image);
  // Icons in the palette's colour and the font's size.
  void dress();

  std::function<void(const QString&)> m_press;
  QWidget* m_more = nullptr;
};

}  // namespace kurv
