#include "app/command_line/render_command.h"

#include "app/graph/graph_intake.h"
#include "app/graph/headless_application.h"
#include "app/graph/picture_file.h"

namespace kurv::app {

namespace {

GraphSource load_with_warnings(const std::string& path, const GraphChoice& choice,
                               const Warn& warn) {
  GraphSource source = load(path, choice);
  if (source.data) {
    for (const std::string& warning : source.data->warnings) warn(warning);
  }
  return source;
}

}  // namespace

void render(const RenderRequest& request, const Warn& warn) {
  const GraphSource source = load_with_warnings(request.data_file, request, warn);
  const auto application = headless_application();
  const PictureFormat format = picture_format(request.picture_file).value();
  write_picture(render_picture(request, source, format, request.scale), request.picture_file);
}

void convert(const ConvertRequest& request, const Warn& warn) {
  const GraphSource source = load_with_warnings(request.data_file, request, warn);
  warn_of_commas(request.functions, warn);
  const auto application = headless_application();
  save_graph(request, source, request.graph_file);
}

}  // namespace kurv::app
