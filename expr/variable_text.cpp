#include <KurvGraph/variable_text.h>

#include <KurvGraph/text.h>

#include "expr/parser.h"

namespace kurv {

String variable_text(std::string_view name) {
  const std::string_view trimmed = trim_blanks(name);
  if (expr::is_variable_name(trimmed)) return String(trimmed);
  String text = "[";
  for (const char c : trimmed) {
    text += c;
    if (c == ']') text += c;
  }
  return text + ']';
}

}  // namespace kurv
