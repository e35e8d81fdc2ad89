#include "app/picture_export.h"

#include "app/picture_file.h"
#include "app/text.h"
#include "app/user_error.h"

namespace kurv::app {

QStringList picture_filters() {
  return {"PNG picture (*.png)", "Bitmap (*.bmp)"};
}

void export_graph(const KurvGraph& graph, const std::string& path) {
  if (!picture_format(path)) {
    throw UserError("The name of the picture must end in .png or .bmp, and " + in_quotes(path) +
                    " does not.");
  }
  write_picture(graph.image(), path);
}

}  // namespace kurv::app
