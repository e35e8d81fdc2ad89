// What a user wants of a graph: the choices of the command line and of the import dialog.
#pragma once

#include <KurvGraph/automation.h>

#include <QLocale>
#include <QSize>
#include <optional>
#include <string>
#include <vector>

#include "app/csv/column_choice.h"

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

}  // namespace kurv::app
