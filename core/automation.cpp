#include <KurvGraph/automation.h>

#include <algorithm>
#include <array>
#include <type_traits>

#include <KurvGraph/control.h>

namespace kurv {

namespace {

template <class T>
T converted(const Variant& value) {
  if constexpr (std::is_same_v<T, Integer>) return to_integer(value);
  if constexpr (std::is_same_v<T, Boolean>) return to_boolean(value);
  if constexpr (std::is_same_v<T, Single>) return to_single(value);
  if constexpr (std::is_same_v<T, Double>) return to_double(value);
  if constexpr (std::is_same_v<T, String>) return to_string(value);
}

template <class T>
constexpr ValueType type_of() {
  if (std::is_same_v<T, Integer>) return ValueType::kInteger;
  if (std::is_same_v<T, Boolean>) return ValueType::kBoolean;
  if (std::is_same_v<T, Single>) return ValueType::kSingle;
  if (std::is_same_v<T, Double>) return ValueType::kDouble;
  return ValueType::kString;
}

template <auto get, auto let>
constexpr Property row(std::string_view name, std::uint32_t dispatch_id) {
  using Value = decltype((std::declval<const Control&>().*get)());
  return {name, dispatch_id, type_of<Value>(),
          [](const Control& control) -> Variant { return (control.*get)(); },
          [](Control& control, const Variant& value) { (control.*let)(converted<Value>(value)); }};
}

constexpr std::array kProperties = {
    row<&Control::ymin, &Control::set_ymin>("ymin", 0x680300CD),
    row<&Control::ymax, &Control::set_ymax>("ymax", 0x680300CC),
    row<&Control::xmax, &Control::set_xmax>("xmax", 0x680300CB),
    row<&Control::xmin, &Control::set_xmin>("xmin", 0x680300CA),
    row<&Control::NumTicks, &Control::set_NumTicks>("NumTicks", 0x680300C7),
    row<&Control::Autoscale, &Control::set_Autoscale>("Autoscale", 0x680300C4),
    row<&Control::Connected, &Control::set_Connected>("Connected", 0x680300C3),
    row<&Control::DrawMarkers, &Control::set_DrawMarkers>("DrawMarkers", 0x680300C2),
    row<&Control::QueryForSave, &Control::set_QueryForSave>("QueryForSave", 0x680300C1),
    row<&Control::SortXY, &Control::set_SortXY>("SortXY", 0x680300C0),
    row<&Control::Y_grid, &Control::set_Y_grid>("Y_grid", 0x680300BF),
    row<&Control::X_grid, &Control::set_X_grid>("X_grid", 0x680300BE),
    row<&Control::CurvesWidth, &Control::set_CurvesWidth>("CurvesWidth", 0x680300BD),
    row<&Control::BorderWidth, &Control::set_BorderWidth>("BorderWidth", 0x680300BC),
    row<&Control::AxisLabelFormatX, &Control::set_AxisLabelFormatX>("AxisLabelFormatX", 0x680300BB),
    row<&Control::FontName, &Control::set_FontName>("FontName", 0x680300BA),
    row<&Control::FontSize, &Control::set_FontSize>("FontSize", 0x680300B9),
    row<&Control::FontBold, &Control::set_FontBold>("FontBold", 0x680300B8),
    row<&Control::FontItalic, &Control::set_FontItalic>("FontItalic", 0x680300B7),
    row<&Control::TitleFontName, &Control::set_TitleFontName>("TitleFontName", 0x680300B6),
    row<&Control::TitleFontSize, &Control::set_TitleFontSize>("TitleFontSize", 0x680300B5),
    row<&Control::TitleFontBold, &Control::set_TitleFontBold>("TitleFontBold", 0x680300B4),
    row<&Control::TitleFontItalic, &Control::set_TitleFontItalic>("TitleFontItalic", 0x680300B3),
    row<&Control::SubTitleFontName, &Control::set_SubTitleFontName>("SubTitleFontName", 0x680300B2),
    row<&Control::SubTitleFontSize, &Control::set_SubTitleFontSize>("SubTitleFontSize", 0x680300B1),
    row<&Control::SubTitleFontBold, &Control::set_SubTitleFontBold>("SubTitleFontBold", 0x680300B0),
    row<&Control::SubTitleFontItalic, &Control::set_SubTitleFontItalic>("SubTitleFontItalic",
                                                                        0x680300AF),
    row<&Control::AxisLabelFormatY, &Control::set_AxisLabelFormatY>("AxisLabelFormatY", 0x680300AE),
    row<&Control::Right_margine, &Control::set_Right_margine>("Right_margine", 0x680300AD),
    row<&Control::Left_margine, &Control::set_Left_margine>("Left_margine", 0x680300AC),
    row<&Control::Top_margine, &Control::set_Top_margine>("Top_margine", 0x680300AB),
    row<&Control::Bottom_margine, &Control::set_Bottom_margine>("Bottom_margine", 0x680300AA),
    row<&Control::MarkerSize, &Control::set_MarkerSize>("MarkerSize", 0x680300A8),
    row<&Control::Title, &Control::set_Title>("Title", 0x680300A7),
    row<&Control::SubTitle, &Control::set_SubTitle>("SubTitle", 0x680300A6),
};

constexpr char lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool same_name(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return lower(x) == lower(y); });
}

}  // namespace

std::span<const Property> properties() {
  return kProperties;
}

const Property* find_property(std::string_view name) {
  const auto found = std::find_if(kProperties.begin(), kProperties.end(),
                                  [&](const Property& row) { return same_name(row.name, name); });
  return found == kProperties.end() ? nullptr : &*found;
}

}  // namespace kurv
