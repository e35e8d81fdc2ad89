// Errors of the C interface: exceptions become numbers, and the last one of each thread is kept.
#pragma once

#include <KurvGraph/kurvgraph_c.h>

#include <cstdint>
#include <exception>
#include <string>
#include <utility>

namespace kurv::c {

// An error with the number that the caller gets.
class CallError final : public std::exception {
 public:
  explicit CallError(std::int32_t number, std::string detail = {})
      : m_number(number), m_detail(std::move(detail)) {}

  const char* what() const noexcept override { return m_detail.c_str(); }
  std::int32_t number() const { return m_number; }

 private:
  std::int32_t m_number;
  std::string m_detail;
};

// Keeps the exception that is being handled as the last error of this thread, and returns its
// number.
std::int32_t keep_current_exception() noexcept;

// The last error of this thread once more.
[[noreturn]] void throw_last_error();

// Every entry point does its work in here, so that no exception leaves the library.
template <class Work>
std::int32_t guarded(Work work) noexcept {
  try {
    work();
    return KURV_OK;
  } catch (...) {
    return keep_current_exception();
  }
}

// A pointer that must not be null.
template <class T>
T& required(T* pointer) {
  if (pointer == nullptr) throw CallError(KURV_INVALID_CALL, "a null pointer");
  return *pointer;
}

}  // namespace kurv::c
