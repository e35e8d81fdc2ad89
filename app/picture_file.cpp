#include "app/picture_file.h"

#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <filesystem>
#include <new>

#include "app/text.h"
#include "app/user_error.h"

namespace kurv::app {

namespace {

// The whole picture is encoded before anything is written, so that only the disk can fail later.
QByteArray encoded(const QImage& picture, const std::string& format) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  if (!picture.save(&buffer, format.c_str())) throw std::bad_alloc();
  return bytes;
}

UserError unwritable(const std::string& path, const QString& reason, const std::string& advice) {
  return UserError(path + " cannot be written: " + reason.toStdString() + "; " + advice + ".");
}

// The bytes that did not fit would otherwise go unnoticed: a file that fell short is replaced by
// commit() as if it were whole.
bool write_all(QSaveFile& file, const QByteArray& bytes) {
  qsizetype written = 0;
  while (written < bytes.size()) {
    const qint64 count = file.write(bytes.constData() + written, bytes.size() - written);
    if (count <= 0) return false;
    written += count;
  }
  return file.flush();
}

}  // namespace

std::optional<std::string> picture_format(const std::string& path) {
  const std::string extension = lower_case(std::filesystem::path(path).extension().string());
  if (extension == ".png") return "PNG";
  if (extension == ".bmp") return "BMP";
  return std::nullopt;
}

void write_picture(const QImage& picture, const std::string& path) {
  const QByteArray bytes = encoded(picture, picture_format(path).value());
  const QString name = QFile::decodeName(path.c_str());
  // A device would be replaced by a file.
  const QFileInfo target(name);
  if (target.exists() && !target.isFile())
    throw unwritable(path, "it is not a regular file", "choose another name");
  QSaveFile file(name);
  // Unbuffered, so that each write tells what has become of its bytes.
  if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) {
    throw unwritable(path, file.errorString(), "choose another folder");
  }
  if (!write_all(file, bytes)) {
    const QString reason = file.errorString();
    file.cancelWriting();
    throw unwritable(path, reason, "make room on the disk or choose another one");
  }
  if (!file.commit()) {
    throw unwritable(path, file.errorString(), "make room on the disk or choose another folder");
  }
}

}  // namespace kurv::app
