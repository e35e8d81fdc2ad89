// What the program is asked to do.
#pragma once

#include <KurvGraph/automation.h>

#include <QLocale>
#include <QSize>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "app/column_choice.h"

namespace kurv::app {

inline constexpr QSize kUsualSize{1000, 700};  // logical pixels

// One --set: the text converts to the property's type.
struct Setting {
  const Member* property;
  std::string value;
};

// One --derive: a curve computed from the others.
struct Derivation {
  std::string name;
  std::string expression;
};

// What becomes of the data, wherever they are drawn. Where nothing was said, a graph file decides
// for itself, and a table is drawn as the comments say.
struct GraphChoice {
  std::optional<QSize> size;  // logical pixels; kUsualSize
  Selection selection;
  std::optional<std::string> title;     // the data file's name
  std::optional<std::string> subtitle;  // none
  std::optional<bool> lines;            // yes
  std::optional<bool> markers;          // no
  bool sort = false;
  std::vector<Derivation> derivations;
  std::vector<std::string> functions;  // expressions of x
  std::vector<Setting> settings;
  // Decides about the decimal separator in graph files; a point without one.
  std::optional<QLocale> locale;
};

// A picture without a window.
struct RenderRequest : GraphChoice {
  std::string data_file;
  std::string picture_file;
  double scale = 1;  // device pixels per logical pixel
};

// A graph file, drawn nowhere.
struct ConvertRequest : GraphChoice {
  std::string data_file;
  std::string graph_file;
};

// One window for each file.
struct WindowRequest : GraphChoice {
  std::vector<std::string> data_files;
};

// The control on standard input and output.
struct HostRequest {};

// What is inside a graph file, or what is odd about it.
struct InfoRequest {
  std::string graph_file;
  bool check = false;
  std::optional<QLocale> locale;
};

// The value of an expression, or of one in each line of standard input.
struct EvalRequest {
  std::optional<std::string> expression;
  std::vector<std::string> values;  // name=value
};

// A text for standard output: the help or the version.
struct Notice {
  std::string text;
};

using Command = std::variant<RenderRequest, ConvertRequest, WindowRequest, HostRequest, InfoRequest,
                             EvalRequest, Notice>;

// Throws UserError with kUsageFailure for what cannot be understood, before anything is read.
Command parse_command_line(int argc, const char* const* argv);

// The help of the program as a whole.
std::string program_help();

}  // namespace kurv::app
