// The bar above the plot that says what was left out of a table, padded, guessed or thinned.
#pragma once

#include <QFrame>
#include <QStringList>
#include <functional>
#include <utility>

namespace kurv::app {

class NoticeLine;

// Shows one line, elided where it is too long; a click on it, or Return or Space, shows all notes
// as whole sentences. Escape and the button at its end close it. Controls by name: barNotices,
// cmdNotices, cmdCloseNotices; txtNotes, cmdChange and cmdClose in the window of all notes.
class NoticeBar final : public QFrame {
 public:
  NoticeBar();

  // Whole sentences. Whether the bar is visible is for its owner to decide.
  void set_notes(const QStringList& notes);
  // Called when the user closes the bar.
  void on_close(std::function<void()> close) { m_close = std::move(close); }
  // Called when the user wants the table read in another way; without it there is no such button.
  void on_change(std::function<void()> change) { m_change = std::move(change); }

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void set_colours();
  void show_notes();

  QStringList m_notes;
  NoticeLine* m_line;
  std::function<void()> m_close = [] {};
  std::function<void()> m_change;
};

}  // namespace kurv::app
