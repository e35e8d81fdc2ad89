// A desktop as a user sees it: title bars, a keyboard, a mouse, and the contents of the screen. The
// tests use nothing else of the programs on it.
#pragma once

#include <gtest/gtest.h>

#include <QImage>
#include <QPoint>
#include <QRect>
#include <QString>
#include <QStringList>
#include <functional>

namespace kurv::test {

// What a program has printed once it has ended well; a failure of the test otherwise.
QString printed_by(const QString& program, const QStringList& arguments);

// Waits for as long as a busy machine may take for one step of a user.
testing::AssertionResult comes_true(const QString& what, const std::function<bool()>& condition);

// Whether the window with the keyboard's focus gets to be the one with this title.
testing::AssertionResult comes_to_front(const QString& title);

// Keys by the names that xdotool gives them, such as "ctrl+s".
void press(const QStringList& keys);
void type(const QString& text);

// Places of the mouse are on the screen, in pixels. Where nobody says otherwise, the pointer then
// leaves, and takes its tool tips with it.
enum class Button { kLeft = 1, kMiddle, kRight, kWheelUp, kWheelDown };
void point_at(QPoint at);  // stays there
void point_away();
void click(QPoint at, Button button);  // stays there
// Turns the wheel by one notch.
void turn_wheel(QPoint at, Button direction);
// Drags from one point to another, perhaps with a key held, such as "ctrl".
void drag(QPoint from, QPoint to, Button button = Button::kLeft, const QString& key = {});

QImage screen_image();

// The window in front, without its frame.
struct FrontWindow {
  QPoint place;  // on the screen
  QImage image;
};
FrontWindow front_window();

// The part of the window with a picture on a white background, from its left to its right edge.
QRect paper_in(const QImage& window);

// The middle of the black lines around the plot in such a picture.
QRect frame_in(const QImage& paper);

}  // namespace kurv::test
