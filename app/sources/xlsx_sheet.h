// The cells of a sheet of an .xlsx workbook.
#pragma once

#include <cstddef>
#include <string>

#include "app/sources/tsv_writer.h"
#include "app/sources/xlsx_workbook.h"
#include "app/sources/zip_archive.h"

namespace kurv::app {

struct XlsxCells {
  TsvWriter table;
  // Formulas whose results the file does not have: the program that wrote it has not computed them.
  std::size_t formulas_without_result = 0;
};

XlsxCells read_xlsx_sheet(ZipArchive& archive, const std::string& part,
                          const XlsxWorkbook& workbook);

}  // namespace kurv::app
