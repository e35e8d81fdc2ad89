/// @file
/// Pictures as PNG files, without a toolkit.
#pragma once

#include <KurvGraph/pixel_view.h>
#include <KurvGraph/values.h>

namespace kurv {

/// The bytes of a file: RGB with eight bits a channel, and the pixels per metre where they are
/// known. Throws kInvalidProcedureCall for a picture without pixels, kOutOfMemory where there is no
/// memory.
KURV_EXPORT String png_bytes(const PixelView& picture);

/// Makes the file, or replaces a regular one as a whole: a program that reads it sees the older
/// picture or the new one. Throws a FileFault where that fails; an older file is then as it was.
KURV_EXPORT void save_png(const PixelView& picture, const String& path);

}  // namespace kurv
