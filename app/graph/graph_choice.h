// What a user chooses about a graph, on the command line or in the import dialog.
#pragma once

#include <KurvGraph/automation.h>

#include <QLocale>
#include <QSize>
#include <optional>
#include <string>
#include <vector>

#include "app/csv/table_options.h"

namespace kurv::app {

inline constexpr QSize kDefaultSize{1000, 700};  // logical pixels

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

// An option that was not given keeps what a graph file says; for a table it has the default that
// its comment names.
struct GraphChoice {
  std::optional<QSize> size;  // logical pixels; kDefaultSize
  TableOptions table;
  std::optional<std::string> title;     // the data file's name
  std::optional<std::string> subtitle;  // none
  // Where neither is given, lines; markers where x goes back and forth and is not sorted. Where one
  // is given, lines are on and markers off otherwise.
  std::optional<bool> lines;
  std::optional<bool> markers;
  std::optional<bool> round_limits;  // yes; no is the control's own rule for limits
  std::vector<Derivation> derivations;
  std::vector<std::string> functions;  // expressions of x
  std::vector<Setting> settings;
  // Its decimal separator is that of graph files; a point without one.
  std::optional<QLocale> locale;
};

}  // namespace kurv::app
