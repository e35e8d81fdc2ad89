// Which keys a request has.
#pragma once

#include <QJsonObject>
#include <array>
#include <cstddef>
#include <span>
#include <string_view>

namespace kurv::app {

struct RequestKeys {
  std::string_view word;
  std::array<std::string_view, 3> companions;  // the other keys that it may have; some are empty
};

// The row of the request that the object is: it has exactly one of the words, and no key that does
// not belong to that. Refuses other objects.
std::size_t request_in(const QJsonObject& object, std::span<const RequestKeys> rows);

}  // namespace kurv::app
