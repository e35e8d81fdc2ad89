// The library's own printer service: the printers of the desktop, chosen in Qt's dialog.
#pragma once

#include <KurvGraph/services.h>

#include <QFont>
#include <QImage>
#include <QPagedPaintDevice>
#include <QPointer>
#include <QPrinter>
#include <QString>
#include <QWidget>

namespace kurv {

class DesktopPrinter final : public PicturePrinter {
 public:
  // Asks for a printer or a PDF file, and prints the picture on one page. Does nothing when
  // cancelled, or where no dialog can be shown. Throws kDeviceIoError when it could not be printed,
  // a FileFault where it is a file that could not be written.
  void PrintPicture(std::string_view bitmap, std::string_view font_name, std::string_view caption,
                    Single font_size) override;
};

// Makes it the built-in class of kPicturePrinterClass.
void provide_desktop_printer();

// While it exists, the printer's dialog opens in front of this widget's window: the service itself
// does not know whose picture it prints.
class PrintingFor {
 public:
  explicit PrintingFor(QWidget* widget);
  ~PrintingFor();
  PrintingFor(const PrintingFor&) = delete;
  PrintingFor& operator=(const PrintingFor&) = delete;

 private:
  QPointer<QWidget> m_before;
};

struct Caption {
  QString text;
  QFont font;
};

// Paints one page: the picture as large as the page's margins allow, in the middle, and below it
// the caption, if there is one. A picture without pixels leaves the page blank. False when the
// device does not take it.
bool print_page(QPagedPaintDevice& device, const QImage& picture, const Caption& caption);

// The same into the PDF file of a printer that has one. Where false is returned, nothing was
// written, and an older file of this name stays. Replaces regular files only.
bool print_file(const QPrinter& printer, const QImage& picture, const Caption& caption);

}  // namespace kurv
