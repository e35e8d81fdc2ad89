// Where a line stops being JSON, and why.
#pragma once

#include <QByteArray>
#include <string>

namespace kurv::app {

// For a line that the parser refuses: the column, a character counted from 1, what was found there
// and what is expected instead.
std::string json_error(const QByteArray& line);

}  // namespace kurv::app
