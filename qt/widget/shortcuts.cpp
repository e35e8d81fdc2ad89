#include "qt/widget/shortcuts.h"

#include <algorithm>
#include <span>

namespace kurv {

namespace {

struct Shortcut {
  Qt::Key key;
  Qt::KeyboardModifiers modifiers;
  const char* word;
};

constexpr Shortcut kShortcuts[] = {
    {Qt::Key_S, Qt::ControlModifier, "save"},  {Qt::Key_O, Qt::ControlModifier, "open"},
    {Qt::Key_P, Qt::ControlModifier, "print"}, {Qt::Key_C, Qt::ControlModifier, "copy"},
    {Qt::Key_F5, Qt::NoModifier, "refresh"},
};
// While undo is on.
constexpr Shortcut kUndoShortcuts[] = {
    {Qt::Key_Z, Qt::ControlModifier, "undo"},
    {Qt::Key_Y, Qt::ControlModifier, "redo"},
    {Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier, "redo"},
};

const char* word_of(const QKeyEvent& event, std::span<const Shortcut> shortcuts) {
  const auto is_it = [&](const Shortcut& shortcut) {
    return event.key() == shortcut.key && event.modifiers() == shortcut.modifiers;
  };
  const auto found = std::find_if(shortcuts.begin(), shortcuts.end(), is_it);
  return found == shortcuts.end() ? nullptr : found->word;
}

}  // namespace

const char* shortcut_word(const QKeyEvent& event, bool can_undo) {
  const char* const word = word_of(event, kShortcuts);
  return word || !can_undo ? word : word_of(event, kUndoShortcuts);
}

}  // namespace kurv
