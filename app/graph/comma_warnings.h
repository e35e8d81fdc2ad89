// What a graph file will not keep of a graph, because it splits its lists at commas, in sentences.
#pragma once

#include <KurvGraph/comma_change.h>

#include <functional>
#include <string>
#include <vector>

namespace kurv::app {

// A sentence of the command line for each text that is split, without repetitions. Those that only
// move, because an entry before them is split, have none.
std::vector<std::string> comma_warnings(const std::vector<CommaChange>& changes);

// One line for each change, such as: curve "a,b" becomes "a".
std::vector<std::string> comma_consequences(const std::vector<CommaChange>& changes);

// The sentences for function curves that a graph does not have yet.
void warn_of_commas(const std::vector<std::string>& functions,
                    const std::function<void(const std::string&)>& warn);

}  // namespace kurv::app
