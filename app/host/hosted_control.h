// A control on a pipe with everything that it stands on.
#pragma once

#include <KurvGraph/control.h>
#include <KurvGraph/picture.h>
#include <KurvGraph/recording_surface.h>

#include <cmath>

#include "app/graph/picture_file.h"
#include "app/host/host_desktop.h"

namespace kurv::app {

inline constexpr double kLargestSide = 32767;  // twips

// Where a control is put. Width and height in twips.
struct Place {
  double width = 7200;
  double height = 4800;
  double scale = 1;  // device pixels per logical pixel
  bool design = false;
};

// The recording surface has the size in twips to the letter, the picture beneath it the next whole
// pixels.
class HostedControl {
 public:
  HostedControl(Shell& shell, const Place& place)
      : m_scale(place.scale),
        m_picture(pixels(place.width, place.height), place.scale),
        m_surface(place.width, place.height, m_picture),
        m_container(to_single(place.width), to_single(place.height), !place.design),
        m_control(m_container, shell, m_surface) {
    m_surface.keep_last_redraw_only();
    m_control.first_placement();
    m_surface.clear_log();
    m_container.on_resize([this] { fit(); });
  }

  Control& control() { return m_control; }
  HostContainer& container() { return m_container; }
  // The bytes of a picture file.
  QByteArray picture(PictureFormat format) const {
    if (!is_vector(format)) return encoded(m_picture.image(), format);
    return vector_document(m_control, pixels(m_container.Width(), m_container.Height()), format);
  }
  // Empty before the first redraw that drew.
  std::string_view drawn() const {
    return m_surface.has_redraw() ? std::string_view(m_surface.log()) : std::string_view();
  }

  // Twips. A size that it has already is no resize.
  void resize(double width, double height) {
    if (m_container.take_size(to_single(width), to_single(height))) fit();
  }

 private:
  // Surface and control take the size that the container has.
  void fit() {
    m_picture.resize(pixels(m_container.Width(), m_container.Height()), m_scale);
    m_surface.set_size(m_container.Width(), m_container.Height());
    m_control.resize();
  }

  static QSize pixels(double width, double height) {
    constexpr double kTwipsPerPixel = 15;
    return {static_cast<int>(std::ceil(width / kTwipsPerPixel)),
            static_cast<int>(std::ceil(height / kTwipsPerPixel))};
  }

  double m_scale;
  Picture m_picture;
  RecordingSurface m_surface;
  HostContainer m_container;
  Control m_control;
};

}  // namespace kurv::app
