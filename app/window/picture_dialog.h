// Where a picture is to be written.
#pragma once

#include <QWidget>
#include <optional>
#include <string>

namespace kurv::app {

// Asks for the name of a picture of the graph in `graph_path`, beside that file and under its name.
// A name without the extension of a picture gets that of the chosen kind, and a file that is there
// already is only named if the user agrees to replace it. Nothing when the user cancels, or the
// window goes meanwhile.
std::optional<std::string> ask_for_picture(QWidget* window, const std::string& graph_path);

}  // namespace kurv::app
