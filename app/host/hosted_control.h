// A control on a pipe, with its container and its surfaces.
#pragma once

#include <KurvGraph/control.h>
#include <KurvGraph/picture.h>
#include <KurvGraph/recording_surface.h>

#include <cmath>
#include <string>
#include <utility>
#include <vector>

#include "app/graph/comma_warnings.h"
#include "app/graph/picture_file.h"
#include "app/host/host_desktop.h"

namespace kurv::app {

// How a control is placed in its host. Width and height in twips.
struct Placement {
  double width = 7200;
  double height = 4800;
  double scale = 1;  // device pixels per logical pixel
  bool design = false;
};

// The recording surface has exactly the size in twips; the picture that it passes its calls on to
// has that size rounded up to whole pixels.
class HostedControl {
 public:
  HostedControl(Shell& shell, const Placement& placement)
      : m_scale(placement.scale),
        m_picture(pixels(placement.width, placement.height), placement.scale),
        m_surface(placement.width, placement.height, m_picture),
        m_container(to_single(placement.width), to_single(placement.height), !placement.design),
        m_control(m_container, shell, m_surface) {
    m_surface.keep_last_redraw_only();
    m_control.first_placement();
    m_surface.clear_log();
    m_control.set_undo_enabled(true);
    m_container.on_resize([this] { fit(); });
    m_container.on_filed([this] { keep_warnings(); });
  }

  Control& control() { return m_control; }
  // The sentences about what graph files that were written since the last call of this do not keep.
  std::vector<std::string> take_warnings() { return std::exchange(m_warnings, {}); }
  HostContainer& container() { return m_container; }
  // The bytes of a picture file.
  QByteArray picture(PictureFormat format) const {
    if (!is_vector(format)) return encoded(m_picture.image(), format);
    return vector_document(m_control, pixels(m_container.Width(), m_container.Height()), format);
  }
  // The calls of the last redraw; empty before the first that drew anything.
  std::string_view drawn() const {
    return m_surface.has_redraw() ? std::string_view(m_surface.log()) : std::string_view();
  }

  // Twips. The control is resized only where the size differs.
  void resize(double width, double height) {
    if (m_container.store_size(to_single(width), to_single(height))) fit();
  }

 private:
  // A graph that was loaded has none: its names have no commas any more.
  void keep_warnings() {
    for (const std::string& warning : comma_warnings(m_control.comma_changes())) {
      m_warnings.push_back(warning);
    }
  }
  // Brings picture, surface and control to the container's size.
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
  std::vector<std::string> m_warnings;
  Control m_control;
};

}  // namespace kurv::app
