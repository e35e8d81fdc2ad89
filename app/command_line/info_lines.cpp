#include "app/command_line/info_lines.h"

#include <KurvGraph/text.h>

#include <algorithm>
#include <ostream>

#include "app/base/message_text.h"

namespace kurv::app {

void print_info_line(std::ostream& out, std::string label, std::string_view value) {
  constexpr std::size_t kLabelWidth = 20;
  label.resize(std::max(kLabelWidth, label.size() + 1), ' ');
  const std::string line = label + on_one_line(to_utf8(value));
  out << std::string_view(line).substr(0, line.find_last_not_of(' ') + 1) << '\n';
}

}  // namespace kurv::app
