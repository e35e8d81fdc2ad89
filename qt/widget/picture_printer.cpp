#include "qt/widget/picture_printer.h"

#include <KurvGraph/KurvGraph.h>
#include <KurvGraph/file_fault.h>
#include <KurvGraph/replace_file.h>
#include <KurvGraph/wheel_guard.h>

#include <QApplication>
#include <QBuffer>
#include <QFile>
#include <QPainter>
#include <QPdfWriter>
#include <QPointer>
#include <QPrintDialog>
#include <algorithm>
#include <memory>
#include <optional>
#include <utility>

#include "control/built_in_classes.h"
#include "qt/widget/qt_shell.h"

namespace kurv {

namespace {

QImage image_of(std::string_view bitmap) {
  QImage image;
  image.loadFromData(reinterpret_cast<const uchar*>(bitmap.data()), static_cast<int>(bitmap.size()),
                     "BMP");
  return image;
}

QPointer<QWidget> g_printing_for;

// Whether the user has chosen a printer and accepted.
bool is_accepted(QPrinter& printer) {
  const QPointer<QPrintDialog> dialog = new QPrintDialog(&printer, dialog_parent(g_printing_for));
  // There is one page, and nothing that could be selected on it.
  dialog->setOptions(QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintShowPageSize);
  guard_wheel(*dialog);
  const bool accepted = dialog->exec() == QDialog::Accepted;
  // The window may have been destroyed meanwhile, and its dialog with it; that is no answer.
  const bool answered = accepted && dialog;
  delete dialog.data();
  return answered;
}

// To the widget whose picture it was, after the current event, because a slot may delete it.
void announce(const QString& file) {
  auto* const graph = qobject_cast<KurvGraph*>(g_printing_for.data());
  if (!graph) return;
  QMetaObject::invokeMethod(
      graph, [graph, file] { Q_EMIT graph->printed(file); }, Qt::QueuedConnection);
}

// The rectangle of a picture of this size, as large as fits on the page above the caption.
QRectF picture_rect(const QSizeF& page, const QSizeF& size, double caption_height) {
  const QSizeF available(page.width(), std::max(1.0, page.height() - caption_height));
  const QSizeF scaled = size.scaled(available, Qt::KeepAspectRatio);
  return QRectF(
      QPointF((page.width() - scaled.width()) / 2, (available.height() - scaled.height()) / 2),
      scaled);
}

// What the printer would write. It is made in memory, because QPrinter does not report a full disk.
std::optional<QByteArray> pdf_of(const QPrinter& printer, const QImage& picture,
                                 const Caption& caption) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  QPdfWriter writer(&buffer);
  writer.setTitle(printer.docName());
  writer.setCreator(printer.creator());
  writer.setPdfVersion(printer.pdfVersion());
  writer.setResolution(printer.resolution());
  writer.setPageLayout(printer.pageLayout());
  const bool is_grey = printer.colorMode() == QPrinter::GrayScale;
  if (!print_page(writer, is_grey ? picture.convertToFormat(QImage::Format_Grayscale8) : picture,
                  caption)) {
    return std::nullopt;
  }
  return bytes;
}

}  // namespace

PrintingFor::PrintingFor(QWidget* widget)
    : m_before(std::exchange(g_printing_for, QPointer<QWidget>(widget))) {}

PrintingFor::~PrintingFor() {
  g_printing_for = m_before;
}

void DesktopPrinter::PrintPicture(std::string_view bitmap, std::string_view font_name,
                                  std::string_view caption, Single font_size) {
  if (!qobject_cast<QApplication*>(QCoreApplication::instance()) ||
      QCoreApplication::closingDown()) {
    return;
  }
  const QImage picture = image_of(bitmap);
  QFont font(QString::fromUtf8(font_name.data(), static_cast<qsizetype>(font_name.size())));
  if (font_size > 0) font.setPointSizeF(font_size);

  QPrinter printer(QPrinter::HighResolution);
  printer.setDocName(QStringLiteral("KURV graph"));
  if (picture.width() > picture.height()) printer.setPageOrientation(QPageLayout::Landscape);
  if (!is_accepted(printer)) return;
  const Caption below{shown_text(caption), font};
  const QString file = printer.outputFileName();
  if (file.isEmpty()) {
    if (!print_page(printer, picture, below)) throw Fault(FaultKind::kDeviceIoError);
  } else if (!print_file(printer, picture, below)) {
    throw FileFault(FaultKind::kDeviceIoError, QFile::encodeName(file).toStdString());
  }
  announce(file);
}

void provide_desktop_printer() {
  register_built_in_class(kPicturePrinterClass, [] { return std::make_unique<DesktopPrinter>(); });
}

bool print_page(QPagedPaintDevice& device, const QImage& picture, const Caption& caption) {
  QPainter painter;
  if (!painter.begin(&device)) return false;
  // No downsampling and no lossy compression of the pixels.
  painter.setRenderHint(QPainter::LosslessImageRendering);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  const QSizeF page(device.width(), device.height());
  painter.setFont(caption.font);
  const QRectF text_bounds = painter.boundingRect(
      QRectF(QPointF(0, 0), page), Qt::AlignHCenter | Qt::TextWordWrap, caption.text);
  const double caption_height = caption.text.isEmpty() ? 0 : 1.5 * text_bounds.height();
  if (!picture.isNull()) {
    const QRectF rect = picture_rect(page, picture.size(), caption_height);
    painter.drawImage(rect, picture);
    const double below = rect.bottom() + caption_height - text_bounds.height();
    painter.drawText(QRectF(0, below, page.width(), text_bounds.height()),
                     Qt::AlignHCenter | Qt::TextWordWrap, caption.text);
  }
  return painter.end();
}

bool print_file(const QPrinter& printer, const QImage& picture, const Caption& caption) {
  const std::optional<QByteArray> pdf = pdf_of(printer, picture, caption);
  return pdf && !replace_file(printer.outputFileName(), *pdf);
}

}  // namespace kurv
