// A host that knows the members of a control only at run time: it sets the properties that are
// named on its command line, runs a command, and listens to events.
//
//   kurv_late_binding NumTicks=5 Title=Growth
#include <KurvGraph/automation.h>
#include <KurvGraph/control.h>
#include <KurvGraph/headless.h>
#include <KurvGraph/recording_surface.h>

#include <algorithm>
#include <iostream>
#include <span>
#include <string_view>
#include <vector>

namespace {

void print_event(const kurv::Event& event, std::span<const kurv::Variant> arguments) {
  std::cout << event.name;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    std::cout << ' ' << event.parameters[i].name << '=' << kurv::to_string(arguments[i]);
  }
  std::cout << '\n';
}

// Sets a property to a text, which is converted to the property's type.
void set_and_print(kurv::Control& graph, std::string_view name, std::string_view text) {
  kurv::set_property(graph, name, kurv::String(text));
  const kurv::Member& property = *kurv::find_property(name);
  std::cout << property.name << " = " << kurv::to_string(kurv::get_property(graph, name));
  if (!property.unit.empty()) std::cout << ' ' << property.unit;
  std::cout << ", initially " << property.initially << '\n';
}

}  // namespace

int main(int argc, char** argv) {
  kurv::RecordingSurface surface(12000, 9000);
  kurv::HeadlessContainer container(surface);
  kurv::HeadlessShell shell;
  kurv::Control graph(container, shell, surface);
  graph.first_placement();
  graph.show();
  graph.add_listener(print_event);
  for (const std::string_view argument : std::span(argv, std::size_t(argc)).subspan(1)) {
    const std::size_t name_length = std::min(argument.find('='), argument.size());
    const std::string_view value = argument.substr(name_length);
    try {
      set_and_print(graph, argument.substr(0, name_length), value.substr(!value.empty()));
    } catch (const kurv::Fault& fault) {
      std::cerr << argument << ": " << fault.what() << '\n';
      return 1;
    }
  }
  std::vector<kurv::Variant> word{kurv::String("refresh")};
  kurv::call_method(graph, "ChartOptions", word);
  graph.release_mouse(1, 0, 6000, 4500);  // as a click of the left button does
}
