// Changes that can be undone: how they are recorded, undone and done again.
//
// Every function that changes the graph for the user records what it does, after its last question
// to the user:
//
//   const StepRecorder step(state, {"Rename Curve"});
//   state.document.yVarName(curve + 1) = name;
//   build_the_graph(state);
#pragma once

#include <optional>

#include "control/graph_changes.h"
#include "control/history.h"

namespace kurv {

struct ControlState;

// What changes in the graph while it lives is one step, also where it ends by a fault. Inside
// another one it does nothing, so that the outermost names the step; and nothing where the history
// is off.
class StepRecorder {
 public:
  // The label's texts have to live as long.
  StepRecorder(ControlState& state, const StepLabel& label);
  ~StepRecorder();
  StepRecorder(const StepRecorder&) = delete;
  StepRecorder& operator=(const StepRecorder&) = delete;

 private:
  ControlState& m_state;
  StepLabel m_label;
  std::optional<GraphChanges> m_before;
};

// Calls the listeners at its end, also where that is a fault.
class UndoNotification {
 public:
  explicit UndoNotification(History& history) : m_history(history) {}
  ~UndoNotification() { m_history.notify(); }
  UndoNotification(const UndoNotification&) = delete;
  UndoNotification& operator=(const UndoNotification&) = delete;

 private:
  History& m_history;
};

// While it lives the graph gets other data: no step before its end can be undone.
class NewHistory {
 public:
  explicit NewHistory(History& history) : m_history(history) { m_history.clear(); }
  ~NewHistory() {
    m_history.clear();
    m_history.notify();
  }
  NewHistory(const NewHistory&) = delete;
  NewHistory& operator=(const NewHistory&) = delete;

 private:
  History& m_history;
};

// See Control, which has members of these names.
void set_undo_enabled(ControlState& state, bool on);
bool undo(ControlState& state);
bool redo(ControlState& state);

}  // namespace kurv
