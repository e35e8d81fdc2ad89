// A window's graph as a picture in a file.
#pragma once

#include <KurvGraph/KurvGraph.h>

#include <QStringList>
#include <string>

namespace kurv::app {

// What a dialog offers, the usual one first.
QStringList picture_filters();

// The kind of picture is that of the name's extension. Throws UserError when there is none, or when
// the picture cannot be written; an older file is then as it was.
void export_graph(const KurvGraph& graph, const std::string& path);

}  // namespace kurv::app
