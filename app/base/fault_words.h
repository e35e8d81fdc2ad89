// Faults in the words of a user. Their own texts, such as "Subscript out of range", are for hosts.
#pragma once

#include <KurvGraph/fault.h>

#include <string>

namespace kurv::app {

// What was tried.
enum class Attempt {
  kLoad,   // a graph file
  kWrite,  // a file of any kind
  kPrint,
  kDraw,  // or any other change of the graph
};

// What is wrong, as in "the disk is full".
std::string fault_reason(Attempt attempt, FaultKind kind);

// What to do about it, as in "make room on the disk or choose another one".
std::string fault_advice(Attempt attempt, FaultKind kind);

// What follows the name of a file or a graph in a sentence, as in " cannot be written: the disk is
// full; make room on the disk or choose another one."
std::string fault_clause(Attempt attempt, FaultKind kind);

// What a user of the window has tried, as far as the kind of the fault shows it. A fault that
// reading and writing share, such as a refused permission, counts as one of writing: kurv loads
// graph files by itself and reports their faults as Attempt::kLoad, so only writing leads here.
Attempt attempt_at(FaultKind kind, bool names_file);

}  // namespace kurv::app
