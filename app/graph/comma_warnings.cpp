#include "app/graph/comma_warnings.h"

#include <algorithm>

#include "app/base/message_text.h"

namespace kurv::app {

namespace {

using Kind = CommaChange::Kind;

std::string sentence(const CommaChange& change) {
  const std::string splits = "a graph file splits ";
  const std::string moved = " at its comma, so it comes back as " + in_quotes(change.read_back) +
                            ", and the names after it change.";
  switch (change.kind) {
    case Kind::kVariable:
      return splits + "the name " + in_quotes(change.text) + " of x" + moved;
    case Kind::kCurve:
      return splits + "the name " + in_quotes(change.text) + " of a curve" + moved;
    case Kind::kFunction:
      return splits + "the function " + in_quotes(change.text) +
             " at its comma, so it does not come back as it is.";
    case Kind::kNumber:
      break;
  }
  return splits + "numbers such as " + change.text +
         " at the decimal comma, so the data do not come back as they are.";
}

std::string consequence(const CommaChange& change) {
  const std::string becomes = in_quotes(change.text) + " becomes " +
                              (change.read_back.empty() ? "empty" : in_quotes(change.read_back));
  switch (change.kind) {
    case Kind::kVariable:
      return "x " + becomes;
    case Kind::kCurve:
      return "curve " + becomes;
    case Kind::kFunction:
      return "function " + becomes;
    case Kind::kNumber:
      break;
  }
  return "numbers with a decimal comma are split: " + change.text + " becomes " + change.read_back;
}

}  // namespace

std::vector<std::string> comma_warnings(const std::vector<CommaChange>& changes) {
  std::vector<std::string> sentences;
  for (const CommaChange& change : changes) {
    if (!change.is_split()) continue;
    const std::string text = sentence(change);
    if (std::find(sentences.begin(), sentences.end(), text) == sentences.end()) {
      sentences.push_back(text);
    }
  }
  return sentences;
}

std::vector<std::string> comma_consequences(const std::vector<CommaChange>& changes) {
  std::vector<std::string> lines;
  for (const CommaChange& change : changes) lines.push_back(consequence(change));
  return lines;
}

void warn_of_commas(const std::vector<std::string>& functions,
                    const std::function<void(const std::string&)>& warn) {
  for (const std::string& function : functions) {
    const CommaChange change{Kind::kFunction, function, {}};
    if (change.is_split()) warn(sentence(change));
  }
}

}  // namespace kurv::app
