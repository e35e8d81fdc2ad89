#include "app/graph/picture_file.h"

#include <KurvGraph/fault.h>
#include <KurvGraph/replace_file.h>
#include <KurvGraph/text.h>
#include <KurvGraph/vector_picture.h>

#include <QBuffer>
#include <QFile>
#include <algorithm>
#include <array>
#include <filesystem>
#include <new>

#include "app/base/fault_words.h"
#include "app/base/message_text.h"
#include "app/base/user_error.h"

namespace kurv::app {

namespace {

struct FormatRow {
  PictureFormat format;
  const char* extension;
  const char* pixels;  // Qt's name of it, or nullptr for vector formats
};

constexpr std::array kFormats = {
    FormatRow{PictureFormat::kPng, ".png", "PNG"},
    FormatRow{PictureFormat::kBmp, ".bmp", "BMP"},
    FormatRow{PictureFormat::kSvg, ".svg", nullptr},
    FormatRow{PictureFormat::kPdf, ".pdf", nullptr},
};

const FormatRow& row_of(PictureFormat format) {
  return *std::find_if(kFormats.begin(), kFormats.end(),
                       [format](const FormatRow& row) { return row.format == format; });
}

QByteArray exported(const KurvGraph& graph, PictureFormat format) {
  if (format == PictureFormat::kSvg) return graph.svg();
  if (format == PictureFormat::kPdf) return graph.pdf();
  return encoded(graph.image(), format);
}

VectorFormat vector_format(PictureFormat format) {
  return format == PictureFormat::kSvg ? VectorFormat::kSvg : VectorFormat::kPdf;
}

// Writes what `make` returns for the format that the path's extension names.
template <class Make>
void write_made(const std::string& path, const Make& make) {
  const std::optional<PictureFormat> format = picture_format(path);
  if (!format) {
    throw UserError("the name of the picture must end in " + picture_extensions() + ", and " +
                    in_quotes(path) + " does not.");
  }
  QByteArray bytes;
  try {
    bytes = make(*format);
  } catch (const Fault& fault) {
    throw UserError("the graph" + fault_clause(Attempt::kDraw, fault.kind()));
  }
  write_picture(bytes, path);
}

const char* advice_for(ReplaceFailure::Step step) {
  switch (step) {
    case ReplaceFailure::Step::kTarget:
      return "choose another name";
    case ReplaceFailure::Step::kOpen:
      return "choose another folder";
    case ReplaceFailure::Step::kWrite:
      return "make room on the disk or choose another one";
    case ReplaceFailure::Step::kCommit:
      break;
  }
  return "make room on the disk or choose another folder";
}

}  // namespace

std::string picture_extensions() {
  std::string result;
  for (std::size_t i = 0; i < kFormats.size(); ++i) {
    if (i > 0) result += i + 1 < kFormats.size() ? ", " : " or ";
    result += kFormats[i].extension;
  }
  return result;
}

std::optional<PictureFormat> picture_format(const std::string& path) {
  const std::string extension = to_lower(std::filesystem::path(path).extension().string());
  for (const FormatRow& row : kFormats) {
    if (extension == row.extension) return row.format;
  }
  return std::nullopt;
}

std::string picture_extension(PictureFormat format) {
  return row_of(format).extension;
}

bool is_vector(PictureFormat format) {
  return row_of(format).pixels == nullptr;
}

QByteArray encoded(const QImage& picture, PictureFormat format) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  if (!picture.save(&buffer, row_of(format).pixels)) throw std::bad_alloc();
  return bytes;
}

QByteArray vector_document(const Control& graph, QSize logical_size, PictureFormat format) {
  VectorPicture picture(vector_format(format), QString::fromStdString(graph.Title()), logical_size);
  graph.draw_on(picture);
  return picture.take_document();
}

// The whole file is made before anything is written, so that only the disk can fail here.
void write_picture(const QByteArray& bytes, const std::string& path) {
  if (const auto failure = replace_file(QFile::decodeName(path.c_str()), bytes)) {
    throw UserError(path + " cannot be written: " + failure->reason.toStdString() + "; " +
                    advice_for(failure->step) + ".");
  }
}

void export_picture(const KurvGraph& graph, const std::string& path) {
  write_made(path, [&](PictureFormat format) { return exported(graph, format); });
}

void export_picture(const KurvGraph& graph, const std::string& path, QSize pixels,
                    double dots_per_inch) {
  write_made(path, [&](PictureFormat format) {
    if (is_vector(format)) return graph.document(vector_format(format), pixels);
    const QImage picture = graph.picture(pixels, dots_per_inch);
    if (picture.isNull()) throw std::bad_alloc();
    return encoded(picture, format);
  });
}

}  // namespace kurv::app
