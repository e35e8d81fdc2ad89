// What a graph file changes, because commas separate the entries of its lists.
#pragma once

#include <KurvGraph/values.h>

namespace kurv {

// A name, an expression or a number that has another text when the graph is loaded from its file:
// it is split at a comma in it, or an entry before it in the same list is.
struct CommaChange {
  enum class Kind { kVariable, kCurve, kFunction, kNumber };

  Kind kind = Kind::kCurve;
  // As the file has it: a line break is a blank.
  String text;
  // The text in its place after loading.
  String read_back;

  // False where only an entry before it is split.
  bool is_split() const { return text.find(',') != String::npos; }
};

}  // namespace kurv
