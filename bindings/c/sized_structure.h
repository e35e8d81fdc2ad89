// Structures that begin with their size, so that they can grow in later versions.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstring>

#include "bindings/c/call_error.h"

namespace kurv::c {

// Fills in the members that fit into a structure of the caller, whose `size` says how large it is.
// Members that this version does not know become zero.
template <class T>
void fill_in(T* structure, const T& value) {
  const std::size_t size = required(structure).size;
  if (size <= sizeof(std::size_t)) throw CallError(KURV_INVALID_CALL, "size is not set");
  auto* const bytes = reinterpret_cast<unsigned char*>(structure);
  std::memcpy(bytes, &value, std::min(size, sizeof(T)));
  if (size > sizeof(T)) std::memset(bytes + sizeof(T), 0, size - sizeof(T));
  structure->size = size;
}

}  // namespace kurv::c
