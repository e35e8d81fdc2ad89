// Picture files.
#pragma once

#include <KurvGraph/KurvGraph.h>
#include <KurvGraph/control.h>

#include <QByteArray>
#include <QImage>
#include <QSize>
#include <optional>
#include <string>

namespace kurv::app {

enum class PictureFormat { kPng, kBmp, kSvg, kPdf };

// ".png, .bmp, .svg or .pdf", for sentences.
std::string picture_extensions();

// By the name's extension in any letter case; nothing for another one.
std::optional<PictureFormat> picture_format(const std::string& path);
// Such as ".png".
std::string picture_extension(PictureFormat format);
// Whether a picture in it is made of lines and text, not of pixels.
bool is_vector(PictureFormat format);

// The bytes of a picture file: of pixels, and of a graph as a document of lines and text that is as
// large as its pixels are at a ratio of 1.
QByteArray encoded(const QImage& picture, PictureFormat format);
QByteArray vector_document(const Control& graph, QSize logical_size, PictureFormat format);

// Replaces the file as a whole or leaves it as it was. Throws UserError with the reason when it
// cannot be written.
void write_picture(const QByteArray& bytes, const std::string& path);

// Writes the graph as it is shown in the format that the path's extension names, and nothing of it
// changes. Throws UserError where there is no such format, the graph cannot be drawn, or the file
// cannot be written; then the file is as it was.
void export_picture(const KurvGraph& graph, const std::string& path);
// The same in another size, of which a document of lines and text takes the pixels as logical ones.
void export_picture(const KurvGraph& graph, const std::string& path, QSize pixels,
                    double dots_per_inch);

}  // namespace kurv::app
