// Reading a graph file.
#pragma once

#include <KurvGraph/arrays.h>
#include <KurvGraph/services.h>
#include <KurvGraph/values.h>

#include "model/graph_document.h"
#include "model/layout.h"

namespace kurv {

class InputFile;

// Where a handle's top-left corner goes, twips.
struct HandlePlace {
  Integer top = 0;
  Integer left = 0;
};

// Values that are applied only after the whole file has been read.
struct GraphFile {
  // Arguments of the data intake, as are the lists below.
  Integer num_data = 0;
  Integer num_y = 0;
  Integer num_functions = 0;
  Boolean Connected;
  Boolean DrawMarkers;

  HandlePlace imgTitle;
  HandlePlace imgSubTitle;
  HandlePlace picLegend;
  Integer height = 0;  // of the control, twips
  Integer width = 0;

  // Has the values of the table's deferred lines; what else it has is not from the file.
  GraphDocument deferred;

  Matrix<Double> xyarr;    // (column, point), column 1 is x
  List<String> names;      // of x, then of the curves, from 1 on
  List<Boolean> visible;   // of curves 1..
  List<String> functions;  // from 1 on
};

// Titles, widths, margins, ticks, label formats, fonts, the two exact-limit switches and SortXY go
// straight into the document, where they stay when a later line fails; the rest is returned. Uses
// memory in proportion to the bytes that it reads, whatever counts they claim.
//
// Throws kInputPastEnd for too few lines, kTypeMismatch for what is no number or no Boolean,
// kOverflow for a number that does not fit into 16 bits where it has to and for a limit that is not
// finite, kSubscriptOutOfRange for a data line with fewer values than points and for negative
// counts, except that -1 points are none.
GraphFile read_graph_file(InputFile& file, GraphDocument& document, const TextFieldTool& tool,
                          char decimal_separator);

// Moves the handles of title, subtitle and legend, and copies the deferred values.
void apply_deferred(const GraphFile& graph, GraphDocument& document, Layout& layout);

}  // namespace kurv
