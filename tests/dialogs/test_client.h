// A window's client without a widget: a control on a recording surface that records calls.
#pragma once

#include <KurvGraph/fault.h>

#include <optional>
#include <string>

#include "dialogs/client.h"
#include "dialogs/graph_window.h"
#include "tests/support/test_host.h"

namespace kurv::test {

class TestClient final : public Client {
 public:
  Control& control() override { return host.control; }
  QWidget* window() const override { return nullptr; }
  // As a widget does it: a fault ends the work and no more, and a window hears of the redraw.
  void handle(const std::function<void(Control&)>& work) override {
    ++handled;
    try {
      work(host.control);
    } catch (const Fault& caught) {
      fault = caught;
    }
    if (served) served->refill();
  }

  // Since the last time.
  int redraws() {
    const std::string log = host.surface.log();
    int count = 0;
    for (auto at = log.find("cls\n"); at != log.npos; at = log.find("cls\n", at + 1)) ++count;
    host.surface.clear_log();
    return count;
  }

  GraphDocument& document() { return host.document(); }

  TestHost host;
  GraphWindow* served = nullptr;
  int handled = 0;
  std::optional<Fault> fault;
};

}  // namespace kurv::test
