#include "app/graph/graph_intake.h"

#include <KurvGraph/fault.h>
#include <KurvGraph/headless.h>
#include <KurvGraph/limits.h>
#include <KurvGraph/picture.h>

#include <QVariant>
#include <algorithm>
#include <cmath>

#include "app/base/fault_words.h"
#include "app/base/message_text.h"
#include "app/base/user_error.h"
#include "app/csv/csv_text.h"
#include "app/graph/comma_warnings.h"
#include "app/graph/message_recorder.h"

namespace kurv::app {

namespace {

// A graph on a picture of the requested size.
class OffscreenGraph {
 public:
  OffscreenGraph(const GraphChoice& choice, double scale, std::string save_path = {})
      : m_size(choice.size.value_or(kDefaultSize)),
        m_picture(m_size, scale),
        m_host(m_picture),
        m_shell(std::move(save_path)),
        m_control(m_host, m_shell, m_picture) {
    check_pixels(m_size, scale);
  }

  void draw(const GraphChoice& choice, const GraphSource& source) {
    // As in a window, the graph is shown before it gets its data.
    m_control.first_placement();
    m_control.show();
    fill(choice, source, m_control);
    if (!m_shell.empty()) {
      throw UserError(source.path + " cannot be drawn: " + m_shell.sentence() +
                      (source.data ? "; choose other columns with --x and --y."
                                   : "; \"kurv info\" prints what is inside."));
    }
    apply_settings(choice, source, m_control, m_picture);
  }

  // A vector document shows the same as the pixels after their last redraw.
  QByteArray picture(PictureFormat format) const {
    return is_vector(format) ? vector_document(m_control, m_size, format)
                             : encoded(m_picture.image(), format);
  }
  std::vector<CommaChange> comma_changes() const { return m_control.comma_changes(); }
  int unlisted_curves() const { return m_control.unlisted_curves(); }
  void save() { m_control.ChartOptions("saveas"); }

 private:
  // A picture that is too large for the memory would silently have fewer pixels.
  void check_pixels(QSize size, double scale) const {
    const auto pixels = [scale](int side) {
      return std::max(1, static_cast<int>(std::round(side * scale)));
    };
    const QSize wanted(pixels(size.width()), pixels(size.height()));
    if (m_picture.device_size() == wanted) return;
    throw UserError("a picture of " + std::to_string(wanted.width()) + "x" +
                        std::to_string(wanted.height()) +
                        " pixels is too large; choose a smaller --size or --scale.",
                    kUsageFailure);
  }

