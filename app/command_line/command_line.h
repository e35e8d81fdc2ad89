// The requests that a command line makes.
#pragma once

#include <QLocale>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "app/graph/graph_choice.h"
#include "app/graph/picture_file.h"

namespace kurv::app {

// A picture without a window. Both files may be "-", standard input and output.
struct RenderRequest : GraphChoice {
  std::string data_file;
  std::string picture_file;
  PictureFormat format = PictureFormat::kPng;
  double scale = 1;  // device pixels per logical pixel
};

// Writes a graph file, without drawing. Both files may be "-".
struct ConvertRequest : GraphChoice {
  std::string data_file;
  std::string graph_file;
};

// One window for each file.
struct WindowRequest : GraphChoice {
  std::vector<std::string> data_files;
};

// A window whose graph grows with its table, a file or "-".
struct FollowRequest : GraphChoice {
  std::string data_file;
};

// The control on standard input and output.
struct HostRequest {};

// Prints what a table or a graph file holds, or warnings about a graph file.
struct InfoRequest {
  std::string file;
  bool check = false;
  std::optional<QLocale> locale;
  TableOptions table;
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

using Command = std::variant<RenderRequest, ConvertRequest, WindowRequest, FollowRequest,
                             HostRequest, InfoRequest, EvalRequest, Notice>;

// Throws UserError with kUsageFailure for what cannot be understood, before anything is read.
Command parse_command_line(int argc, const char* const* argv);

// Whether an argument is a command such as "render", so that no windows are asked for.
bool names_command(int argc, const char* const* argv);

// The help of the program as a whole.
std::string program_help();

}  // namespace kurv::app
