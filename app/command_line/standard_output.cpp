#include "app/command_line/standard_output.h"

#include <iostream>

#include "app/base/user_error.h"

namespace kurv::app {

void write_standard_output(std::string_view bytes) {
  std::cout.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  std::cout.flush();
  if (!std::cout) {
    throw UserError("standard output cannot be written; check where it leads to.");
  }
}

}  // namespace kurv::app
