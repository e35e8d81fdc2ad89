// Writing a graph file.
#pragma once

#include <functional>
#include <optional>
#include <string_view>

#include <KurvGraph/values.h>

#include "model/graph_document.h"
#include "model/layout.h"

namespace kurv {

// Part of the file format: concatenates the decimal digits of both numbers, multiplies by three and
// writes the result in hexadecimal, "1E" for version 1.0.
String version_stamp(int major, int minor);

// Appends a text as a line holds it: each line break, CR LF or either alone, becomes a blank.
void append_on_one_line(String& line, std::string_view text);

// The control's outer size, twips.
struct ControlSize {
  Single height = 0;
  Single width = 0;
};

// Is called with a text piece by piece.
using TextSink = std::function<void(std::string_view)>;

// Hands over the text of a graph file. Without a size the two lines that hold it are left out: two
// such texts differ only where the graph was changed, not where its window was resized. Throws
// kSubscriptOutOfRange for more than 30 function curves.
void write_graph_text(const TextSink& sink, const GraphDocument& document, const Layout& layout,
                      const std::optional<ControlSize>& size, char decimal_separator);

// Writes the whole graph, its data in the order in which they were last drawn. MarkerSize,
// Autoscale and the visibility of function curves are not in the file. Nothing is escaped, so a
// name or an expression with a comma reads back as two: programs that read the format know no
// quotes. A line break in a text is written as a blank, so that it shifts no line. Throws
// kSubscriptOutOfRange for more than 30 function curves and what an OutputFile throws; the file is
// then incomplete, and the one it was to replace stays as kept_file.h says.
void write_graph_file(const String& path, const GraphDocument& document, const Layout& layout,
                      ControlSize size, char decimal_separator);

}  // namespace kurv
