// Texts on the screen, as a user reads them: in windows, menus and status bars alike, whatever
// their colours are.
#pragma once

#include <gtest/gtest.h>

#include <QString>

namespace kurv::test {

// Whether this text gets to be on the screen, in the font of the desktop. As in the texts of menus,
// an ampersand underlines the letter after it.
testing::AssertionResult comes_to_show(const QString& text);

}  // namespace kurv::test
