#include "control/history.h"

#include <KurvGraph/container.h>
#include <KurvGraph/control.h>

#include <algorithm>
#include <cstddef>
#include <utility>

#include "control/control_state.h"

namespace kurv {

void History::turn(bool on) {
  if (!on) clear();
  m_is_on = on;
}

// -- Recording ------------------------------------------------------------------------------------

void History::begin() {
  m_is_recording = true;
  m_is_outdated = false;
}

void History::end(const ControlState& state, const StepLabel& label, GraphChanges before) {
  m_is_recording = false;
  if (m_is_outdated) return;
  before.keep_differences(state);
  if (!before.is_empty()) add(state, label, std::move(before));
}

void History::add(const ControlState& state, const StepLabel& label, GraphChanges changes) {
  m_has_changed = true;
  m_steps.erase(m_steps.begin() + static_cast<std::ptrdiff_t>(m_done), m_steps.end());
  if (label.is_part_of_last && m_done == 0) return;
  const bool continues = !label.key.empty() && m_can_merge && last_done()->key == label.key;
  if (m_done > 0 && (continues || label.is_part_of_last)) {
    GraphChanges& all = m_steps.back().changes;
    changes.merge_into(all);
    all.keep_differences(state);
    m_can_merge = !all.is_empty();
    // What was typed has been deleted again.
    if (!m_can_merge) m_steps.pop_back();
  } else {
    m_steps.push_back({++m_last_number, String(label.name), String(label.key), std::move(changes)});
    m_can_merge = true;
    if (m_steps.size() > std::size_t{kMaxUndoSteps}) forget_first(1);
  }
  m_done = m_steps.size();
}

void History::forget_first(std::size_t count) {
  if (count == 0) return;
  m_last_forgotten = m_steps[count - 1].number;
  m_steps.erase(m_steps.begin(), m_steps.begin() + static_cast<std::ptrdiff_t>(count));
}

// -- Going back and forth -------------------------------------------------------------------------

Step* History::take_back() {
  if (m_is_recording || m_done == 0) return nullptr;
  end_merging();
  m_has_changed = true;
  return &m_steps[--m_done];
}

Step* History::take_again() {
  if (m_is_recording || m_done == m_steps.size()) return nullptr;
  end_merging();
  m_has_changed = true;
  return &m_steps[m_done++];
}

// -- Forgetting -----------------------------------------------------------------------------------

void History::clear() {
  m_is_outdated = true;
  m_has_changed = m_has_changed || !m_steps.empty();
  ++m_generation;
  m_last_forgotten = 0;
  m_steps.clear();
  m_done = 0;
  m_saved.reset();
  end_merging();
}

void History::forget_steps() {
  m_is_outdated = true;
  m_has_changed = m_has_changed || !m_steps.empty();
  m_steps.erase(m_steps.begin() + static_cast<std::ptrdiff_t>(m_done), m_steps.end());
  forget_first(std::exchange(m_done, 0));
  end_merging();
}

void History::forget_data() {
  const auto has_data = [](const Step& step) { return step.changes.has_data(); };
  const auto at = [this](std::size_t index) {
    return m_steps.begin() + static_cast<std::ptrdiff_t>(index);
  };
  const std::size_t count = m_steps.size();
  m_is_outdated = true;
  m_saved.reset();
  m_steps.erase(std::find_if(at(m_done), m_steps.end(), has_data), m_steps.end());
  std::size_t forgotten = m_done;
  while (forgotten > 0 && !has_data(m_steps[forgotten - 1])) --forgotten;
  forget_first(forgotten);
  m_done -= forgotten;
  for (Step& step : m_steps) step.has_old_limits = true;
  m_has_changed = m_has_changed || m_steps.size() != count;
  if (m_done == 0) end_merging();
}

// -- The saved graph ------------------------------------------------------------------------------

void History::note_saved(const ControlState& state) {
  if (!m_is_on) return;
  end_merging();
  m_saved.emplace(
      SavedGraph{GraphChanges(state), state.container.Height(), state.container.Width()});
}

bool History::is_saved(const ControlState& state) const {
  return m_saved && m_saved->height == state.container.Height() &&
         m_saved->width == state.container.Width() && m_saved->values.agrees_with(state);
}

// -- Listeners ------------------------------------------------------------------------------------

void History::add_listener(std::function<void()> listener) {
  m_listeners.push_back(std::move(listener));
}

void History::notify() {
  if (!std::exchange(m_has_changed, false)) return;
  // A listener may add others, which reallocates the list, so a copy is called.
  for (std::size_t i = 0; i < m_listeners.size(); ++i) {
    const std::function<void()> listener = m_listeners[i];
    listener();
  }
}

}  // namespace kurv
