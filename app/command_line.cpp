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
"kurv render --help" explains the command and its options.

Example:
  kurv render co2.csv -o co2.png
)";

// All properties as a paragraph.
std::string property_list() {
  std::string result = "Properties for --set:\n";
  std::size_t column = kHelpWidth;
  for (const Property& property : properties()) {
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
    m_app.set_version_flag("--version", "kurv " KURV_VERSION, "Print the version and exit");
    m_render->formatter(std::make_shared<HelpFormatter>());
    m_app.require_subcommand(1);
    m_app.footer(kProgramExample);
    m_render->footer(property_list() + kRenderExample);
    add_files();
    add_choice();
    add_looks();
  }

  Command parse(int argc, const char* const* argv) {
    try {
      m_app.parse(words(argc, argv));
    } catch (const CLI::ParseError& stop) {
      std::ostringstream text;
      std::ostringstream ignored;
      if (m_app.exit(stop, text, ignored) == 0) return Notice{text.str()};
      if (!m_render->parsed()) {
        throw UserError("a command is missing, as in \"kurv render data.csv -o picture.png\".",
                        kUsageFailure);
      }
      throw UserError(on_one_line(stop.what()) + "; \"kurv render --help\" explains the options.",
                      kUsageFailure);
    }
    return read_texts();
  }

  std::string help() const { return m_app.help(); }

 private:
  void add_files() {
    m_render->add_option("FILE", m_request.data_file, "The data: a CSV file")
        ->required()
        ->type_name("");
    m_render->add_option("-o,--output", m_request.picture_file, "The picture: a .png or .bmp file")
        ->required()
        ->type_name("PICTURE");
    m_render
        ->add_option("--size", m_texts.size,
                     "Width and height in logical pixels, up to 7680x4320 (1000x700)")
        ->type_name("WxH");
    m_render->add_option("--scale", m_texts.scale, "Pixels per logical pixel, from 0.5 to 8 (1)")
        ->type_name("RATIO");
  }

  void add_choice() {
    m_render->add_option("--x", m_request.selection.x, "The column for x (the first one)")
        ->type_name("NAME");
    m_render
        ->add_option("--y", m_texts.y, "The columns to draw, repeatable (all others with numbers)")
        ->type_name("NAME,...")
        ->allow_extra_args(false);
    m_render->add_option("--every", m_texts.every, "Take each N-th row: 1, N+1, 2N+1 and so on")
        ->type_name("N");
    m_render->add_flag("--sort", m_request.sort, "Sort the points by x");
  }

  void add_looks() {
    m_render->add_option("--title", m_request.title, "The title (the data file's name)")
        ->type_name("TEXT");
    m_render->add_option("--subtitle", m_request.subtitle, "The line below it")->type_name("TEXT");
    add_switch("lines", m_request.lines, "lines between the points (on)");
    add_switch("markers", m_request.markers, "a marker at each point (off)");
    m_render->add_option("--set", m_texts.settings, "Set a property of the graph, repeatable")
        ->type_name("PROPERTY=VALUE")
        ->allow_extra_args(false);
  }

  // Of two contrary switches the later one counts.
  void add_switch(const std::string& name, bool& target, const std::string& what) {
    m_render->add_flag("--" + name + ",!--no-" + name, target, "Draw " + what)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeLast);
  }

  Command read_texts() {
    m_request.size = parse_size(m_texts.size);
    m_request.scale = parse_scale(m_texts.scale);
    check_picture_size(m_request.size, m_request.scale);
    m_request.selection.every = parse_every(m_texts.every);
    for (const std::string& list : m_texts.y) {
      for (const std::string& name : parse_names(list)) m_request.selection.y.push_back(name);
    }
    for (const std::string& text : m_texts.settings) {
      m_request.settings.push_back(parse_setting(text));
    }
    if (!picture_format(m_request.picture_file)) {
      throw UserError("the name of the picture must end in .png or .bmp, and " +
                          in_quotes(m_request.picture_file) + " does not.",
                      kUsageFailure);
    }
    return m_request;
  }

  RenderRequest m_request;
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
