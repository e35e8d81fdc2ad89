#include "model/graph_document.h"

namespace kurv {

void set_marker_size(GraphDocument& document, Double size) {
  document.MarkerSize = size;
  document.MarkerDrawSize = size * 5 / 6;
}

void reset_file(GraphDocument& document) {
  document.FileName.clear();
  document.SavedTitle.clear();
}

Font axis_font(const GraphDocument& document) {
  return {document.FontName, document.FontSize, bool(document.FontBold), bool(document.FontItalic)};
}

Font title_font(const GraphDocument& document) {
  return {document.TitleFontName, document.TitleFontSize, bool(document.TitleFontBold),
          bool(document.TitleFontItalic)};
}

Font subtitle_font(const GraphDocument& document) {
  return {document.SubTitleFontName, document.SubTitleFontSize, bool(document.SubTitleFontBold),
          bool(document.SubTitleFontItalic)};
}

}  // namespace kurv
