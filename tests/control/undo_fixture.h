// A control whose changes can be undone.
#pragma once

#include <gmock/gmock.h>

#include <limits>
#include <string>
#include <vector>

#include "control/curve_edits.h"
#include "control/table_edits.h"
#include "control/undo.h"
#include "tests/support/test_host.h"

namespace kurv::test {

// Three curves with x in no order, a function, a title and a subtitle.
struct UndoHost : TestHost {
  UndoHost() {
    load_three();
    control.set_SubTitle("Sub");
    control.set_X_grid(true);
    control.set_Y_grid(true);
    control.build_the_graph();
    control.build_the_graph();
    control.set_undo_enabled(true);
  }

  void load_three() {
    control.scatter_graph2("Title",
                           columns({{3, 1, 2, 5, 4},
                                    {30, 10, 20, 50, 40},
                                    {7, 9, std::numeric_limits<Double>::quiet_NaN(), 8, 6},
                                    {1, 2, 3, 4, 5}}),
                           names({"x", "a", "b", "c"}), 5, 3, flags({true, true, true}), 1,
                           names({"x*2"}), true, true);
  }

  ControlState& state() { return control.state(); }
  // What is drawn after the clearing and the measuring of texts.
  static std::string drawn(const std::string& log) { return log.substr(log.find("\nprint")); }
  std::string drawn() const { return drawn(surface.log()); }
  std::string next_redraw() {
    RecordingSurface other(12000, 9000);
    control.draw_on(other);
    return drawn(other.log());
  }
  std::vector<std::string> step_names() {
    std::vector<std::string> names;
    for (const Step& step : state().history.steps()) names.push_back(step.name);
    return names;
  }
  void rename(const String& name) {
    shell.inputs.push_back(name);
    rename_curve(state(), 1);
  }
  void edit(int column, int point, Double value) {
    EXPECT_EQ(apply_table_edits(state(), {{point, column, value}}), std::nullopt);
  }
};

}  // namespace kurv::test