  QSize m_size;  // logical pixels
  Picture m_picture;
  HeadlessContainer m_host;
  MessageRecorder m_shell;
  Control m_control;
};

// Runs `work`; a fault becomes a UserError that the graph cannot be drawn.
template <class Work>
auto drawing(const GraphChoice& choice, const GraphSource& source, const Work& work) {
  try {
    return work();
  } catch (const Fault& fault) {
    std::string advice = "\"kurv info --check\" lists what is wrong with it";
    if (source.data) advice = "its values differ too little or too much, so choose other columns";
    if (!choice.settings.empty()) advice = "check the values given with --set";
    const bool no_room = fault.kind() == FaultKind::kSubscriptOutOfRange;
    if (no_room && !choice.derivations.empty()) {
      advice = "a graph holds " + std::to_string(kMaxCurves) +
               " curves, so it may have no room for those of --derive";
    }
    throw UserError(source.path + " cannot be drawn: " +
                    fault_reason(Attempt::kDraw, fault.kind()) + "; " + advice + ".");
  }
}

std::optional<std::string> utf8(const std::optional<QString>& text) {
  return text ? std::optional(text->toStdString()) : std::nullopt;
}

void refuse(const std::optional<std::string>& refusal, const std::string& option,
            const std::string& value) {
  if (!refusal) return;
  const std::string reason = on_one_line(*refusal);
  throw UserError(option + ' ' + in_quotes(value) + ": " + reason +
                  (reason.ends_with('.') ? "" : "."));
}

// Checked before the graph is changed, because it counts a derived curve that does not fit.
void check_curve_count(const GraphChoice& choice, const GraphSource& source) {
  if (!source.data) return;
  const int curves = source.data->values.upper_column() - 1;
  if (static_cast<std::size_t>(curves) + choice.derivations.size() <= std::size_t{kMaxCurves})
    return;
  throw UserError("a graph holds " + std::to_string(kMaxCurves) + " curves, and " + source.path +
                  " has " + std::to_string(curves) +
                  " without those of --derive; choose fewer with --y.");
}

[[noreturn]] void refuse_for_graph_file(const std::string& option, const std::string& path) {
  throw UserError(
      path + " is a graph file, which has its columns and rows in it; leave out " + option + ".",
      kUsageFailure);
}

// The texts of the command line convert by the graph's own rules, which differ from QVariant's.
QVariant converted(ValueType type, const Variant& value) {
  if (type == ValueType::kInteger) return int{to_integer(value)};
  if (type == ValueType::kBoolean) return bool(to_boolean(value));
  if (type == ValueType::kSingle) return double{to_single(value)};
  if (type == ValueType::kDouble) return to_double(value);
  return QString::fromStdString(to_string(value));
}

}  // namespace

void refuse_table_options(const TableOptions& table, const std::string& path) {
  const char* option = nullptr;
  if (table.encoding) option = "--encoding";
  if (table.separator) option = "--separator";
  if (table.skip) option = "--skip";
  if (table.comment) option = "--comment";
  if (table.header) option = "--header";
  if (table.decimal) option = "--decimal";
  if (table.thousands) option = "--thousands";
  if (table.missing) option = "--missing";
  if (table.dates) option = "--dates";
  if (table.selection.x) option = "--x";
  if (!table.selection.y.empty()) option = "--y";
  if (table.selection.every != 1) option = "--every";
  if (option != nullptr) refuse_for_graph_file(option, path);
}

GraphSource load(const std::string& path, const GraphChoice& choice) {
  if (is_graph_file(path)) {
    refuse_table_options(choice.table, path);
    if (choice.table.selection.sort) refuse_for_graph_file("--sort", path);
    if (choice.round_limits) refuse_for_graph_file("--limits", path);
    return {path, std::nullopt};
  }
  GraphSource source{name_of_source(path), read_table_data(path, choice.table)};
  check_curve_count(choice, source);
  return source;
}

AxisText date_texts(const TableData& data) {
  if (!data.x_scale) return {};
  return [scale = *data.x_scale](double value, double resolution) {
    return QString::fromStdString(date_text(scale, value, resolution));
  };
}

void set_property_value(Control& graph, const Member& property, const Variant& value) {
  property.set(graph, value);
}

void set_property_value(KurvGraph& graph, const Member& property, const Variant& value) {
  graph.setProperty(std::string(property.name).c_str(), converted(property.type, value));
}

void set_locale(Control& graph, const QLocale& locale) {
  graph.set_decimal_separator(locale.decimalPoint().front().toLatin1());
}

void set_locale(KurvGraph& graph, const QLocale& locale) {
  graph.setLocale(locale);
}

void add_curves(const GraphChoice& choice, Control& graph) {
  for (const auto& [name, expression] : choice.derivations) {
    refuse(graph.derive(name, expression), "--derive", name + '=' + expression);
  }
  for (const std::string& function : choice.functions) {
    refuse(graph.add_function(function), "--function", function);
  }
}

void add_curves(const GraphChoice& choice, KurvGraph& graph) {
  for (const auto& [name, expression] : choice.derivations) {
    refuse(utf8(graph.derive(QString::fromStdString(name), QString::fromStdString(expression))),
           "--derive", name + '=' + expression);
  }
  for (const std::string& function : choice.functions) {
    refuse(utf8(graph.add_function(QString::fromStdString(function))), "--function", function);
  }
}

std::optional<std::string> legend_warning(int unlisted_curves) {
  if (unlisted_curves == 0) return std::nullopt;
  return "the legend has no room for " + std::to_string(unlisted_curves) +
         " of the curves; its last row says so.";
}

QByteArray render_picture(const GraphChoice& choice, const GraphSource& source,
                          PictureFormat format, double scale, const WarningSink& warn) {
  return drawing(choice, source, [&] {
    OffscreenGraph graph(choice, scale);
    graph.draw(choice, source);
    const std::optional<std::string> warning = legend_warning(graph.unlisted_curves());
    if (warn && warning) warn(*warning);
    return graph.picture(format);
  });
}

void check_picture(const GraphChoice& choice, const GraphSource& source) {
  drawing(choice, source, [&] { OffscreenGraph(choice, 1).draw(choice, source); });
}

void save_graph(const GraphChoice& choice, const GraphSource& source, const std::string& path,
                const WarningSink& warn) {
  OffscreenGraph graph(choice, 1, path);
  drawing(choice, source, [&] { graph.draw(choice, source); });
  if (warn) {
    for (const std::string& sentence : comma_warnings(graph.comma_changes())) warn(sentence);
  }
  try {
    graph.save();
  } catch (const Fault& fault) {
    throw unwritable_graph_file(path, fault);
  }
}

}  // namespace kurv::app
