/// @file
/// The small external services that the control calls.
///
/// Each is an interface, because a host may register an implementation of its own. One that fails
/// throws a Fault, which reaches the caller of the control.
#pragma once

#include <memory>
#include <span>
#include <string_view>

#include <KurvGraph/expr_evaluator.h>
#include <KurvGraph/service.h>
#include <KurvGraph/values.h>

namespace kurv {

/// Calculations for the limits of the axes and their labels.
class KURV_EXPORT NumericService : public Service {
 public:
  /// The base-10 logarithm. Throws kInvalidProcedureCall where it is not defined (zero, negative).
  virtual Double decimal_logarithm(Double value) const = 0;
  /// The largest whole number not above the value.
  virtual Double round_down(Double value) const = 0;
  /// The smallest whole number not below the value.
  virtual Double round_up(Double value) const = 0;
  /// The larger of the two.
  virtual Double larger_of(Double value, Double other) const = 0;
};

/// Two points to be exchanged, counted from 1.
struct Exchange {
  int place;  ///< one of them
  int taken;  ///< the other
};

/// Exchanges values, for sorting.
class KURV_EXPORT SwapService : public Service {
 public:
  /// Exchanges two values.
  virtual void exchange(Double& first, Double& second) const = 0;
  /// The same for pairs of one column's values, in their order. By default an exchange() for each;
  /// a service may override it with something faster.
  virtual void exchange_all(const Column<Double>& values, std::span<const Exchange> pairs) const {
    for (const auto& [place, taken] : pairs) exchange(values(place), values(taken));
  }
  /// The same for columns 1 to `columns` of a matrix: an exchange_all() for each, one after the
  /// other.
  virtual void exchange_points(Matrix<Double>& values, int columns,
                               std::span<const Exchange> pairs) const {
    for (int c = 1; c <= columns; ++c) exchange_all(values.column(c), pairs);
  }
};

/// Finds the fields of a text.
class KURV_EXPORT TextFieldTool : public Service {
 public:
  /// The field, counted from 1, of a text whose fields are separated by the delimiter. Empty where
  /// there is no such field.
  virtual String GetField(std::string_view text, int field, std::string_view delimiter) const = 0;
};

/// The printer of a control.
class KURV_EXPORT PicturePrinter : public Service {
 public:
  /// Prints one picture, the bytes of a Windows bitmap file, scaled to the page, with a caption in
  /// the font of that name and size in points.
  virtual void PrintPicture(std::string_view bitmap, std::string_view font_name,
                            std::string_view caption, Single font_size) = 0;
};

/// One of each that all controls share, in the order in which they are created.
struct Services {
  std::unique_ptr<ExprEvaluator> evaluator;   ///< of the class kExprEvaluatorClass
  std::unique_ptr<NumericService> numeric;    ///< of the class kNumericServiceClass
  std::unique_ptr<SwapService> swap;          ///< of the class kSwapServiceClass
  std::unique_ptr<TextFieldTool> text_field;  ///< of the class kTextFieldToolClass
};

}  // namespace kurv
