// A page that is written as SVG. A user unit is a twip, and coordinates are written in hundredths
// of one.
#include <QStringList>
#include <QXmlStreamWriter>
#include <cmath>

#include "model/palette.h"
#include "qt/surface/vector_page.h"

namespace kurv {

namespace {

// Fixed point: whole hundredths of a twip. Relative path commands are differences of these, so that
// rounding errors do not accumulate.
using Hundredths = qint64;

Hundredths hundredths(double twips) {
  return std::llround(twips * 100);
}

void append(QByteArray& text, Hundredths value) {
  if (value < 0) text += '-';
  const Hundredths size = std::abs(value);
  if (size >= 100 || size == 0) text += QByteArray::number(size / 100);
  if (size % 100 == 0) return;
  text += '.';
  text += static_cast<char>('0' + size / 10 % 10);
  if (size % 10 != 0) text += static_cast<char>('0' + size % 10);
}

QString number(double twips) {
  QByteArray text;
  append(text, hundredths(twips));
  return QString::fromLatin1(text);
}

QString hex_colour(int index) {
  return u'#' + QString::number(0x1000000 | palette_rgb(index), 16).mid(1);
}

// The data of a path element, in relative commands.
class PathData {
 public:
  explicit PathData(const QPainterPath& path) {
    for (int i = 0; i < path.elementCount(); ++i) {
      const QPainterPath::Element element = path.elementAt(i);
      if (element.isMoveTo()) {
        close();
        move(element);
      } else if (element.isLineTo()) {
        step_line(element);
      } else {
        step_curve(element, path.elementAt(i + 1), path.elementAt(i + 2));
        i += 2;
      }
    }
    close();
  }

  const QByteArray& text() const { return m_text; }

 private:
  struct GridPoint {
    Hundredths x = 0;
    Hundredths y = 0;
    friend bool operator==(const GridPoint&, const GridPoint&) = default;
  };

  static GridPoint to_grid(const QPainterPath::Element& element) {
    return {hundredths(element.x), hundredths(element.y)};
  }

  void move(const QPainterPath::Element& element) {
    m_start = m_here = to_grid(element);
    m_steps = 0;
    m_text += 'M';
    append(m_text, m_here.x);
    m_text += ' ';
    append(m_text, m_here.y);
    m_command = 'M';
  }

  void step_line(const QPainterPath::Element& element) {
    const GridPoint to = to_grid(element);
    // Of a curve with more points than the page can show, those that round to the same point are
    // written once.
    if (to == m_here && m_steps > 0) return;
    begin('l', to);
    append_step(to);
    m_here = to;
  }

  void step_curve(const QPainterPath::Element& first, const QPainterPath::Element& second,
                  const QPainterPath::Element& last) {
    begin('c', to_grid(first));
    append_step(to_grid(first));
    separate(to_grid(second));
    append_step(to_grid(second));
    separate(to_grid(last));
    append_step(to_grid(last));
    m_here = to_grid(last);
  }

  // A repeated command letter is omitted.
  void begin(char command, GridPoint to) {
    ++m_steps;
    if (m_command == command) return separate(to);
    m_text += command;
    m_command = command;
  }

  // Before a minus sign no blank is needed.
  void separate(GridPoint to) {
    if (to.x >= m_here.x) m_text += ' ';
  }

  void append_step(GridPoint to) {
    append(m_text, to.x - m_here.x);
    if (to.y >= m_here.y) m_text += ' ';
    append(m_text, to.y - m_here.y);
  }

  // A subpath that returns to its start is closed: it has a join there and no caps.
  void close() {
    if (m_steps > 2 && m_here == m_start) m_text += 'z';
  }

