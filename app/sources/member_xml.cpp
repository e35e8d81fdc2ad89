#include "app/sources/member_xml.h"

#include "app/base/user_error.h"

namespace kurv::app {

namespace {

// Spreadsheets nest about ten elements.
constexpr int kMaxXmlDepth = 256;

}  // namespace

MemberXml::MemberXml(ZipArchive& archive, const std::string& name)
    : m_archive(archive), m_name(name), m_device(archive.open(name)), m_xml(m_device.get()) {}

bool MemberXml::next() {
  if (m_xml.isEndElement()) --m_depth;
  const QXmlStreamReader::TokenType token = m_xml.readNext();
  if (token == QXmlStreamReader::StartElement && ++m_depth > kMaxXmlDepth) {
    throw damaged_file(m_archive.path(), "its part " + m_name + " is nested too deeply");
  }
  if (token == QXmlStreamReader::EndDocument) return false;
  if (token != QXmlStreamReader::Invalid) return true;
  m_archive.throw_failure();
  throw damaged_file(m_archive.path(), "its part " + m_name + " is wrong in line " +
                                           std::to_string(m_xml.lineNumber()) + ", " +
                                           m_xml.errorString().toStdString());
}

void MemberXml::skip_element() {
  const int depth = m_depth;
  while (next()) {
    if (is_end() && m_depth == depth) return;
  }
}

std::string MemberXml::element_text() {
  const int depth = m_depth;
  std::string text;
  while (next()) {
    if (is_text()) append_utf8(text, m_xml.text());
    if (is_end() && m_depth == depth) break;
  }
  return text;
}

QStringView attribute(const QXmlStreamAttributes& attributes, QStringView name) {
  for (const QXmlStreamAttribute& each : attributes) {
    if (each.name() == name) return each.value();
  }
  return {};
}

std::size_t count_attribute(const QXmlStreamAttributes& attributes, QStringView name,
                            std::size_t otherwise) {
  bool is_number = false;
  const auto count = attribute(attributes, name).toULongLong(&is_number);
  return is_number ? static_cast<std::size_t>(count) : otherwise;
}

void append_utf8(std::string& text, QStringView added) {
  const QByteArray bytes = added.toUtf8();
  text.append(bytes.constData(), static_cast<std::size_t>(bytes.size()));
}

}  // namespace kurv::app
