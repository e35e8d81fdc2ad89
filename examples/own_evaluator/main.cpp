// A host with an evaluator of its own, which knows physical constants: draws the spectrum of black
// bodies and saves the picture.
//
//   kurv_own_evaluator spectrum.png
//   kurv_own_evaluator spectrum.png "x * planck_h * light_c"
#include <KurvGraph/class_registry.h>
#include <KurvGraph/control.h>
#include <KurvGraph/font_text_painter.h>
#include <KurvGraph/headless.h>
#include <KurvGraph/pixel_picture.h>
#include <KurvGraph/png_file.h>

#include <cmath>
#include <iostream>
#include <iterator>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace {

struct Constant {
  std::string_view name;
  kurv::Double value;
};
constexpr Constant kConstants[] = {
    {"light_c", 299792458},         // m/s
    {"planck_h", 6.62607015e-34},   // J s
    {"boltzmann_k", 1.380649e-23},  // J/K
    {"kelvin_sun", 5772},           // K, at its surface
};

bool is_constant(std::string_view name) {
  for (const Constant& constant : kConstants) {
    if (name == constant.name) return true;
  }
  return false;
}

// The built-in evaluator, in which each constant is a variable that nobody else sees.
class PhysicsEvaluator final : public kurv::ExprEvaluator {
 public:
  explicit PhysicsEvaluator(std::unique_ptr<kurv::ExprEvaluator> built_in)
      : m_built_in(std::move(built_in)) {
    for (const Constant& constant : kConstants) {
      m_built_in->SetVariable(constant.name, constant.value);
    }
  }

  kurv::ParsedExpression ParseExpression(std::string_view text) override {
    kurv::ParsedExpression parsed = m_built_in->ParseExpression(text);
    std::erase_if(parsed.variables, [](const kurv::String& name) { return is_constant(name); });
    return parsed;
  }
  bool IsValidVariableName(std::string_view name) const override {
    return !is_constant(name) && m_built_in->IsValidVariableName(name);
  }
  // A column of the data that has the name of a constant does not replace it.
  void SetVariable(std::string_view name, kurv::Double value) override {
    if (!is_constant(name)) m_built_in->SetVariable(name, value);
  }
  bool GetEvalError() const override { return m_built_in->GetEvalError(); }
  kurv::Double Evaluate() override { return m_built_in->Evaluate(); }
  void SetExpression(std::string_view text) override { m_built_in->SetExpression(text); }

 private:
  std::unique_ptr<kurv::ExprEvaluator> m_built_in;
};

// Each evaluator of the control is independent of the others, so each gets a built-in one of its
// own. That is what the identifier means while no class is registered for it.
std::unique_ptr<kurv::Service> new_physics_evaluator() {
  kurv::register_class(kurv::kExprEvaluatorClass, {});
  auto built_in = kurv::create<kurv::ExprEvaluator>(kurv::kExprEvaluatorClass);
  kurv::register_class(kurv::kExprEvaluatorClass, new_physics_evaluator);
  return std::make_unique<PhysicsEvaluator>(std::move(built_in));
}

// What a black body of 5000 K radiates at some wavelengths, in kW per square metre, steradian and
// nanometre.
void load_spectrum(kurv::Control& graph) {
  std::vector<kurv::Double> nanometres;
  std::vector<kurv::Double> radiance;
  for (int x = 100; x <= 3000; x += 100) {
    const double metres = x * 1e-9;
    nanometres.push_back(x);
    radiance.push_back(1.19104297e-16 / std::pow(metres, 5) /
                       (std::exp(0.01438776877 / (metres * 5000)) - 1) * 1e-12);
  }
  const int count = static_cast<int>(nanometres.size());
  kurv::Matrix<kurv::Double> y(1, 1, 1, count);
  y.set_column(1, std::move(radiance));
  graph.scatter_graph(y, {1, std::move(nanometres)}, kurv::to_integer(kurv::Double(count)), 1,
                      "Black bodies", "wavelength (nm)", {1, {"5000 K"}}, 0, {}, false, true);
}

// The same of the sun, which is hotter.
constexpr const char* kSun =
    "2*planck_h*light_c^2/(x*1e-9)^5/(exp(planck_h*light_c/"
    "(x*1e-9*boltzmann_k*kelvin_sun))-1)*1e-12";

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2 && argc != 3) return 2;
  kurv::register_class(kurv::kExprEvaluatorClass,
                       new_physics_evaluator);  // before the first control
  kurv::PixelPicture picture(std::make_shared<kurv::FontTextPainter>(), 720, 480);
  kurv::HeadlessContainer container(picture);
  kurv::HeadlessShell shell;
  try {
    kurv::Control graph(container, shell, picture);
    graph.first_placement();
    graph.show();
    load_spectrum(graph);
    graph.set_Autoscale(false);
    graph.set_ymax(30);
    if (const std::optional<kurv::String> wrong = graph.add_function(argc == 3 ? argv[2] : kSun)) {
      std::cerr << *wrong << '\n';
      return 1;
    }
    kurv::save_png(picture.pixels(), argv[1]);
  } catch (const kurv::Fault& fault) {
    std::cerr << argv[1] << ": " << fault.what() << '\n';
    return 1;
  }
}
