// The keys of commands.
#pragma once

#include <QKeyEvent>

namespace kurv {

// The command word of a key, null where it has none. Undo and redo have keys while they are on.
const char* shortcut_word(const QKeyEvent& event, bool can_undo);

}  // namespace kurv
