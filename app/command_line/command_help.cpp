#include "app/command_line/command_help.h"

#include <KurvGraph/automation.h>

#include <string_view>

namespace kurv::app {

namespace {

constexpr std::size_t kHelpWidth = 78;

constexpr const char* kChoiceNotes = R"(
Defaults are in parentheses. Columns are named as in the file, and one with a
comma in its name is quoted: --y 'co2,"adjusted, ppm"'. The letter case of a
property does not matter. A graph file has its columns, rows and formatting in
it: --x, --y, --every, --sort and --limits are refused for it, and the other
options override what it says.
)";

// All properties as a paragraph.
std::string property_list() {
  std::string result = "Properties for --set:\n";
  std::size_t column = kHelpWidth;
  for (const Member& property : properties()) {
    if (column + 1 + property.name.size() > kHelpWidth) {
      result += result.back() == '\n' ? " " : "\n ";
      column = 1;
    }
    result += ' ';
    result += property.name;
    column += 1 + property.name.size();
  }
  return result + '\n';
}

}  // namespace

std::string HelpFormatter::make_option_name(const CLI::Option* option, bool positional) const {
  std::string name = CLI::Formatter::make_option_name(option, positional);
  constexpr std::string_view kMeaning = "{false}";
  if (name.ends_with(kMeaning)) name.resize(name.size() - kMeaning.size());
  return name;
}

std::string program_footer() {
  return R"(
Each FILE opens in a window of its own; without one, an empty window
opens. "kurv render --help" explains how to draw without a window, and lists
the properties for --set. A plot in a window has the --size, too, unless the
screen is too small for it. Without --size, a graph file has its own size in a
window, and its toolbar takes a part of that.

--follow shows one table while a program goes on writing it: "-" is standard
input, and a FILE is read on as it grows. A graph holds 32767 points; when more
have come, the newest are kept. Ctrl+C ends it without a question.

Examples:
  kurv co2.csv --y co2,adjusted
  ./measure | kurv --follow - --title "Live"
  kurv render co2.csv -o co2.png
  kurv convert co2.csv -o co2.gdf
  kurv info --check co2.gdf
)";
}

std::string render_footer() {
  return property_list() + kChoiceNotes + R"(
Example:
  kurv render co2.csv -o co2.png --y co2,adjusted --title "Mauna Loa" \
       --subtitle "CO2 in ppm" --set X_grid=True --set NumTicks=6
)";
}

std::string convert_footer() {
  return property_list() + kChoiceNotes + R"(
An existing graph file is kept as its name with "~", or with "~2", "~3" and so
on where there is such a file, until the new one is complete.

Example:
  kurv convert co2.csv -o co2.gdf --title "Mauna Loa" --set X_grid=True
)";
}

std::string host_footer() {
  return R"(
Each line of standard input is a request, a JSON object; each gets one line on
standard output at once. The program ends when its input ends.

Example:
  echo '{"get":"NumTicks"}' | kurv host
)";
}

std::string info_footer() {
  return R"(
The exit status is 1 for a graph file that would not load, and for a table that
cannot be drawn.

Examples:
  kurv info co2.csv
  kurv info --check co2.gdf
)";
}

}  // namespace kurv::app
