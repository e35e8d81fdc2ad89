// The cells of an .ods workbook.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "app/sources/sheet_choice.h"
#include "app/sources/tsv_writer.h"
#include "app/sources/zip_archive.h"

namespace kurv::app {

struct OdsCells {
  TsvWriter table;
  std::vector<std::string> sheets;
  std::size_t sheet = 0;  // the one that was read, from 0 on
};

// Throws UserError when the document is no workbook, or has not the wanted sheet or no cells.
OdsCells read_ods(ZipArchive& archive, const WantedSheet& wanted);

}  // namespace kurv::app
