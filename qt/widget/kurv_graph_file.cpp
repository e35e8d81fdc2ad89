// The file that the graph belongs to.
#include <KurvGraph/KurvGraph.h>

#include "control/control_state.h"
#include "io/graph_file_writer.h"
#include "qt/widget/kurv_graph_state.h"

namespace kurv {

String KurvGraph::FileName() const {
  return m_state->graph.FileName();
}

bool KurvGraph::GraphSaved() const {
  return bool(m_state->graph.GraphSaved());
}

void KurvGraph::reset_file() {
  m_state->graph.reset_file();
}

bool KurvGraph::has_graph() const {
  return bool(m_state->graph.state().document.GraphValid);
}

std::vector<QString> KurvGraph::functions() const {
  std::vector<QString> expressions;
  for (const String& expression : m_state->graph.functions()) {
    expressions.push_back(QString::fromStdString(expression));
  }
  return expressions;
}

unsigned KurvGraph::cell_edits() const {
  return m_state->graph.cell_edits();
}

std::vector<CommaChange> KurvGraph::comma_changes() const {
  m_state->apply_locale();
  return m_state->graph.comma_changes();
}

void KurvGraph::graph_text(const std::function<void(std::string_view)>& sink) const {
  m_state->apply_locale();
  const ControlState& state = m_state->graph.state();
  write_graph_text(sink, state.document, state.layout, std::nullopt, state.decimal_separator);
}

void KurvGraph::State::filed() {
  if (steps) steps->note_saved();
  if (widget) Q_EMIT widget->filed();
}

}  // namespace kurv
