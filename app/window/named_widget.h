// Object names, by which tests and style sheets find a widget.
#pragma once

namespace kurv::app {

// Names the widget and returns it.
template <class Widget>
Widget* named(const char* name, Widget* widget) {
  widget->setObjectName(name);
  return widget;
}

}  // namespace kurv::app
