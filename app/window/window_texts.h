// The texts of the main window.
#pragma once

#include <KurvGraph/fault.h>

#include <QString>
#include <string>

namespace kurv::app {

// A file's name without its folder, on one line. A name may hold any bytes; those that are not text
// are shown as replacement characters.
QString file_label(const std::string& path);

// The title of a window, with Qt's placeholder "[*]" for the mark of unsaved changes. A graph
// without a file is untitled.
QString window_title(const std::string& path, bool has_data);

// What an error is about: `file`, as it was named; without one the graph from `path`, which is
// shown as file_label() does.
QString failed_label(const std::string& file, const std::string& path);

// The sentence for a fault of the graph from `path`; `file` is the one that the fault names.
QString run_time_error(FaultKind kind, const std::string& file, const std::string& path);
// The same for the arguments of a runTimeError().
QString run_time_error(int number, const QString& text, const std::string& path);

// For menus: with ampersands escaped, which would mark a mnemonic.
QString menu_label(const QString& text);

// With a capital first letter, for message boxes.
QString capitalised(QString text);

// A message of the command line for a box: capitalised, unless it begins with the file's path.
QString sentence(const std::string& text, const std::string& path);

// A note about a table without what it says about an option that changes it.
std::string without_advice(const std::string& note);

QString empty_window_hint();
QString refused_data_hint(const std::string& path);
QString getting_started();
QString about_kurv();

}  // namespace kurv::app
