#include "app/render_command.h"

#include "app/graph_intake.h"
#include "app/picture_file.h"
#include "app/text.h"
#include "app/windowless_application.h"

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
  const auto application = windowless_application();
  write_picture(picture_of(request, source, request.scale), request.picture_file);
}

void convert(const ConvertRequest& request, const Warn& warn) {
  const GraphSource source = load_with_warnings(request.data_file, request, warn);
  for (const std::string& function : request.functions) {
    if (function.find(',') == std::string::npos) continue;
    warn("the graph file splits the function " + in_quotes(function) +
         " at its comma, so it does not come back as it is.");
  }
  const auto application = windowless_application();
  save_graph(request, source, request.graph_file);
}

}  // namespace kurv::app
