// The window in which the user sets the properties of a graph.
//
// Every change goes into the graph at once and is drawn; there is no cancel. The fields are found
// by their object names; those of a group have their number after an underscore:
// txtXAxis_1 and txtYAxis_1 are the maxima, txtXAxis_2 and txtYAxis_2 the minima; cmdFonts_0 is the
// font of the axes, cmdFonts_1 that of the title, cmdFonts_2 that of the subtitle.
#pragma once

#include <QKeyEvent>
#include <QTabWidget>
#include <functional>
#include <vector>

#include "dialogs/graph_window.h"
#include "dialogs/propert_page.h"

namespace kurv {

class frmPropert final : public GraphWindow {
  Q_OBJECT

 public:
  explicit frmPropert(QWidget* parent);
  ~frmPropert() override;

  // For the pages.
  using GraphWindow::edit;
  using GraphWindow::handle;
  // What is typed into a field from here on is a step of its own.
  void end_merging();
  // Of the graph; a point where there is none.
  char decimal_separator() const;

  // First applies a margin that has been typed but not entered.
  void done(int result) override;

 protected:
  void fill() override;
  // Pages 0, 1, 2 and 4 have tabs; any other shows the first.
  void show_page(Integer page) override;
  // Return presses the button that has the focus and no other.
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void add_page(const char* caption, void (*build)(PropertPage&));
  void restore();

  QTabWidget* m_tabs;
  std::vector<PropertPage*> m_pages;
};

}  // namespace kurv
