// Names in brackets, and the brackets that such a name may have itself, as in "Temp [C]".
//
// A name can be written in two ways. With each "]" of it doubled it is read as it is meant,
// whatever the name: [Temp [C]]] . People leave that out, and then the bracket ends at the one that
// matches it: [Temp [C]] .
#pragma once

#include <cstddef>
#include <functional>
#include <string_view>

#include <KurvGraph/values.h>

namespace kurv::expr {

// Whether a variable of that name has a value. An empty function means that none has.
using IsDefined = std::function<bool(std::string_view)>;

struct BracketedName {
  std::size_t size = 0;           // of the text with its brackets; 0 where no bracket closes it
  bool doubled = true;            // whether "]]" in it is one "]"
  bool depends_on_names = false;  // whether another definition may change how it is read
};

// Reads the name whose opening bracket is at byte `at`. The text up to the first "]" that is not
// doubled is the name where a variable is called so, else the text up to the matching "]" where a
// variable is called that. Where neither is defined, the first is taken only if its own brackets
// match, because [time [s]]*[x] is more likely a product than one name.
BracketedName bracketed_name_at(std::string_view text, std::size_t at, const IsDefined& is_defined);

// The text with each "]]" replaced by "]".
String without_doubled_brackets(std::string_view text);

}  // namespace kurv::expr
