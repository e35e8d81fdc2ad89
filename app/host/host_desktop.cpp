#include "app/host/host_desktop.h"

#include <KurvGraph/limits.h>

#include <algorithm>
#include <utility>

#include "app/host/host_fault.h"
#include "app/host/host_values.h"
#include "app/host/value_detail.h"

namespace kurv::app {

namespace {

QString qt_text(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

Single size_in(const QJsonObject& font, Single preset) {
  const QJsonValue size = font["size"];
  const bool is_given = !size.isUndefined() && !size.isNull();
  return with_detail(
      [&] {
        return font_size_from(is_given ? from_json(size, ValueType::kSingle) : Variant(preset));
      },
      [&](const Fault&) {
        return is_given ? "the 'size' of an answer " + font_size_detail(size) : std::string();
      });
}

}  // namespace

void HostShell::queue(const QJsonArray& answers) {
  for (const QJsonValue& answer : answers) m_answers.append(answer);
}

QJsonArray HostShell::take_shown() {
  return std::exchange(m_shown, {});
}

QJsonValue HostShell::next_answer() {
  return m_answers.isEmpty() ? QJsonValue(QJsonValue::Null) : m_answers.takeAt(0);
}

FileChoice HostShell::next_file() {
  const QJsonObject entry = next_answer().toObject();
  m_chosen_file = entry["path"].toString().toStdString();
  return {m_chosen_file, entry["filter"].toInt(1)};
}

Answer HostShell::message_box(std::string_view text, int flags, std::string_view title) {
  m_shown.append(QJsonObject{
      {"kind", "message"}, {"text", qt_text(text)}, {"title", qt_text(title)}, {"flags", flags}});
  if (flags != kYesNoQuestion) return Answer::kOk;
  const QString answer = next_answer().toString();
  return answer.compare("yes", Qt::CaseInsensitive) == 0 ? Answer::kYes : Answer::kNo;
}

String HostShell::input_prompt(std::string_view text, std::string_view title,
                               std::string_view default_text) {
  m_shown.append(QJsonObject{{"kind", "prompt"},
                             {"text", qt_text(text)},
                             {"title", qt_text(title)},
                             {"default", qt_text(default_text)}});
  return next_answer().toString().toStdString();
}

void HostShell::beep() {
  m_shown.append(QJsonObject{{"kind", "beep"}});
}

FileChoice HostShell::open_file(const OpenDialog& dialog) {
  m_shown.append(QJsonObject{{"kind", "open"},
                             {"title", qt_text(dialog.title)},
                             {"filter", qt_text(dialog.filter)},
                             {"default_extension", qt_text(dialog.default_extension)}});
  return next_file();
}

FileChoice HostShell::save_file(const SaveDialog& dialog) {
  m_shown.append(QJsonObject{{"kind", "save"},
                             {"title", qt_text(dialog.title)},
                             {"filter", qt_text(dialog.filter)},
                             {"default_extension", qt_text(dialog.default_extension)},
                             {"file_name", qt_text(dialog.file_name)},
                             {"flags", dialog.flags}});
  return next_file();
}

std::optional<Font> HostShell::choose_font(const Font& preset) {
  m_shown.append(QJsonObject{{"kind", "font"},
                             {"name", qt_text(preset.FontName)},
                             {"size", to_json(Variant(preset.FontSize))},
                             {"bold", preset.FontBold},
                             {"italic", preset.FontItalic}});
  const QJsonValue answer = next_answer();
  if (!answer.isObject()) return std::nullopt;
  const QJsonObject entry = answer.toObject();
  return Font{entry["name"].toString(qt_text(preset.FontName)).toStdString(),
              size_in(entry, preset.FontSize), entry["bold"].toBool(preset.FontBold),
              entry["italic"].toBool(preset.FontItalic)};
}

void HostShell::copy_picture(std::string_view) {
  m_shown.append(QJsonObject{{"kind", "copy"}});
}

void HostShell::show_window(Window window, Integer page) {
  const char* name = window == Window::kCurves  ? "frmCurves"
                     : window == Window::kTable ? "frmTable"
                                                : "frmPropert";
  m_shown.append(QJsonObject{{"kind", "window"}, {"name", name}, {"page", page}});
}

// Clamped to what a surface can have.
void HostContainer::set_side(Single& side, Single twips) {
  const Single possible = std::clamp(twips, 1.0F, Single{kMaxSide});
  if (std::exchange(side, possible) != possible && m_resized) m_resized();
}

QJsonArray HostContainer::take_events() {
  return std::exchange(m_events, {});
}

void HostContainer::MouseUp(Integer Button, Integer Shift, Single x, Single Y) {
  m_events.append(
      QJsonObject{{"name", "MouseUp"},
                  {"args", QJsonArray{Button, Shift, to_json(Variant(x)), to_json(Variant(Y))}}});
}

}  // namespace kurv::app
