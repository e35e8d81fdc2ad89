// The small external components that the control only calls.
//
// Each is an interface, because a host may bring its own. A failing one throws a Fault, which
// reaches whoever called the control.
#pragma once

#include <memory>
#include <string_view>

#include <KurvGraph/values.h>

namespace kurv {

class NumericService {
 public:
  virtual ~NumericService() = default;
  // The base-10 logarithm. Throws kInvalidProcedureCall where it is not defined (zero, negative).
  virtual Double decimal_logarithm(Double value) const = 0;
  // The largest whole number not above the value, and the smallest not below it.
  virtual Double round_down(Double value) const = 0;
  virtual Double round_up(Double value) const = 0;
  virtual Double larger_of(Double value, Double other) const = 0;
};

class SwapService {
 public:
  virtual ~SwapService() = default;
  virtual void exchange(Double& first, Double& second) const = 0;
};

class TextFieldTool {
 public:
  virtual ~TextFieldTool() = default;
  // The field, counted from 1, of a text in which the delimiter stands between fields. Empty where
  // there is no such field.
  virtual String GetField(std::string_view text, int field, std::string_view delimiter) const = 0;
};

// One of each, shared by all controls of a process.
struct Services {
  std::unique_ptr<NumericService> numeric;
  std::unique_ptr<SwapService> swap;
  std::unique_ptr<TextFieldTool> text_field;
};

// The built-in ones: the library's set, made at its first use.
const Services& library_services();
// A fresh built-in set, for a host that wants to replace some of it.
Services make_services();

}  // namespace kurv
