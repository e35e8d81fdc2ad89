// What the command line's help says beside its options.
#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace kurv::app {

// Shows both words of a switch and not what they mean to the parser.
class HelpFormatter : public CLI::Formatter {
 public:
  std::string make_option_name(const CLI::Option* option, bool positional) const override;
};

// What stands below the options.
std::string program_footer();
std::string render_footer();
std::string convert_footer();
std::string host_footer();
std::string info_footer();

}  // namespace kurv::app
