#include "app/command_line/command_line.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <sstream>

#include "app/base/message_text.h"
#include "app/base/user_error.h"
#include "app/command_line/command_help.h"
#include "app/command_line/option_values.h"
#include "app/command_line/standard_output.h"
#include "app/command_line/table_option_values.h"
#include "app/graph/graph_file.h"
#include "app/graph/picture_file.h"

namespace kurv::app {

namespace {

// The options that are parsed when all of them have been read.
struct Texts {
  std::optional<std::string> size;
  std::optional<std::string> scale;
  std::optional<std::string> format;
  std::string every = "1";
  std::optional<std::string> limits;
  std::vector<std::string> y;
  std::vector<std::string> derivations;
  std::vector<std::string> settings;
  std::optional<std::string> locale;
  TableOptionTexts table;
};

// The arguments in reverse order, as CLI11 takes them. It would take "--title=" for an option
// without a value, so the empty value becomes an argument of its own.
std::vector<std::string> reversed_arguments(int argc, const char* const* argv) {
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

std::string unexpected_arguments(const std::vector<std::string>& arguments) {
  std::string sentence = arguments.size() > 1 ? "The following arguments were not expected:"
                                              : "The following argument was not expected:";
  for (const std::string& argument : arguments) sentence += " " + argument;
  return sentence;
}

void check_file_name(const std::string& name) {
  if (!name.empty()) return;
  throw UserError("the name of a file is empty; name one, as in \"kurv data.csv\".", kUsageFailure);
}

class Program {
 public:
  Program() {
    m_app.name("kurv");
    m_app.set_version_flag("--version", "kurv " KURV_VERSION, "Print the version and exit");
    for (CLI::App* command : {&m_app, m_render, m_convert, m_host, m_info}) {
      command->formatter(std::make_shared<HelpFormatter>());
    }
    m_app.footer(program_footer());
    m_render->footer(render_footer());
    m_convert->footer(convert_footer());
    m_host->footer(host_footer());
    m_info->footer(info_footer());
    add_files();
    for (CLI::App* command : {&m_app, m_render, m_convert}) {
      add_choice(*command);
      add_formatting(*command);
    }
    for (CLI::App* command : {&m_app, m_render, m_convert, m_info}) {
      add_columns(*command);
      add_table_options(*command, m_texts.table);
      add_locale(*command);
    }
    m_render
        ->add_option("--scale", m_texts.scale,
                     "Device pixels per logical pixel of a .png or .bmp, 0.5 to 8 (1)")
        ->type_name("RATIO");
    m_render->add_option("--format", m_texts.format, "The format where the output is - (png)")
        ->type_name("png|bmp|svg|pdf");
    m_eval
        ->add_option("EXPRESSION", m_expression,
                     "Such as 'x*(sin(x)+2)'; without one, lines of standard input are evaluated")
        ->type_name("");
    m_eval->add_option("VALUES", m_values, "Values of its variables: name=value ...")
        ->type_name("");
    m_info->add_flag("--check", m_check, "List what is wrong with the file, with line numbers");
  }

  Command parse(int argc, const char* const* argv) {
    try {
      m_app.parse(reversed_arguments(argc, argv));
    } catch (const CLI::ExtrasError&) {
      // The message of the library names them from the last to the first.
      throw usage_error(unexpected_arguments(m_app.remaining(true)));
    } catch (const CLI::ParseError& stop) {
      std::ostringstream text;
      std::ostringstream ignored;
      if (m_app.exit(stop, text, ignored) == 0) return Notice{text.str()};
      throw usage_error(stop.what());
    }
    refuse_files_before_commands();
    refuse_follow_for_commands();
    for (const std::string& name : m_data_files) check_file_name(name);
    if (m_host->parsed()) return HostRequest();
    if (m_eval->parsed()) return EvalRequest{m_expression, m_values};
    if (chosen() != nullptr) check_file_name(m_file);
    read_choice();
    if (m_info->parsed()) return InfoRequest{m_file, m_check, m_choice.locale, m_choice.table};
    if (m_convert->parsed()) return convert_request();
    if (m_render->parsed()) return render_request();
    if (m_follow) return follow_request();
    return window_request();
  }

  std::string help() const { return m_app.help(); }

  bool has_command_among(int argc, const char* const* argv) const {
    for (const CLI::App* command : {m_render, m_convert, m_host, m_info, m_eval}) {
      if (std::find(argv + std::min(argc, 1), argv + argc, command->get_name()) != argv + argc)
        return true;
    }
    return false;
  }

 private:
  // The command among the arguments, or nullptr for windows.
  const CLI::App* chosen() const {
    for (const CLI::App* command : {m_render, m_convert, m_host, m_info, m_eval}) {
      if (command->parsed()) return command;
    }
    return nullptr;
  }

  std::string command_name() const {
    return chosen() ? "kurv " + chosen()->get_name() : std::string("kurv");
  }

  UserError usage_error(const std::string& sentence) const {
    return UserError(
        on_one_line(sentence) + "; \"" + command_name() + " --help\" explains the options.",
        kUsageFailure);
  }

  void add_files() {
    m_app.add_option("FILE", m_data_files, "The data: tables or graph files; - is standard input")
        ->type_name("");
    for (CLI::App* command : {m_render, m_convert}) {
      command->add_option("FILE", m_file, "The data: a table or a graph file; - is standard input")
          ->required()
          ->type_name("");
    }
    m_app.add_flag("--follow", m_follow,
                   "Draw the rows of one table as they come, from standard input or a file that "
                   "grows");
    // Known to the commands that have no window, so that a sentence says why it is refused.
    for (CLI::App* command : {m_render, m_convert, m_info, m_eval, m_host}) {
      command->add_flag("--follow", m_follow)->group("");
    }
    m_info->add_option("FILE", m_file, "The table or graph file")->required()->type_name("");
    m_render
        ->add_option("-o,--output", m_output,
                     "The picture: a " + picture_extensions() + " file, or -")
        ->required()
        ->type_name("PICTURE");
    m_convert->add_option("-o,--output", m_output, "The graph file: a .gdf file, or -")
        ->required()
        ->type_name("GRAPH");
  }

  void add_choice(CLI::App& command) {
    command
        .add_option("--size", m_texts.size,
                    "Size of the plot in logical pixels, up to 7680x4320 (1000x700)")
        ->type_name("WxH");
    command.add_option("--every", m_texts.every, "Take each N-th row: 1, N+1, 2N+1 and so on")
        ->type_name("N");
    command.add_flag("--sort", m_choice.table.selection.sort, "Sort the points by x");
    command
        .add_option("--limits", m_texts.limits,
                    "The limits of a table: round, with ticks at round numbers, or rule, as the "
                    "control sets them (round)")
        ->type_name("round|rule");
  }

  void add_columns(CLI::App& command) {
    command
        .add_option("--x", m_choice.table.selection.x,
                    "The column for x: a name, a number, or row (the first one)")
        ->type_name("COLUMN");
    command
        .add_option("--y", m_texts.y,
                    "The columns to draw: names, numbers or 3-7; repeatable (all others with "
                    "numbers)")
        ->type_name("COLUMN,...")
        ->allow_extra_args(false);
  }

  void add_formatting(CLI::App& command) {
    command.add_option("--title", m_choice.title, "The title (the data file's name)")
        ->type_name("TEXT");
    command.add_option("--subtitle", m_choice.subtitle, "The line beside the title")
        ->type_name("TEXT");
    command
        .add_option("--function", m_choice.functions,
                    "Draw a function of x, such as 'x*(sin(x)+2)'; repeatable")
        ->type_name("EXPRESSION")
        ->allow_extra_args(false);
    command
        .add_option("--derive", m_texts.derivations,
                    "Add a curve computed from others, such as 'ratio=up/(1+down)'; repeatable")
        ->type_name("NAME=EXPRESSION")
        ->allow_extra_args(false);
    add_switch(command, "lines", m_choice.lines, "lines between the points (on)");
    add_switch(command, "markers", m_choice.markers, "a marker at each point (off)");
    command.add_option("--set", m_texts.settings, "Set a property of the graph, repeatable")
        ->type_name("PROPERTY=VALUE")
        ->allow_extra_args(false);
  }

  void add_locale(CLI::App& command) {
    command
        .add_option("--locale", m_texts.locale,
                    "The locale whose decimal separator graph files have (a point)")
        ->type_name("NAME");
  }

  // The last one of --NAME and --no-NAME counts.
  static void add_switch(CLI::App& command, const std::string& name, std::optional<bool>& target,
                         const std::string& what) {
    command
        .add_flag_function(
            "--" + name + ",!--no-" + name, [&target](std::int64_t count) { target = count > 0; },
            "Draw " + what)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeLast);
  }

  void refuse_files_before_commands() const {
    if (chosen() == nullptr || m_data_files.empty()) return;
    throw UserError("the file " + in_quotes(m_data_files.front()) + " comes before " +
                        in_quotes(chosen()->get_name()) + "; put it after it.",
                    kUsageFailure);
  }

  void refuse_follow_for_commands() const {
    if (!m_follow || chosen() == nullptr) return;
    throw UserError(
        "--follow shows a table in a window while it grows; leave it out, or leave out " +
            in_quotes(chosen()->get_name()) + ".",
        kUsageFailure);
  }

  void read_choice() {
    if (m_texts.size) m_choice.size = parse_size(*m_texts.size);
    if (m_texts.locale) m_choice.locale = parse_locale(*m_texts.locale);
    parse_table_options(m_texts.table, m_choice.table);
    m_choice.table.selection.every = parse_every(m_texts.every);
    if (m_texts.limits) m_choice.round_limits = parse_limits(*m_texts.limits);
    for (const std::string& list : m_texts.y) {
      for (const std::string& name : parse_names(list, "--y"))
        m_choice.table.selection.y.push_back(name);
    }
    // A line end would break the line of the graph file that holds the function.
    for (std::string& function : m_choice.functions) function = on_one_line(function);
    for (const std::string& text : m_texts.derivations) {
      m_choice.derivations.push_back(parse_derivation(text));
    }
    for (const std::string& text : m_texts.settings) {
      m_choice.settings.push_back(parse_setting(text));
    }
  }

  // Of a picture on standard output what --format says, otherwise by the name's extension.
  std::optional<PictureFormat> output_format() const {
    if (!m_texts.format) {
      return is_standard_output(m_output) ? PictureFormat::kPng : picture_format(m_output);
    }
    if (!is_standard_output(m_output)) {
      throw UserError("--format is for standard output; the name " + in_quotes(m_output) +
                          " says the format itself.",
                      kUsageFailure);
    }
    const std::optional<PictureFormat> format = picture_format("picture." + *m_texts.format);
    if (format) return format;
    throw UserError("--format takes png, bmp, svg or pdf, not " + in_quotes(*m_texts.format) + ".",
                    kUsageFailure);
  }

  RenderRequest render_request() const {
    const std::optional<PictureFormat> format = output_format();
    if (!format) {
      throw UserError("the name of the picture must end in " + picture_extensions() + ", and " +
                          in_quotes(m_output) + " does not.",
                      kUsageFailure);
    }
    if (m_texts.scale && is_vector(*format)) {
      throw UserError("a picture of lines and text such as " + in_quotes(m_output) +
                          " has no pixels to scale; leave out --scale.",
                      kUsageFailure);
    }
    const double scale = m_texts.scale ? parse_scale(*m_texts.scale) : 1;
    check_picture_size(m_choice.size.value_or(kDefaultSize), scale);
    return {m_choice, m_file, m_output, *format, scale};
  }

  ConvertRequest convert_request() const {
    if (!is_named_as_graph_file(m_output) && !is_standard_output(m_output)) {
      throw UserError(
          "the name of the graph file must end in .gdf, and " + in_quotes(m_output) + " does not.",
          kUsageFailure);
    }
    return {m_choice, m_file, m_output};
  }

  FollowRequest follow_request() const {
    if (m_data_files.size() == 1) return {m_choice, m_data_files.front()};
    throw UserError(m_data_files.empty()
                        ? "--follow needs a file, as in \"kurv --follow -\" for standard input."
                        : "--follow takes one file, and there are " +
                              std::to_string(m_data_files.size()) + "; leave out the others.",
                    kUsageFailure);
  }

  WindowRequest window_request() const {
    if (m_data_files.empty()) {
      throw UserError("a file is missing, as in \"kurv data.csv\".", kUsageFailure);
    }
    return {m_choice, m_data_files};
  }

  GraphChoice m_choice;
  std::vector<std::string> m_data_files;
  std::string m_file;
  std::string m_output;
  bool m_check = false;
  bool m_follow = false;
  std::optional<std::string> m_expression;
  std::vector<std::string> m_values;
  Texts m_texts;
  CLI::App m_app{"Draws tables of numbers as graphs."};
  CLI::App* m_render = m_app.add_subcommand("render", "Draw a file as a picture, without a window");
  CLI::App* m_convert =
      m_app.add_subcommand("convert", "Write a graph file from a table or another graph file");
  CLI::App* m_info = m_app.add_subcommand("info", "Print what is inside a table or a graph file");
  CLI::App* m_eval = m_app.add_subcommand("eval", "Print the value of an expression");
  CLI::App* m_host = m_app.add_subcommand("host", "Serve the graph on standard input and output");
};

}  // namespace

Command parse_command_line(int argc, const char* const* argv) {
  return Program().parse(argc, argv);
}

bool names_command(int argc, const char* const* argv) {
  return Program().has_command_among(argc, argv);
}

std::string program_help() {
  return Program().help();
}

}  // namespace kurv::app
