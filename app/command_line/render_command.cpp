#include "app/command_line/render_command.h"

#include <QTemporaryDir>

#include "app/base/read_file.h"
#include "app/command_line/standard_output.h"
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
  const QByteArray picture = render_picture(request, source, request.format, request.scale, warn);
  if (is_standard_output(request.picture_file)) {
    write_standard_output({picture.data(), static_cast<std::size_t>(picture.size())});
  } else {
    write_picture(picture, request.picture_file);
  }
}

void convert(const ConvertRequest& request, const Warn& warn) {
  const GraphSource source = load_with_warnings(request.data_file, request, warn);
  const auto application = headless_application();
  if (!is_standard_output(request.graph_file)) {
    save_graph(request, source, request.graph_file, warn);
    return;
  }
  // A graph is saved to a file with a name, as a whole.
  const QTemporaryDir folder;
  const std::string path = folder.filePath("graph.gdf").toStdString();
  save_graph(request, source, path, warn);
  write_standard_output(read_graph_file_bytes(path));
}

}  // namespace kurv::app
