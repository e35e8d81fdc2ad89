// The question before a graph file is written that does not keep all of the graph.
#pragma once

#include <QWidget>
#include <string>
#include <vector>

namespace kurv::app {

// `changes` has a line for each text that becomes another one. False where the user cancels or the
// window is deleted while the box is open.
bool ask_to_save_anyway(QWidget* window, const std::vector<std::string>& changes);

}  // namespace kurv::app
