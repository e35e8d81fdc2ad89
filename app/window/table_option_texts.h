// The options of a table in words, for the import window.
#pragma once

#include <QString>
#include <string>
#include <vector>

#include "app/window/table_reader.h"

namespace kurv::app {

// A value of an option, and its words: "semicolon".
struct OptionWord {
  int value;
  const char* text;
};

// The values that the lists of the import window offer.
const std::vector<OptionWord>& separator_words();
const std::vector<OptionWord>& header_words();
const std::vector<OptionWord>& decimal_words();
const std::vector<OptionWord>& thousands_words();
const std::vector<OptionWord>& date_words();
const std::vector<Encoding>& all_encodings();

// The word of a value, and a character that has none in quotation marks.
QString word_of(const std::vector<OptionWord>& words, int value);
QString word_of_comment(const std::string& comment);
// How the header and the dates of a table have been understood.
QString word_of_header(const CsvDialect& dialect);
QString word_of_dates(ReadTable& read);

// Everything that is set, in one line: "semicolon, decimal comma, 2 lines skipped".
QString described(const TableOptions& options);

}  // namespace kurv::app
