#include "qt/widget/graph_undo_stack.h"

#include <QScopedValueRollback>
#include <QUndoCommand>
#include <utility>

#include "control/control_state.h"

namespace kurv {

namespace {

class StepCommand final : public QUndoCommand {
 public:
  StepCommand(GraphUndoStack& stack, const Step& step)
      : QUndoCommand(QString::fromStdString(step.name)),
        m_stack(stack),
        m_number(static_cast<int>(step.number)) {}

  int id() const override { return m_number; }
  void undo() override { m_stack.run(&Control::undo); }
  void redo() override { m_stack.run(&Control::redo); }

 private:
  GraphUndoStack& m_stack;
  int m_number;
};

}  // namespace

GraphUndoStack::GraphUndoStack(Client& client, QObject* parent)
    : QUndoStack(parent), m_client(client) {
  setUndoLimit(kMaxUndoSteps);
  m_generation = history().generation();
  connect(this, &QUndoStack::indexChanged, this, &GraphUndoStack::on_index);
}

GraphUndoStack::~GraphUndoStack() {
  leave_graph();
}

void GraphUndoStack::leave_graph() {
  m_has_left = true;
  clear();
}

const History& GraphUndoStack::history() const {
  return m_client.control().state().history;
}

unsigned GraphUndoStack::last_done() const {
  const Step* const step = history().last_done();
  return step ? step->number : history().last_forgotten();
}

void GraphUndoStack::run(bool (Control::*work)()) {
  if (m_is_following || m_has_left) return;
  const QScopedValueRollback running(m_is_running, true);
  m_client.handle([work](Control& control) { (control.*work)(); });
}

bool GraphUndoStack::agrees() const {
  const std::span<const Step> steps = history().steps();
  if (static_cast<std::size_t>(count()) != steps.size()) return false;
  for (int i = 0; i < count(); ++i) {
    if (command(i)->id() != static_cast<int>(steps[static_cast<std::size_t>(i)].number)) {
      return false;
    }
  }
  return true;
}

void GraphUndoStack::add_command(const Step& step) {
  push(new StepCommand(*this, step));
  if (step.number == m_saved_step) setClean();
}

void GraphUndoStack::make_anew() {
  clear();
  if (m_saved_step != history().last_forgotten()) resetClean();
  for (const Step& step : history().steps()) add_command(step);
}

bool GraphUndoStack::follow() {
  if (m_is_running || m_has_left) return false;
  const QScopedValueRollback following(m_is_following, true);
  const std::span<const Step> steps = history().steps();
  const auto done = static_cast<int>(history().done());
  bool has_changed = false;
  if (m_generation != history().generation()) {
    m_generation = history().generation();
    m_saved_step = 0;
    has_changed = count() > 0;
    clear();
  }
  const bool is_agreed = agrees();
  has_changed = has_changed || !is_agreed || index() != done;
  // The usual change: a new step after those that are done.
  const int last = index() > 0 ? command(index() - 1)->id() : 0;
  if (!is_agreed && !steps.empty() && static_cast<int>(steps.back().number) > last) {
    add_command(steps.back());
  }
  if (!agrees()) make_anew();
  setIndex(done);
  if (std::exchange(m_is_saved_now, false)) {
    m_saved_step = last_done();
    setClean();
  }
  return has_changed;
}

void GraphUndoStack::note_saved() {
  m_is_saved_now = true;
}

// Somebody has used the stack.
void GraphUndoStack::on_index() {
  if (m_is_following || m_is_running || m_has_left) return;
  if (count() == 0 && !history().steps().empty()) {
    m_client.handle([](Control& control) { control.clear_undo(); });
  }
  follow();
}

}  // namespace kurv
