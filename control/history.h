// The steps that can be undone and done again.
#pragma once

#include <KurvGraph/values.h>

#include <cstddef>
#include <functional>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "control/graph_changes.h"

namespace kurv {

struct StepLabel {
  std::string_view name;  // such as "Rename Curve"
  // Steps with the same key that follow each other are one, such as the letters that are typed into
  // a field. Empty for a step of its own.
  std::string_view key = {};
  // What follows from the last step by itself, and is undone with it. Not recorded where there is
  // no step.
  bool is_part_of_last = false;
};

struct Step {
  unsigned number;  // of no other step of the graph
  String name;
  String key;
  // What undoing it, or doing it again, exchanges with the graph.
  GraphChanges changes;
  // Points have come since, so limits that follow the data have to be computed anew.
  bool has_old_limits = false;
};

class History {
 public:
  bool is_on() const { return m_is_on; }
  // Turned off, it forgets all steps.
  void turn(bool on);

  // The steps, oldest first. The first done() of them are done, the others are undone.
  std::span<const Step> steps() const { return m_steps; }
  std::size_t done() const { return m_done; }
  const Step* last_done() const { return m_done > 0 ? &m_steps[m_done - 1] : nullptr; }
  const Step* first_undone() const { return m_done < m_steps.size() ? &m_steps[m_done] : nullptr; }

  // Changes whenever the graph gets other data.
  unsigned generation() const { return m_generation; }
  // The number of the step before the first one, which has been forgotten; 0 where there was none.
  unsigned last_forgotten() const { return m_last_forgotten; }

  // -- Recording ------------------------------------------------------------------------------
  // One step is recorded at a time, and none where the history is off.
  bool can_begin() const { return m_is_on && !m_is_recording; }
  void begin();
  // Ends what begin() has begun. Adds a step of what has changed, if anything has, and forgets all
  // undone steps. Adds nothing where the history was cleared meanwhile.
  void end(const ControlState& state, const StepLabel& label, GraphChanges before);
  // The next step is one of its own, whatever its key.
  void end_merging() { m_can_merge = false; }

  // -- Going back and forth -------------------------------------------------------------------
  // The step that has to be exchanged with the graph; null where there is none, and while a step is
  // recorded.
  Step* take_back();
  Step* take_again();

  // -- Forgetting -----------------------------------------------------------------------------
  // The graph has other data.
  void clear();
  // All steps of the data that there are.
  void forget_steps();
  // Points have come. Forgets the steps that have changed data, and those that cannot be reached
  // without them.
  void forget_data();

  // -- The saved graph ------------------------------------------------------------------------
  // The graph has just been saved or loaded.
  void note_saved(const ControlState& state);
  bool is_saved(const ControlState& state) const;

  // -- Listeners ------------------------------------------------------------------------------
  void add_listener(std::function<void()> listener);
  // Calls the listeners where the steps have changed since the last call.
  void notify();

 private:
  struct SavedGraph {
    GraphChanges values;
    Single height;
    Single width;
  };

  void forget_first(std::size_t count);
  void add(const ControlState& state, const StepLabel& label, GraphChanges changes);

  bool m_is_on = false;
  bool m_is_recording = false;
  bool m_is_outdated = false;  // what is recorded began with other data
  bool m_can_merge = false;
  bool m_has_changed = false;  // since the listeners were called
  unsigned m_generation = 0;
  unsigned m_last_number = 0;
  unsigned m_last_forgotten = 0;
  std::vector<Step> m_steps;
  std::size_t m_done = 0;
  std::optional<SavedGraph> m_saved;
  std::vector<std::function<void()>> m_listeners;
};

}  // namespace kurv
