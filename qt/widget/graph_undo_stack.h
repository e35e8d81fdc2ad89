// The steps of a graph as a QUndoStack.
#pragma once

#include <KurvGraph/control.h>

#include <QUndoStack>

#include "control/history.h"
#include "dialogs/client.h"

namespace kurv {

// The steps stay in the control; this has a command for each of them, with its name. Whichever of
// the two undoes a step, the other follows.
class GraphUndoStack final : public QUndoStack {
 public:
  GraphUndoStack(Client& client, QObject* parent);
  ~GraphUndoStack() override;
  // Before the graph goes: empties the stack, which makes no use of the client from then on.
  void leave_graph();

  // Brings the commands to the steps of the control. Returns whether there was a difference.
  bool follow();
  // The graph has just been saved or loaded.
  void note_saved();

  // For the commands: undoes or does again the step of a command, unless the command only follows.
  void run(bool (Control::*work)());

 private:
  const History& history() const;
  // The number of the last step that is done, or has been forgotten.
  unsigned last_done() const;
  bool agrees() const;
  void add_command(const Step& step);
  void make_anew();
  void on_index();

  Client& m_client;
  bool m_is_following = false;
  bool m_is_running = false;
  bool m_has_left = false;
  bool m_is_saved_now = false;  // until the commands are as the steps
  unsigned m_generation = 0;
  unsigned m_saved_step = 0;  // the last one that is in the file; 0 where it is none of them
};

}  // namespace kurv
