// The dialog that asks where to export a picture.
#pragma once

#include <QWidget>
#include <optional>
#include <string>

#include "app/graph/picture_file.h"

namespace kurv::app {

// Asks for the name of a picture of the graph in `graph_path`, beside that file and under its name,
// with the filter of this format.
// A name without a picture's extension gets that of the chosen filter, and an existing file is
// returned only if the user agrees to replace it. Nothing when the user cancels or the window is
// deleted meanwhile.
std::optional<std::string> ask_for_picture(QWidget* window, const std::string& graph_path,
                                           PictureFormat format);

}  // namespace kurv::app
