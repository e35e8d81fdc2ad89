/// @file
/// What a graph file changes, because commas separate the entries of its lists.
#pragma once

#include <KurvGraph/values.h>

namespace kurv {

/// A name, an expression or a number that has another text when the graph is loaded from its file:
/// it is split at a comma in it, or an entry before it in the same list is.
struct CommaChange {
  /// What can change.
  enum class Kind {
    kVariable,  ///< the name of x
    kCurve,     ///< the name of a scatter curve
    kFunction,  ///< the expression of a function curve
    kNumber     ///< a number of the data
  };

  Kind kind = Kind::kCurve;  ///< what it is
  /// As the file has it: a line break is a blank.
  String text;
  /// The text in its place after loading.
  String read_back;

  /// Whether it is split itself; false where only an entry before it is split.
  bool is_split() const { return text.find(',') != String::npos; }
};

}  // namespace kurv
