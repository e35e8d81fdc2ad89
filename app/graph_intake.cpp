#include "app/graph_intake.h"

#include <KurvGraph/fault.h>
#include <KurvGraph/picture.h>

#include <QVariant>

#include "app/csv_separator.h"
#include "app/csv_table.h"
#include "app/text_file.h"
#include "app/user_error.h"
#include "app/windowless.h"

namespace kurv::app {

namespace {

QImage draw(const GraphChoice& choice, const std::string& path, const DataSet& data, double scale) {
  Picture picture(choice.size, scale);
  RunningHost host(picture.ScaleWidth(), picture.ScaleHeight());
  MessageKeeper shell;
  Control control(host, shell, picture);
  // As in a window, the graph is there first and gets its data then.
  control.first_placement();
  control.show();
  hand_over(choice, path, data, control);
  if (!shell.empty()) throw UserError(path + " cannot be drawn: " + shell.sentence());
  finish_looks(choice, control, picture);
  return picture.image();
}

// The texts of the command line convert by the graph's own rules, which are not the toolkit's.
QVariant converted(ValueType type, const Variant& value) {
  if (type == ValueType::kInteger) return int{to_integer(value)};
  if (type == ValueType::kBoolean) return bool(to_boolean(value));
  if (type == ValueType::kSingle) return double{to_single(value)};
  if (type == ValueType::kDouble) return to_double(value);
  return QString::fromStdString(to_string(value));
}

}  // namespace

DataSet load(const std::string& path, const Selection& selection) {
  const std::string bytes = read_text_file(path);
  const CsvTable table = parse_csv(bytes, find_separator(bytes), path);
  return make_data_set(table, selection, path);
}

void let(Control& graph, const Member& property, const Variant& value) {
  property.let(graph, value);
}

void let(KurvGraph& graph, const Member& property, const Variant& value) {
  graph.setProperty(std::string(property.name).c_str(), converted(property.type, value));
}

QImage picture_of(const GraphChoice& choice, const std::string& path, const DataSet& data,
                  double scale) {
  try {
    return draw(choice, path, data, scale);
  } catch (const Fault& fault) {
    throw UserError(path + " cannot be drawn: " + fault.what() +
                    (choice.settings.empty() ? "." : "; check the values given with --set."));
  }
}

}  // namespace kurv::app
