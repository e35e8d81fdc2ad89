// Parses the values of the command line's options. Invalid ones throw UserError with
// kUsageFailure.
#pragma once

#include <QLocale>
#include <QSize>
#include <string>
#include <string_view>
#include <vector>

#include "app/command_line/command_line.h"

namespace kurv::app {

// "1000x700", from 1x1 to 7680x4320.
QSize parse_size(std::string_view text);

// A number from 0.5 to 8, with a decimal point.
double parse_scale(std::string_view text);

// A whole number above zero.
std::size_t parse_every(std::string_view text);

// Whether limits are round: "round" or "rule".
bool parse_limits(std::string_view text);

// Names between commas; one that holds a comma is in quotation marks.
std::vector<std::string> parse_names(std::string_view text, const std::string& option);

// "PROPERTY=VALUE". The name is found in any letter case. A font size is above 0 and at most 32767,
// and a limit is finite.
Setting parse_setting(std::string_view text);

// "NAME=EXPRESSION"; neither may be empty.
Derivation parse_derivation(std::string_view text);

// A locale's name, such as "de_DE", whose decimal separator is a point or a comma.
QLocale parse_locale(const std::string& text);

// Refuses a picture of more pixels than the largest one has at twice its size, or with a side of
// more than 32767.
void check_picture_size(QSize size, double scale);

}  // namespace kurv::app
