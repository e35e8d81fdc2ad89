#include "bindings/c/call_error.h"

#include <KurvGraph/fault.h>
#include <KurvGraph/file_fault.h>

#include <new>
#include <stdexcept>
#include <string_view>

#include "bindings/c/sized_structure.h"

namespace kurv::c {

namespace {

struct LastError {
  std::int32_t number = KURV_OK;
  const char* text = "";
  std::string detail;
};

LastError& last_error() {
  thread_local LastError error;
  return error;
}

const char* text_of(std::int32_t number) {
  switch (number) {
    case KURV_INVALID_HANDLE:
      return "Invalid handle";
    case KURV_WRONG_THREAD:
      return "The graph belongs to another thread";
    case KURV_NO_APPLICATION:
      return "There is no QApplication";
    case KURV_NO_WIDGET:
      return "The graph has no widget";
    case KURV_INTERNAL_ERROR:
      return "Internal error";
    default:
      return fault_text(static_cast<FaultKind>(number));
  }
}

// The detail may not fit into memory any more; the number matters more.
std::int32_t keep(std::int32_t number, std::string_view detail) noexcept {
  LastError& error = last_error();
  error.number = number;
  error.text = text_of(number);
  try {
    error.detail = detail;
  } catch (const std::exception&) {
    error.detail.clear();
  }
  return number;
}

}  // namespace

void throw_last_error() {
  throw CallError(last_error().number, last_error().detail);
}

std::int32_t keep_current_exception() noexcept {
  try {
    throw;
  } catch (const CallError& error) {
    return keep(error.number(), error.what());
  } catch (const FileFault& fault) {
    return keep(fault.number(), fault.path());
  } catch (const Fault& fault) {
    return keep(fault.number(), "");
  } catch (const std::bad_alloc&) {
    return keep(KURV_OUT_OF_MEMORY, "");
  } catch (const std::length_error&) {
    return keep(KURV_OUT_OF_MEMORY, "");
  } catch (const std::exception& error) {
    return keep(KURV_INTERNAL_ERROR, error.what());
  } catch (...) {
    return keep(KURV_INTERNAL_ERROR, "");
  }
}

}  // namespace kurv::c

std::int32_t kurv_last_error(kurv_error* error) {
  return kurv::c::guarded([&] {
    const kurv::c::LastError& last = kurv::c::last_error();
    const std::string_view text = last.text;
    kurv::c::fill_in(error, {sizeof(kurv_error),
                             last.number,
                             {text.data(), text.size()},
                             {last.detail.c_str(), last.detail.size()}});
  });
}
