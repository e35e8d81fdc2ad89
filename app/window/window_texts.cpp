#include "app/window/window_texts.h"

#include <KurvGraph/fault.h>

#include <QFile>
#include <filesystem>

#include "app/base/fault_words.h"
#include "app/base/message_text.h"

namespace kurv::app {

QString file_label(const std::string& path) {
  const std::string name = std::filesystem::path(path).filename().string();
  return QFile::decodeName(on_one_line(name).c_str());
}

QString window_title(const std::string& path, bool has_data) {
  constexpr const char* kProgram = "kurv";
  if (path.empty() && !has_data) return kProgram;
  // "[*]" is Qt's placeholder for the mark of unsaved changes; doubled, it is plain text.
  const QString name =
      path.empty() ? QString("Untitled") : file_label(path).replace("[*]", "[*][*]");
  return name + QStringLiteral("[*] \u2013 ") + kProgram;
}

QString failed_label(const std::string& file, const std::string& path) {
  if (!file.empty() && file != path) return QFile::decodeName(on_one_line(file).c_str());
  return path.empty() ? QString("The graph") : file_label(path);
}

QString run_time_error(FaultKind kind, const std::string& file, const std::string& path) {
  const Attempt attempt = attempt_at(kind, !file.empty());
  return failed_label(file, path) + QString::fromStdString(fault_clause(attempt, kind));
}

// The text is more than that of the number where it names a file, which may be the graph's own.
QString run_time_error(int number, const QString& text, const std::string& path) {
  const auto kind = static_cast<FaultKind>(number);
  const QString reason = fault_text(kind);
  if (text == reason) return run_time_error(kind, {}, path);
  const QString end = ": " + reason;
  if (!text.endsWith(end)) return text + '.';
  const QString file = text.chopped(end.size());
  if (file == QFile::decodeName(path.c_str())) return run_time_error(kind, path, path);
  return file + QString::fromStdString(fault_clause(attempt_at(kind, true), kind));
}

QString menu_label(const QString& text) {
  return QString(text).replace(u'&', QLatin1String("&&"));
}

QString capitalised(QString text) {
  if (!text.isEmpty()) text[0] = text[0].toUpper();
  return text;
}

QString sentence(const std::string& text, const std::string& path) {
  const QString shown = QString::fromStdString(text);
  return text.starts_with(path) ? shown : capitalised(shown);
}

// As in "...; --dates changes that." or "...; --x 3 takes the dates of "day"."
std::string without_advice(const std::string& note) {
  const std::size_t advice = note.rfind("; --");
  return advice == std::string::npos ? note : note.substr(0, advice) + '.';
}

QString empty_window_hint() {
  return "Open or drop a table or a graph file here";
}

QString refused_data_hint(const std::string& path) {
  return "Nothing is shown: the data" + (path.empty() ? "" : " of " + file_label(path)) +
         " cannot be plotted.\n\nCorrect them in Edit > Data Table: at least two points need "
         "different values of x.";
}

QString getting_started() {
  return "Open or drop a table (CSV, .xlsx, .ods, JSON) or a graph file (.gdf) to see its "
         "curves.\n\n"
         "\u2022 Drag the title, the subtitle or the legend to move it.\n"
         "\u2022 Double-click the title, the legend, an axis or its numbers to change it.\n"
         "\u2022 Turn the wheel to zoom, hold the middle button to move, Ctrl+0 shows all again.\n"
         "\u2022 Ctrl+Z takes back the last change, Ctrl+Shift+Z makes it again.\n"
         "\u2022 Right-click the graph for settings, formulas and functions.\n"
         "\u2022 Graph > Curves and Functions hides, renames and adds curves.\n"
         "\u2022 Edit > Data Table shows the numbers and lets you edit them.\n"
         "\u2022 Graph > Refresh puts the titles and the legend where they fit.\n\n"
         "File > Save keeps everything in a graph file; File > Export Picture saves a picture of "
         "it.";
}

QString about_kurv() {
  return "kurv " KURV_VERSION
         "\n\nDraws tables of numbers as graphs.\n\n"
         "Copyright \u00a9 The KurvGraph authors\nMIT licence";
}

}  // namespace kurv::app
