#include "app/sources/spreadsheet.h"

#include <algorithm>
#include <utility>

#include "app/base/user_error.h"
#include "app/sources/member_xml.h"
#include "app/sources/ods_reader.h"
#include "app/sources/xlsx_sheet.h"
#include "app/sources/xlsx_workbook.h"
#include "app/sources/zip_archive.h"

namespace kurv::app {

namespace {

constexpr std::string_view kZipSignature = "PK\x03\x04";
constexpr std::string_view kEmptyZipSignature = "PK\x05\x06";
// The container of the old binary documents, and of encrypted ones.
constexpr std::string_view kCompoundFileSignature = "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1";

SheetText read_xlsx(ZipArchive& archive, const std::string& main_part, const WantedSheet& wanted) {
  const XlsxWorkbook workbook = read_xlsx_workbook(archive, main_part);
  SheetText result;
  for (const XlsxSheet& sheet : workbook.sheets) result.sheets.push_back(sheet.name);
  int best = 0;
  for (std::size_t i = 0; wanted && i < workbook.sheets.size(); ++i) {
    const int rank = sheet_rank(*wanted, workbook.sheets[i].name, i);
    if (rank > best) result.sheet = i;
    best = std::max(best, rank);
  }
  if (wanted && best == 0) throw missing_sheet(archive.path(), *wanted, result.sheets);

  std::size_t formulas = 0;
  for (std::size_t i = result.sheet; i < workbook.sheets.size(); ++i) {
    if (!workbook.sheets[i].part.empty()) {
      XlsxCells cells = read_xlsx_sheet(archive, workbook.sheets[i].part, workbook);
      formulas += cells.formulas_without_result;
      result.sheet = i;
      result.text = cells.table.take();
    }
    if (wanted || !result.text.empty()) break;
  }
  if (formulas > 0) {
    result.notes.push_back("Formulas without a stored result are read as empty cells (" +
                           std::to_string(formulas) +
                           "); open the file in a spreadsheet program and save it there.");
  }
  if (result.text.empty() && formulas > 0) {
    throw UserError(archive.path() +
                    " has formulas without stored results and no other cells; open it in a "
                    "spreadsheet program and save it there.");
  }
  if (result.text.empty()) throw no_cells(archive.path());
  return result;
}

bool is_encrypted(ZipArchive& archive) {
  constexpr const char* kManifest = "META-INF/manifest.xml";
  if (!archive.has(kManifest)) return false;
  MemberXml xml(archive, kManifest);
  while (xml.next()) {
    if (xml.is_start() && xml.name() == u"encryption-data") return true;
  }
  return false;
}

SheetText read_open_document(ZipArchive& archive, const WantedSheet& wanted) {
  if (is_encrypted(archive)) throw protected_file(archive.path());
  OdsCells cells = read_ods(archive, wanted);
  return {cells.table.take(), std::move(cells.sheets), cells.sheet, {}};
}

}  // namespace

bool looks_like_spreadsheet(std::string_view bytes) {
  return bytes.starts_with(kZipSignature) || bytes.starts_with(kEmptyZipSignature) ||
         bytes.starts_with(kCompoundFileSignature);
}

SheetText read_spreadsheet(std::string_view bytes, const std::string& path,
                           const WantedSheet& wanted) {
  if (bytes.starts_with(kCompoundFileSignature)) {
    throw UserError(
        path +
        " is a binary workbook (.xls) or one with a password, which cannot be read; save "
        "it without a password as .xlsx, .ods or CSV.");
  }
  ZipArchive archive(bytes, path);
  const std::string main_part = find_main_part(archive);
  if (!main_part.empty()) return read_xlsx(archive, main_part, wanted);
  if (archive.has("content.xml")) return read_open_document(archive, wanted);
  throw UserError(path +
                  " is a zip archive but no spreadsheet; unpack it and name the table in it.");
}

}  // namespace kurv::app
