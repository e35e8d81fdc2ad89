#include "app/sources/xlsx_workbook.h"

#include <charconv>
#include <filesystem>
#include <map>
#include <string_view>
#include <utility>

#include "app/base/user_error.h"
#include "app/sources/member_xml.h"

namespace kurv::app {

namespace {

namespace fs = std::filesystem;

struct Relationship {
  std::string type;  // the last word of its address: "worksheet", "styles"
  std::string part;
};
// By the identifiers that the part uses for its relationships.
using Relationships = std::map<std::string, Relationship>;

// A target is given from the folder of its part, or with a slash from the root of the archive.
std::string resolve(const std::string& part, const std::string& target) {
  const fs::path path =
      target.starts_with('/') ? fs::path(target.substr(1)) : fs::path(part).parent_path() / target;
  return path.lexically_normal().generic_string();
}

Relationships read_relationships(ZipArchive& archive, const std::string& part) {
  const fs::path path(part);
  const std::string member =
      (path.parent_path() / "_rels" / (path.filename().string() + ".rels")).generic_string();
  Relationships relationships;
  if (!archive.has(member)) return relationships;
  MemberXml xml(archive, member);
  while (xml.next()) {
    if (!xml.is_start() || xml.name() != u"Relationship") continue;
    const QXmlStreamAttributes attributes = xml.attributes();
    const std::string type = attribute(attributes, u"Type").toUtf8().toStdString();
    const std::string target = attribute(attributes, u"Target").toUtf8().toStdString();
    relationships[attribute(attributes, u"Id").toUtf8().toStdString()] = {
        type.substr(type.find_last_of('/') + 1), resolve(part, target)};
  }
  return relationships;
}

std::string part_of_type(const Relationships& relationships, std::string_view type) {
  for (const auto& [id, relationship] : relationships) {
    if (relationship.type == type) return relationship.part;
  }
  return {};
}

XlsxSheet read_sheet(const QXmlStreamAttributes& attributes, const Relationships& relationships) {
  XlsxSheet sheet;
  append_utf8(sheet.name, attribute(attributes, u"name"));
  const auto relationship = relationships.find(attribute(attributes, u"id").toUtf8().toStdString());
  if (relationship != relationships.end() && relationship->second.type == "worksheet") {
    sheet.part = relationship->second.part;
  }
  return sheet;
}

bool is_true(QStringView value) {
  return value == u"1" || value == u"true";
}

void read_main_part(ZipArchive& archive, const std::string& part,
                    const Relationships& relationships, XlsxWorkbook& workbook) {
  MemberXml xml(archive, part);
  while (xml.next()) {
    if (!xml.is_start()) continue;
    if (xml.depth() == 1 && xml.name() != u"workbook") {
      throw UserError(archive.path() +
                      " is no spreadsheet but another document; save its table as a CSV file.");
    }
    const QXmlStreamAttributes attributes = xml.attributes();
    if (xml.name() == u"sheet") workbook.sheets.push_back(read_sheet(attributes, relationships));
    if (xml.name() == u"workbookPr" && is_true(attribute(attributes, u"date1904"))) {
      workbook.dates = DateSystem::k1904;
    }
  }
}

// The codes of the number formats come before the cell styles that use them.
std::vector<FormatKind> read_styles(ZipArchive& archive, const std::string& part) {
  std::vector<FormatKind> styles;
  std::map<std::size_t, FormatKind> own_formats;
  bool in_cell_styles = false;
  MemberXml xml(archive, part);
  while (xml.next()) {
    if (xml.name() == u"cellXfs") in_cell_styles = xml.is_start();
    if (!xml.is_start()) continue;
    const QXmlStreamAttributes attributes = xml.attributes();
    const std::size_t id = count_attribute(attributes, u"numFmtId", 0);
    if (xml.name() == u"numFmt") {
      const std::string code = attribute(attributes, u"formatCode").toUtf8().toStdString();
      own_formats[id] = kind_of_format(code);
    }
    if (!in_cell_styles || xml.name() != u"xf") continue;
    const auto own = own_formats.find(id);
    styles.push_back(own != own_formats.end() ? own->second
                                              : kind_of_built_in_format(static_cast<unsigned>(id)));
  }
  return styles;
}

TextList read_shared_strings(ZipArchive& archive, const std::string& part) {
  TextList strings;
  std::string text;
  MemberXml xml(archive, part);
  while (xml.next()) {
    if (xml.is_start() && xml.name() == u"si") text.clear();
    if (xml.is_start() && xml.name() == u"rPh") xml.skip_element();  // how the text is pronounced
    if (xml.is_start() && xml.name() == u"t") text += xml.element_text();
    if (xml.is_end() && xml.name() == u"si") strings.add(unescape_xlsx(text));
  }
  return strings;
}

}  // namespace

std::string find_main_part(ZipArchive& archive) {
  return part_of_type(read_relationships(archive, ""), "officeDocument");
}

XlsxWorkbook read_xlsx_workbook(ZipArchive& archive, const std::string& main_part) {
  if (main_part.ends_with(".bin")) {
    throw UserError(
        archive.path() +
        " is a binary workbook (.xlsb), which cannot be read; save it as .xlsx, .ods or "
        "CSV.");
  }
  const Relationships relationships = read_relationships(archive, main_part);
  XlsxWorkbook workbook;
  read_main_part(archive, main_part, relationships, workbook);
  const std::string styles = part_of_type(relationships, "styles");
  if (archive.has(styles)) workbook.styles = read_styles(archive, styles);
  const std::string strings = part_of_type(relationships, "sharedStrings");
  if (archive.has(strings)) workbook.strings = read_shared_strings(archive, strings);
  return workbook;
}

std::string unescape_xlsx(std::string text) {
  constexpr std::size_t kLength = 7;  // _xHHHH_
  for (std::size_t i = text.find("_x"); i != std::string::npos; i = text.find("_x", i + 1)) {
    if (i + kLength > text.size()) break;
    if (text[i + kLength - 1] != '_') continue;
    unsigned code = 0;
    const char* const digits = text.data() + i + 2;
    if (std::from_chars(digits, digits + 4, code, 16).ptr != digits + 4) continue;
    const char16_t character = code == 0 ? u' ' : static_cast<char16_t>(code);
    text.replace(i, kLength, QString(QChar(character)).toUtf8().toStdString());
  }
  return text;
}

}  // namespace kurv::app
