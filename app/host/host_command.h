// kurv host: the control on standard input and output, for every language that can start a process.
#pragma once

namespace kurv::app {

// Reads requests until the end of the input and writes an answer to each at once. Returns the
// program's exit status.
int run_host();

}  // namespace kurv::app
