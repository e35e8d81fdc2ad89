// XML in a member of a zip archive.
#pragma once

#include <QIODevice>
#include <QXmlStreamReader>

#include <memory>
#include <string>

#include "app/sources/zip_archive.h"

namespace kurv::app {

// A stream of the elements of a member, so that memory is needed for what the caller keeps alone.
// Names are compared without their namespaces: each format has several generations of them.
class MemberXml {
 public:
  MemberXml(ZipArchive& archive, const std::string& name);

  // Goes to the next element or text; false at the end. Throws UserError when the XML is wrong.
  bool next();

  bool is_start() const { return m_xml.isStartElement(); }
  bool is_end() const { return m_xml.isEndElement(); }
  bool is_text() const { return m_xml.isCharacters(); }
  QStringView name() const { return m_xml.name(); }
  // The prefix of the element's name, as the document has it.
  QStringView prefix() const { return m_xml.prefix(); }
  QStringView text() const { return m_xml.text(); }
  // How many elements are open, the current one included.
  int depth() const { return m_depth; }

  QXmlStreamAttributes attributes() const { return m_xml.attributes(); }

  // Goes to the end of the element whose start is the current token.
  void skip_element();
  // The text of that element and of those inside; goes to its end.
  std::string element_text();

 private:
  ZipArchive& m_archive;
  std::string m_name;
  std::unique_ptr<QIODevice> m_device;
  QXmlStreamReader m_xml;
  int m_depth = 0;
};

// The value of the attribute `name` without regard to namespaces; empty where there is none.
QStringView attribute(const QXmlStreamAttributes& attributes, QStringView name);

// An attribute that is a whole number, such as the number of repetitions; `otherwise` where it is
// absent, negative or no number.
std::size_t count_attribute(const QXmlStreamAttributes& attributes, QStringView name,
                            std::size_t otherwise);

void append_utf8(std::string& text, QStringView added);

}  // namespace kurv::app