  QByteArray m_text;
  GridPoint m_start;
  GridPoint m_here;
  int m_steps = 0;  // since the start
  char m_command = 0;
};

// Control characters and the noncharacters U+FFFE and U+FFFF are not allowed in XML.
QString allowed(QString text) {
  for (QChar& character : text) {
    const char16_t code = character.unicode();
    if (code < 0x20 || code >= 0xFFFE) character = QChar::ReplacementCharacter;
  }
  return text;
}

// A font family as a CSS string.
QString quoted(QString family) {
  family.replace(u'\\', QStringLiteral("\\\\")).replace(u'\'', QStringLiteral("\\'"));
  return u'\'' + allowed(family) + u'\'';
}

// The CSS font shorthand, with the fallback families. The last of these is generic and is not
// quoted.
QString font_shorthand(const QFont& font, const QString& size) {
  QStringList families = font.families();
  const QString generic = families.takeLast();
  families.removeDuplicates();
  for (QString& family : families) family = quoted(family);
  families << generic;
  return QLatin1String(font.italic() ? "italic " : "") + QLatin1String(font.bold() ? "bold " : "") +
         size + QStringLiteral("px ") + families.join(u',');
}

class SvgPage final : public VectorPage {
 public:
  explicit SvgPage(const PageSetup& setup) : m_xml(&m_bytes) {
    m_xml.writeStartDocument();
    m_xml.writeStartElement(QStringLiteral("svg"));
    m_xml.writeDefaultNamespace(QStringLiteral("http://www.w3.org/2000/svg"));
    attribute("version", QStringLiteral("1.1"));
    attribute("width", QString::number(setup.logical_pixels.width()));
    attribute("height", QString::number(setup.logical_pixels.height()));
    attribute("viewBox", "0 0 " + number(setup.twips.width()) + ' ' + number(setup.twips.height()));
    attribute("fill", QStringLiteral("none"));
    attribute("stroke-linecap", QStringLiteral("round"));
    attribute("stroke-linejoin", QStringLiteral("round"));
    m_xml.writeTextElement(QStringLiteral("title"), allowed(setup.title));
    fill(QRectF(QPointF(0, 0), setup.twips), kWhite, Style::kSquare);
  }

  void stroke(const QPainterPath& path, int colour, double pen_width, Style style) override {
    begin("path");
    attribute("stroke", hex_colour(colour));
    attribute("stroke-width", number(pen_width));
    if (style != Style::kRound) {
      attribute("stroke-linecap", QStringLiteral("square"));
      attribute("stroke-linejoin", QStringLiteral("miter"));
    }
    make_crisp(style);
    attribute("d", QString::fromLatin1(PathData(path).text()));
  }

  void fill(const QRectF& rect, int colour, Style style) override {
    begin("rect");
    attribute("fill", hex_colour(colour));
    make_crisp(style);
    attribute("x", number(rect.x()));
    attribute("y", number(rect.y()));
    attribute("width", number(rect.width()));
    attribute("height", number(rect.height()));
  }

  // textLength makes the text as wide as measured, also in a fallback font.
  void print(const PlacedPiece& piece, const TextLayout& layout, int colour) override {
    if (piece.text.trimmed().isEmpty()) return;
    const QFont& font = layout.font();
    m_xml.writeCharacters(QStringLiteral("\n"));
    m_xml.writeStartElement(QStringLiteral("text"));
    attribute("x", number(piece.left));
    attribute("y", number(piece.baseline));
    attribute("fill", hex_colour(colour));
    // Viewers that cannot parse a list of families ignore the style and use the attributes.
    const QString size = number(font.pixelSize() * layout.twips_per_font_pixel());
    attribute("font-family", quoted(font.families().constFirst()));
    attribute("font-size", size);
    if (font.bold()) attribute("font-weight", QStringLiteral("bold"));
    if (font.italic()) attribute("font-style", QStringLiteral("italic"));
    attribute("style", "font:" + font_shorthand(font, size));
    attribute("textLength", number(piece.width));
    attribute("lengthAdjust", QStringLiteral("spacingAndGlyphs"));
    attribute("xml:space", QStringLiteral("preserve"));
    m_xml.writeCharacters(allowed(piece.text));
    m_xml.writeEndElement();
  }

  QByteArray finish() override {
    m_xml.writeCharacters(QStringLiteral("\n"));
    m_xml.writeEndDocument();
    return m_bytes;
  }

 private:
  void begin(const char* element) {
    m_xml.writeCharacters(QStringLiteral("\n"));
    m_xml.writeEmptyElement(QLatin1String(element));
  }
  void attribute(const char* name, const QString& value) {
    m_xml.writeAttribute(QLatin1String(name), value);
  }
  void make_crisp(Style style) {
    if (style == Style::kCrisp) attribute("shape-rendering", QStringLiteral("crispEdges"));
  }

  QByteArray m_bytes;
  QXmlStreamWriter m_xml;
};

}  // namespace

std::unique_ptr<VectorPage> make_svg_page(const PageSetup& setup) {
  return std::make_unique<SvgPage>(setup);
}

}  // namespace kurv
