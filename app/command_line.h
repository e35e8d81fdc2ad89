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
  const Member* property;
  std::string value;
};

// What becomes of the data, wherever they are drawn.
struct GraphChoice {
  QSize size{1000, 700};  // logical pixels
  Selection selection;
  std::optional<std::string> title;  // the data file's name without one
  std::string subtitle;
  bool lines = true;
  bool markers = false;
  bool sort = false;
  std::vector<Setting> settings;
};

// A picture without a window.
struct RenderRequest : GraphChoice {
  std::string data_file;
  std::string picture_file;
  double scale = 1;  // device pixels per logical pixel
};

// One window for each file.
struct WindowRequest : GraphChoice {
  std::vector<std::string> data_files;
};

// A text for standard output: the help or the version.
struct Notice {
  std::string text;
};

using Command = std::variant<RenderRequest, WindowRequest, Notice>;

// Throws UserError with kUsageFailure for what cannot be understood, before anything is read.
Command parse_command_line(int argc, const char* const* argv);

// The help of the program as a whole.
std::string program_help();

}  // namespace kurv::app
