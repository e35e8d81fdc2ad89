// A control that draws on a Picture, without a window.
#pragma once

#include <KurvGraph/control.h>
#include <KurvGraph/picture.h>

#include <QSize>

#include "bench/common/data.h"
#include "tests/support/test_host.h"

namespace bench {

// The data in the layout of a host: x is column 1.
inline kurv::Matrix<kurv::Double> matrix_of(const Table& data) {
  const int points = static_cast<int>(data.x.size());
  const int curves = static_cast<int>(data.y.size());
  kurv::Matrix<kurv::Double> matrix(1, curves + 1, 1, points);
  for (int k = 0; k <= curves; ++k) {
    const std::vector<double>& values = k == 0 ? data.x : data.y[static_cast<std::size_t>(k - 1)];
    const auto column = matrix.column(k + 1);
    for (int i = 1; i <= points; ++i) column(i) = values[static_cast<std::size_t>(i - 1)];
  }
  return matrix;
}

struct ControlFixture {
  ControlFixture() {
    control.first_placement();
    control.show();
  }

  void load(const Table& data, bool lines = true, bool markers = false) {
    const auto curves = static_cast<kurv::Integer>(data.y.size());
    std::vector<kurv::String> names{"x"};
    for (int k = 1; k <= curves; ++k) names.push_back("curve " + std::to_string(k));
    control.set_SubTitle("Subtitle");
    control.scatter_graph2(
        kurv::String("Title"), matrix_of(data), kurv::test::names(names),
        static_cast<kurv::Integer>(data.x.size()), curves,
        kurv::test::flags(std::vector<kurv::Boolean>(data.y.size(), kurv::Boolean(true))), 0, {},
        kurv::Boolean(lines), kurv::Boolean(markers));
    fit(Scale(data));
  }

  // Sets the exact range: the peers fill their plots from edge to edge, and rounded limits would
  // make the plot of the control smaller than theirs.
  void fit(const Scale& scale) {
    control.set_xmin(scale.x_range().low);
    control.set_xmax(scale.x_range().high);
    control.set_ymin(scale.y_range().low);
    control.set_ymax(scale.y_range().high);
  }

  kurv::GraphDocument& document() { return control.state().document; }

  // A whole redraw, including the pixels.
  void redraw() {
    control.build_the_graph();
    static_cast<void>(picture.image());
  }

  kurv::test::PlainContainer container;
  kurv::test::ScriptedShell shell;
  kurv::Picture picture{QSize(kWidth, kHeight)};
  kurv::Control control{container, shell, picture};
};

}  // namespace bench
