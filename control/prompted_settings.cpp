#include "control/prompted_settings.h"

#include <KurvGraph/limits.h>
#include <KurvGraph/number_text.h>

#include <cmath>
#include <limits>
#include <optional>

#include "control/control_state.h"
#include "control/redraw.h"
#include "control/titled_font_dialog.h"
#include "control/undo.h"

namespace kurv {

namespace {

// The prompt names a rounded maximum.
static_assert(kMaxPromptedMarkerSize == 301);
constexpr const char* kMarkerText =
    "Enter the data point marker size (value should be between 1-300).";

String shown_number(const ControlState& state, Double value) {
  String text;
  append_number(text, value, state.decimal_separator);
  return text;
}

void prompt_marker_size(ControlState& state) {
  const String proposal = shown_number(state, state.document.MarkerSize);
  const String answer = state.shell.input_prompt(kMarkerText, "KURV", proposal);
  if (answer.empty()) return;
  const std::optional<Double> size = text_to_number(answer, state.decimal_separator);
  // Written so that NaN is refused.
  if (!size || !(*size > 0 && *size <= kMaxPromptedMarkerSize)) {
    state.shell.beep();
    state.shell.message_box("Data input not legal !", kExclamation, "KURV GUIDE");
    return;
  }
  if (answer == proposal) return;
  const StepRecorder step(state, {"Change Marker Size"});
  set_marker_size(state.document, *size);
  build_the_graph(state);
}

Integer& field_of(GraphDocument& document, Margin margin) {
  switch (margin) {
    case Margin::kLeft:
      return document.Left_margine;
    case Margin::kRight:
      return document.Right_margine;
    case Margin::kTop:
      return document.Top_margine;
    case Margin::kBottom:
      break;
  }
  return document.Bottom_margine;
}

const char* text_of(Margin margin) {
  switch (margin) {
    case Margin::kLeft:
      return "Enter Left Margine size.";
    case Margin::kRight:
      return "Enter Right Margine size.";
    case Margin::kTop:
      return "Enter Upper Margine size.";
    case Margin::kBottom:
      break;
  }
  return "Enter Bottom Margine size.";
}

void refuse_margin(ControlState& state) {
  state.shell.message_box("Invalid data entry.", kCriticalStop, "KURV Guide");
}

// The nearest 16-bit whole number, where the text is a number that has one.
std::optional<Integer> whole_number(const ControlState& state, const String& text) {
  constexpr Double kBeyond = std::numeric_limits<Integer>::max() + 0.5;
  const std::optional<Double> number = text_to_number(text, state.decimal_separator);
  if (!number || !(std::abs(*number) < kBeyond)) return std::nullopt;
  return to_integer(*number);
}

void prompt_margin(ControlState& state, Margin margin) {
  const String proposal = shown_number(state, field_of(state.document, margin));
  const String answer = state.shell.input_prompt(text_of(margin), "KURV Graph", proposal);
  if (answer.empty()) return;
  const std::optional<Integer> twips = whole_number(state, answer);
  if (!twips) return refuse_margin(state);
  const StepRecorder step(state, {step_name(margin)});
  if (set_margin(state, margin, *twips)) build_the_graph(state);
}

void prompt_x_title(ControlState& state) {
  const String proposal = state.document.yVarName(1);
  const String answer = state.shell.input_prompt("Enter x axis title.", "KURV", proposal);
  if (answer.empty()) return;
  const StepRecorder step(state, {"Change X Axis Title"});
  state.document.yVarName(1) = answer;
  build_the_graph(state);
}

void store_axis_font(GraphDocument& document, const Font& font) {
  document.FontName = font.FontName;
  document.FontSize = font.FontSize;
  document.FontBold = font.FontBold;
  document.FontItalic = font.FontItalic;
}

void store_title_font(GraphDocument& document, const Font& font) {
  document.TitleFontName = font.FontName;
  document.TitleFontSize = font.FontSize;
  document.TitleFontBold = font.FontBold;
  document.TitleFontItalic = font.FontItalic;
}

void store_subtitle_font(GraphDocument& document, const Font& font) {
  document.SubTitleFontName = font.FontName;
  document.SubTitleFontSize = font.FontSize;
  document.SubTitleFontBold = font.FontBold;
  document.SubTitleFontItalic = font.FontItalic;
}

std::optional<Font> ask_for_font(Shell& shell, const Font& preset, const char* title) {
  auto* const titled = dynamic_cast<TitledFontDialog*>(&shell);
  return titled ? titled->choose_font(preset, title) : shell.choose_font(preset);
}

void prompt_font(ControlState& state, const Font& preset, const char* title, const char* step_name,
                 void (*store)(GraphDocument&, const Font&)) {
  const std::optional<Font> font = ask_for_font(state.shell, preset, title);
  if (!font) return;
  const StepRecorder step(state, {step_name});
  store(state.document, *font);
  build_the_graph(state);
}

}  // namespace

void prompt(ControlState& state, PromptedSetting setting) {
  switch (setting) {
    case PromptedSetting::kMarkerSize:
      return prompt_marker_size(state);
    case PromptedSetting::kLeftMargin:
      return prompt_margin(state, Margin::kLeft);
    case PromptedSetting::kRightMargin:
      return prompt_margin(state, Margin::kRight);
    case PromptedSetting::kTopMargin:
      return prompt_margin(state, Margin::kTop);
    case PromptedSetting::kBottomMargin:
      return prompt_margin(state, Margin::kBottom);
    case PromptedSetting::kXAxisTitle:
      return prompt_x_title(state);
    case PromptedSetting::kAxisFont:
      return prompt_font(state, axis_font(state.document), "Axis and Legend Font",
                         "Change Axis Font", store_axis_font);
    case PromptedSetting::kTitleFont:
      return prompt_font(state, title_font(state.document), "Title Font", "Change Title Font",
                         store_title_font);
    case PromptedSetting::kSubtitleFont:
      return prompt_font(state, subtitle_font(state.document), "Subtitle Font",
                         "Change Subtitle Font", store_subtitle_font);
  }
}

const char* step_name(Margin margin) {
  switch (margin) {
    case Margin::kLeft:
      return "Change Left Margin";
    case Margin::kRight:
      return "Change Right Margin";
    case Margin::kTop:
      return "Change Top Margin";
    case Margin::kBottom:
      break;
  }
  return "Change Bottom Margin";
}

bool accepts_margin(const ControlState& state, Margin margin, Integer twips) {
  const GraphDocument& document = state.document;
  const Double width = state.surface.ScaleWidth();
  const Double height = state.surface.ScaleHeight();
  if (twips <= 0) return false;
  switch (margin) {
    case Margin::kLeft:
      return twips < width - document.Right_margine && twips < width;
    case Margin::kRight:
      return twips < width - document.Left_margine && twips < width;
    case Margin::kTop:
      return twips < height - document.Bottom_margine;
    case Margin::kBottom:
      break;
  }
  // The width is tested too, although this is a vertical margin: without the test, a portrait
  // surface would accept margins that it must refuse.
  return twips < height - document.Top_margine && twips < width;
}

bool set_margin(ControlState& state, Margin margin, Integer twips) {
  const bool accepted = accepts_margin(state, margin, twips);
  if (accepted) {
    field_of(state.document, margin) = twips;
  } else {
    refuse_margin(state);
  }
  return accepted;
}

}  // namespace kurv
