// What the program is asked to do.
#pragma once

#include <KurvGraph/automation.h>

#include <QSize>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "app/column_choice.h"

namespace kurv::app {

// One --set: the text converts to the property's type.
struct Setting {
  const Property* property;
  std::string value;
};

struct RenderRequest {
  std::string data_file;
  std::string picture_file;
  QSize size{1000, 700};  // logical pixels
  double scale = 1;       // device pixels per logical pixel
  Selection selection;
  std::optional<std::string> title;  // the data file's name without one
  std::string subtitle;
  bool lines = true;
  bool markers = false;
  bool sort = false;
  std::vector<Setting> settings;
};

// A text for standard output: the help or the version.
struct Notice {
  std::string text;
};

using Command = std::variant<RenderRequest, Notice>;

// Throws UserError with kUsageFailure for what cannot be understood, before anything is read.
Command parse_command_line(int argc, const char* const* argv);

// The help of the program as a whole.
std::string program_help();

}  // namespace kurv::app
