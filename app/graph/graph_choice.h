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
  std::optional<bool> lines;            // yes
  std::optional<bool> markers;          // no
  bool sort = false;
  std::vector<Derivation> derivations;
  std::vector<std::string> functions;  // expressions of x
  std::vector<Setting> settings;
  // Its decimal separator is that of graph files; a point without one.
  std::optional<QLocale> locale;
};

}  // namespace kurv::app
