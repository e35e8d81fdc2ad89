#include "app/command_line.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>
#include <sstream>
#include <string_view>

#include "app/option_values.h"
#include "app/picture_file.h"
#include "app/text.h"
#include "app/user_error.h"

namespace kurv::app {

namespace {

constexpr std::size_t kHelpWidth = 78;

constexpr const char* kRenderExample = R"(
What holds without an option stands in parentheses. Columns are named as in
the file, and one with a comma in its name is quoted: --y 'co2,"adjusted, ppm"'.
The letter case of a property does not matter.

Example:
  kurv render co2.csv -o co2.png --y co2,adjusted --title "Mauna Loa" \
       --subtitle "CO2 in ppm" --set X_grid=True --set NumTicks=6
)";

constexpr const char* kProgramExample = R"(
Each FILE opens in a window of its own. "kurv render --help" explains how to
draw without one, and lists the properties for --set.

Examples:
  kurv co2.csv --y co2,adjusted
  kurv render co2.csv -o co2.png
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

// Shows both words of a switch and not what they mean to the parser.
class HelpFormatter : public CLI::Formatter {
 public:
  std::string make_option_name(const CLI::Option* option, bool positional) const override {
    std::string name = CLI::Formatter::make_option_name(option, positional);
    constexpr std::string_view kMeaning = "{false}";
    if (name.ends_with(kMeaning)) name.resize(name.size() - kMeaning.size());
    return name;
  }
};

// Texts as the options give them, until all of them are read.
struct Texts {
  std::string size = "1000x700";
  std::string scale = "1";
  std::string every = "1";
  std::vector<std::string> y;
  std::vector<std::string> settings;
};

// The arguments, last one first, as the parser wants them. It takes "--title=" for an option
// without its value, so that the empty value becomes an argument of its own.
std::vector<std::string> words(int argc, const char* const* argv) {
  std::vector<std::string> result;
  for (int i = 1; i < argc; ++i) {
    std::string word = argv[i];
    const bool empty_value = word.starts_with("--") && word.find('=') + 1 == word.size();
    if (empty_value) word.pop_back();
    result.push_back(word);
    if (empty_value) result.emplace_back();
  }
  std::reverse(result.begin(), result.end());
  return result;
}

class Program {
 public:
  Program() {
    m_app.name("kurv");
    m_app.formatter(std::make_shared<HelpFormatter>());
    m_app.set_version_flag("--version", "kurv " KURV_VERSION, "Print the version and exit");
    m_render->formatter(std::make_shared<HelpFormatter>());
    m_app.footer(kProgramExample);
    m_render->footer(property_list() + kRenderExample);
    m_app.add_option("FILE", m_data_files, "The data: CSV files")->type_name("");
    add_render_files();
    for (CLI::App* command : {&m_app, m_render}) {
      add_choice(*command);
      add_looks(*command);
    }
  }

  Command parse(int argc, const char* const* argv) {
    try {
      m_app.parse(words(argc, argv));
    } catch (const CLI::ParseError& stop) {
      std::ostringstream text;
      std::ostringstream ignored;
      if (m_app.exit(stop, text, ignored) == 0) return Notice{text.str()};
      const std::string command = m_render->parsed() ? "kurv render" : "kurv";
      throw UserError(
          on_one_line(stop.what()) + "; \"" + command + " --help\" explains the options.",
          kUsageFailure);
    }
    read_choice();
    if (m_render->parsed()) return render_request();
    return window_request();
  }

  std::string help() const { return m_app.help(); }

 private:
  void add_render_files() {
    m_render->add_option("FILE", m_render_file, "The data: a CSV file")->required()->type_name("");
    m_render->add_option("-o,--output", m_picture_file, "The picture: a .png or .bmp file")
        ->required()
        ->type_name("PICTURE");
    m_render->add_option("--scale", m_texts.scale, "Pixels per logical pixel, from 0.5 to 8 (1)")
        ->type_name("RATIO");
  }

  void add_choice(CLI::App& command) {
    command
        .add_option("--size", m_texts.size,
                    "Width and height in logical pixels, up to 7680x4320 (1000x700)")
        ->type_name("WxH");
    command.add_option("--x", m_choice.selection.x, "The column for x (the first one)")
        ->type_name("NAME");
    command
        .add_option("--y", m_texts.y, "The columns to draw, repeatable (all others with numbers)")
        ->type_name("NAME,...")
        ->allow_extra_args(false);
    command.add_option("--every", m_texts.every, "Take each N-th row: 1, N+1, 2N+1 and so on")
        ->type_name("N");
    command.add_flag("--sort", m_choice.sort, "Sort the points by x");
  }

  void add_looks(CLI::App& command) {
    command.add_option("--title", m_choice.title, "The title (the data file's name)")
        ->type_name("TEXT");
    command.add_option("--subtitle", m_choice.subtitle, "The line below it")->type_name("TEXT");
    add_switch(command, "lines", m_choice.lines, "lines between the points (on)");
    add_switch(command, "markers", m_choice.markers, "a marker at each point (off)");
    command.add_option("--set", m_texts.settings, "Set a property of the graph, repeatable")
        ->type_name("PROPERTY=VALUE")
        ->allow_extra_args(false);
  }

  // Of two contrary switches the later one counts.
  static void add_switch(CLI::App& command, const std::string& name, bool& target,
                         const std::string& what) {
    command.add_flag("--" + name + ",!--no-" + name, target, "Draw " + what)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeLast);
  }

  void read_choice() {
    m_choice.size = parse_size(m_texts.size);
    m_choice.selection.every = parse_every(m_texts.every);
    for (const std::string& list : m_texts.y) {
      for (const std::string& name : parse_names(list)) m_choice.selection.y.push_back(name);
    }
    for (const std::string& text : m_texts.settings) {
      m_choice.settings.push_back(parse_setting(text));
    }
  }

  RenderRequest render_request() const {
    if (!m_data_files.empty()) {
      throw UserError("the file " + in_quotes(m_data_files.front()) +
                          " stands before \"render\"; it belongs behind it.",
                      kUsageFailure);
    }
    const double scale = parse_scale(m_texts.scale);
    check_picture_size(m_choice.size, scale);
    if (!picture_format(m_picture_file)) {
      throw UserError("the name of the picture must end in .png or .bmp, and " +
                          in_quotes(m_picture_file) + " does not.",
                      kUsageFailure);
    }
    return {m_choice, m_render_file, m_picture_file, scale};
  }

  WindowRequest window_request() const {
    if (m_data_files.empty()) {
      throw UserError("a file is missing, as in \"kurv data.csv\".", kUsageFailure);
    }
    return {m_choice, m_data_files};
  }

  GraphChoice m_choice;
  std::vector<std::string> m_data_files;
  std::string m_render_file;
  std::string m_picture_file;
  Texts m_texts;
  CLI::App m_app{"Draws tables of numbers as graphs."};
  CLI::App* m_render =
      m_app.add_subcommand("render", "Draw a CSV file into a picture, without a window");
};

}  // namespace

Command parse_command_line(int argc, const char* const* argv) {
  return Program().parse(argc, argv);
}

std::string program_help() {
  return Program().help();
}

}  // namespace kurv::app
