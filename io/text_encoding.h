// Text inside is UTF-8; older graph files hold single-byte Western text (code page 1252).
#pragma once

#include <string_view>

#include <KurvGraph/values.h>

namespace kurv {

// The bytes themselves where they are valid UTF-8, otherwise what they say in code page 1252. A
// byte that has no character there becomes the control character of its number.
String to_utf8(std::string_view bytes);

}  // namespace kurv
