// The parts of the help that CLI11 does not make from the options.
#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace kurv::app {

// Shows both names of a flag without "{false}", which CLI11 adds to the negated one.
class HelpFormatter : public CLI::Formatter {
 public:
  std::string make_option_name(const CLI::Option* option, bool positional) const override;
};

// The texts below the options.
std::string program_footer();
std::string render_footer();
std::string convert_footer();
std::string host_footer();
std::string info_footer();

}  // namespace kurv::app
