// What the main window says in its title and its help.
#pragma once

#include <QString>
#include <string>

namespace kurv::app {

// A file's name without its folder, on one line, as a person reads it: a name is bytes, and those
// that are no text are shown as question marks.
QString file_label(const std::string& path);

// The title of a window, with the toolkit's place for the mark of unsaved work.
QString window_title(const std::string& path);

// For menus: an ampersand would be taken for a mnemonic.
QString menu_label(const QString& text);

// With a capital letter at its beginning, as sentences in boxes have it.
QString capitalised(QString text);

// What the command line says about a file, for a box: a sentence that begins with the file's path
// is left as it is.
QString sentence(const std::string& text, const std::string& path);

QString empty_window_hint();
QString refused_data_hint(const std::string& path);
QString getting_started();
QString about_kurv();

}  // namespace kurv::app
