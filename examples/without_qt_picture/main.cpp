// A picture without Qt: draws a graph and saves it as a PNG file.
//
//   kurv_without_qt_picture squares.png             with the fonts of the system
//   kurv_without_qt_picture squares.png FONT.ttf    with this one
#include <KurvGraph/control.h>
#include <KurvGraph/font_text_painter.h>
#include <KurvGraph/headless.h>
#include <KurvGraph/pixel_picture.h>
#include <KurvGraph/png_file.h>

#include <iostream>
#include <memory>

int main(int argc, char** argv) {
  if (argc != 2 && argc != 3) return 2;
  const auto texts = std::make_shared<kurv::FontTextPainter>();
  if (argc == 3 && !texts->add_font_file(argv[2])) {
    std::cerr << argv[2] << ": not a font\n";
    return 1;
  }
  kurv::PixelPicture picture(texts, 800, 600);
  kurv::HeadlessContainer container(picture);
  kurv::HeadlessShell shell;
  kurv::Control graph(container, shell, picture);
  graph.first_placement();
  graph.show();
  kurv::Matrix<kurv::Double> y(1, 1, 1, 4);  // one curve of four points
  y.set_column(1, {0, 1, 4, 9});
  graph.scatter_graph(y, {1, {0, 1, 2, 3}}, 4, 1, "Squares", "x", {1, {"y"}}, 0, {}, true);
  try {
    kurv::save_png(picture.pixels(), argv[1]);
  } catch (const kurv::Fault& fault) {
    std::cerr << argv[1] << ": " << fault.what() << '\n';
    return 1;
  }
}
