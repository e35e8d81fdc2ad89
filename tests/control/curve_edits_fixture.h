// A control with a few curves, for the tests of what a user does to them.
#pragma once

#include <gmock/gmock.h>

#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "control/curve_edits.h"
#include "tests/support/test_host.h"

namespace kurv::test {

inline constexpr Double kNaN = std::numeric_limits<Double>::quiet_NaN();

class CurveEdits : public testing::Test {
 protected:
  // The first column is x.
  void load(const std::vector<std::vector<Double>>& data, std::vector<String> column_names,
            std::vector<String> functions = {}) {
    const auto curves = static_cast<Integer>(data.size() - 1);
    const auto count = static_cast<Integer>(functions.size());
    host.control.scatter_graph2(
        "Title", columns(data), kurv::test::names(std::move(column_names)),
        static_cast<Integer>(data.front().size()), curves,
        kurv::test::flags(std::vector<Boolean>(static_cast<std::size_t>(curves), Boolean(true))),
        count, kurv::test::names(std::move(functions)), true, false);
    host.surface.clear_log();
  }
  void load_three() {
    load({{3, 1, 2}, {30, 10, 20}, {7, 9, 8}, {5, 5, 5}}, {"x", "a", "b", "flat"});
  }

  ControlState& state() { return host.control.state(); }
  GraphDocument& document() { return host.document(); }

  int redraws() {
    int count = 0;
    const std::string& log = host.surface.log();
    for (auto at = log.find("cls\n"); at != log.npos; at = log.find("cls\n", at + 1)) ++count;
    host.surface.clear_log();
    return count;
  }
  static std::vector<Double> values(const Matrix<Double>& matrix, int column) {
    std::vector<Double> found;
    for (int i = 1; i <= matrix.upper_point(); ++i) found.push_back(matrix(column, i));
    return found;
  }
  std::vector<String> names() {
    std::vector<String> found;
    for (int c = 1; c <= document().NumY + 1; ++c) found.push_back(document().yVarName(c));
    return found;
  }
  std::vector<int> flags() {
    std::vector<int> found;
    for (int k = 1; k <= document().NumY; ++k) found.push_back(document().y_visible(k).bits());
    return found;
  }

  TestHost host;
};

}  // namespace kurv::test
