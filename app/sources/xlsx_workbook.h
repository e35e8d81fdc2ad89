// The parts of an .xlsx workbook that its sheets refer to.
#pragma once

#include <string>
#include <vector>

#include "app/sources/cell_text.h"
#include "app/sources/text_list.h"
#include "app/sources/zip_archive.h"

namespace kurv::app {

struct XlsxSheet {
  std::string name;
  std::string part;  // the member of the archive; empty for a sheet without cells, such as a chart
};

struct XlsxWorkbook {
  std::vector<XlsxSheet> sheets;
  DateSystem dates = DateSystem::k1900;
  // What the number formats of the cell styles are; a cell has the number of its style.
  std::vector<FormatKind> styles;
  TextList strings;  // those that cells share
};

// The name of the member that everything else is found from; empty where the archive has none, so
// that it is no document of this family.
std::string find_main_part(ZipArchive& archive);

// Throws UserError when the main part is no workbook.
XlsxWorkbook read_xlsx_workbook(ZipArchive& archive, const std::string& main_part);

// "_x000D_" is how XML of these files writes a character that it cannot hold.
std::string unescape_xlsx(std::string text);

}  // namespace kurv::app
