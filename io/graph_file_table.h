// The tables of the lines that every graph file has, and of the lists that follow them. A property
// that is saved is one row here: the writer, the reader and graph_file_fields.h all walk them.
#pragma once

#include <array>
#include <string_view>
#include <variant>

#include <KurvGraph/graph_file_fields.h>
#include <KurvGraph/values.h>

#include "io/graph_file_reader.h"
#include "io/graph_file_writer.h"
#include "model/graph_document.h"
#include "model/layout.h"

namespace kurv {

// What a line holds: where the writer takes the value from, and where the reader puts it. Reading
// takes more forms than writing produces, as the comments say. Where there is only a member of the
// document, the reader assigns it at once, and it stays when a later line fails; deferred() puts
// this off until the whole file has been read and the data intake, which chooses limits, is over.

// The tag and the version stamp; not read.
struct TagLine {
  static constexpr auto kKind = GraphFieldKind::kTag;
};
// A text that a later line repeats; not read.
struct TextCopy {
  static constexpr auto kKind = GraphFieldKind::kCopy;
  String GraphDocument::*member;
};
struct TextLine {
  static constexpr auto kKind = GraphFieldKind::kText;
  String GraphDocument::*member;
};
// Written as digits, read as the number that the line begins with.
struct CountLine {
  static constexpr auto kKind = GraphFieldKind::kCount;
  Integer GraphDocument::*from;
  Integer GraphFile::*to;
};
// Written as digits, read as any number, which is rounded.
struct WholeLine {
  static constexpr auto kKind = GraphFieldKind::kWhole;
  Integer GraphDocument::*member;
};
// Written as printed_number() does, read as any number, which is rounded; so are the next three.
struct LengthLine {
  static constexpr auto kKind = GraphFieldKind::kWhole;
  Integer GraphDocument::*member;
};
struct FontSizeLine {
  static constexpr auto kKind = GraphFieldKind::kWhole;
  Single GraphDocument::*member;
};
struct HandleLine {
  static constexpr auto kKind = GraphFieldKind::kWhole;
  Rect Layout::*handle;
  Single Rect::*from;
  HandlePlace GraphFile::*place;
  Integer HandlePlace::*to;
};
// Left out where a graph is written without its size.
struct SizeLine {
  static constexpr auto kKind = GraphFieldKind::kWhole;
  Single ControlSize::*from;
  Integer GraphFile::*to;
};
// Written as printed_number() does, read as any finite number.
struct NumberLine {
  static constexpr auto kKind = GraphFieldKind::kNumber;
  Double GraphDocument::*member;
};
// "True" or "False"; a number is read as well.
struct BooleanLine {
  static constexpr auto kKind = GraphFieldKind::kBoolean;
  Boolean GraphDocument::*member;
};
// An argument of the data intake, which sets the property.
struct IntakeBooleanLine {
  static constexpr auto kKind = GraphFieldKind::kBoolean;
  Boolean GraphDocument::*from;
  Boolean GraphFile::*to;
};
// A line of any kind that has a `member`; apply_deferred() assigns it.
template <class Line>
struct Deferred {
  static constexpr auto kKind = Line::kKind;
  Line line;
};

struct GraphFileRow {
  std::string_view name;
  std::variant<TagLine, TextCopy, TextLine, CountLine, WholeLine, LengthLine, FontSizeLine,
               HandleLine, SizeLine, NumberLine, BooleanLine, IntakeBooleanLine, Deferred<TextLine>,
               Deferred<WholeLine>, Deferred<LengthLine>, Deferred<FontSizeLine>,
               Deferred<NumberLine>, Deferred<BooleanLine>>
      line;
};

// In the order of the lines. The names are those of the control's properties where it has them.
inline constexpr auto kGraphFileTable = [] {
  using D = GraphDocument;
  using F = GraphFile;
  constexpr auto top_of = [](Rect Layout::*handle, HandlePlace F::*place) {
    return HandleLine{handle, &Rect::top, place, &HandlePlace::top};
  };
  constexpr auto left_of = [](Rect Layout::*handle, HandlePlace F::*place) {
    return HandleLine{handle, &Rect::left, place, &HandlePlace::left};
  };
  constexpr auto deferred = [](auto line) { return Deferred<decltype(line)>{line}; };
  return std::to_array<GraphFileRow>({
      {"Format", TagLine{}},
      {"Title, first copy", TextCopy{&D::Title}},
      {"NumData", CountLine{&D::NumData, &F::num_data}},
      {"NumY", CountLine{&D::NumY, &F::num_y}},
      {"NumYFunc", CountLine{&D::NumYFunc, &F::num_functions}},
      {"Title", TextLine{&D::Title}},
      {"SubTitle", TextLine{&D::SubTitle}},
      {"NumTicks", WholeLine{&D::NumTicks}},
      {"BorderWidth", WholeLine{&D::BorderWidth}},
      {"CurvesWidth", WholeLine{&D::CurvesWidth}},
      {"Top_margine", LengthLine{&D::Top_margine}},
      {"Left_margine", LengthLine{&D::Left_margine}},
      {"Right_margine", LengthLine{&D::Right_margine}},
      {"Bottom_margine", LengthLine{&D::Bottom_margine}},
      {"Title, top", top_of(&Layout::imgTitle, &F::imgTitle)},
      {"Title, left", left_of(&Layout::imgTitle, &F::imgTitle)},
      {"SubTitle, top", top_of(&Layout::imgSubTitle, &F::imgSubTitle)},
      {"SubTitle, left", left_of(&Layout::imgSubTitle, &F::imgSubTitle)},
      {"Legend, top", top_of(&Layout::picLegend, &F::picLegend)},
      {"Legend, left", left_of(&Layout::picLegend, &F::picLegend)},
      {"Height", SizeLine{&ControlSize::height, &F::height}},
      {"Width", SizeLine{&ControlSize::width, &F::width}},
      {"ymin", deferred(NumberLine{&D::ymin})},
      {"ymax", deferred(NumberLine{&D::ymax})},
      {"xmin", deferred(NumberLine{&D::xmin})},
      {"xmax", deferred(NumberLine{&D::xmax})},
      {"AxisLabelFormatX", TextLine{&D::AxisLabelFormatX}},
      {"AxisLabelFormatY", TextLine{&D::AxisLabelFormatY}},
      {"FontBold", BooleanLine{&D::FontBold}},
      {"FontItalic", BooleanLine{&D::FontItalic}},
      {"FontName", TextLine{&D::FontName}},
      {"FontSize", FontSizeLine{&D::FontSize}},
      {"TitleFontBold", BooleanLine{&D::TitleFontBold}},
      {"TitleFontItalic", BooleanLine{&D::TitleFontItalic}},
      {"TitleFontName", TextLine{&D::TitleFontName}},
      {"TitleFontSize", FontSizeLine{&D::TitleFontSize}},
      {"SubTitleFontBold", BooleanLine{&D::SubTitleFontBold}},
      {"SubTitleFontItalic", BooleanLine{&D::SubTitleFontItalic}},
      {"SubTitleFontName", TextLine{&D::SubTitleFontName}},
      {"SubTitleFontSize", FontSizeLine{&D::SubTitleFontSize}},
      {"XLimitsExact", BooleanLine{&D::XLimitsExact}},
      {"YLimitsExact", BooleanLine{&D::YLimitsExact}},
      {"SortXY", BooleanLine{&D::SortXY}},
      {"Y_grid", deferred(BooleanLine{&D::Y_grid})},
      {"X_grid", deferred(BooleanLine{&D::X_grid})},
      {"Connected", IntakeBooleanLine{&D::Connected, &F::Connected}},
      {"DrawMarkers", IntakeBooleanLine{&D::DrawMarkers, &F::DrawMarkers}},
  });
}();

// What a list holds: where the writer takes it from, and where the reader puts it.

struct DataList {
  static constexpr auto kKind = GraphFieldKind::kNumber;
  static constexpr auto kEntries = GraphFileEntries::kPoints;
  static constexpr bool kHasLinePerColumn = true;
  Matrix<Double> GraphDocument::*from;
  Matrix<Double> GraphFile::*to;
};
struct NameList {
  static constexpr auto kKind = GraphFieldKind::kText;
  static constexpr auto kEntries = GraphFileEntries::kColumns;
  static constexpr bool kHasLinePerColumn = false;
  List<String> GraphDocument::*from;
  List<String> GraphFile::*to;
};
struct FlagList {
  static constexpr auto kKind = GraphFieldKind::kBoolean;
  static constexpr auto kEntries = GraphFileEntries::kCurves;
  static constexpr bool kHasLinePerColumn = false;
  List<Boolean> GraphDocument::*from;
  List<Boolean> GraphFile::*to;
};
struct ExpressionList {
  static constexpr auto kKind = GraphFieldKind::kText;
  static constexpr auto kEntries = GraphFileEntries::kFunctions;
  static constexpr bool kHasLinePerColumn = false;
  List<FunctionCurve> GraphDocument::*from;
  List<String> GraphFile::*to;
};

struct GraphFileListRow {
  std::string_view name;
  std::variant<DataList, NameList, FlagList, ExpressionList> list;
};

// In the order of their lines. The names are what "kurv info --check" calls their entries.
inline constexpr auto kGraphFileListTable = std::to_array<GraphFileListRow>({
    {"values", DataList{&GraphDocument::xyArr, &GraphFile::xyarr}},
    {"names", NameList{&GraphDocument::yVarName, &GraphFile::names}},
    {"flags", FlagList{&GraphDocument::y_visible, &GraphFile::visible}},
    {"expressions", ExpressionList{&GraphDocument::y_func, &GraphFile::functions}},
});

}  // namespace kurv
