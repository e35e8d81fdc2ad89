// The three windows, of which a process has one each, and whose graph each of them serves.
#pragma once

#include <KurvGraph/shell.h>

#include "dialogs/client.h"

namespace kurv {

// Makes the graph the client of all three. A window that is visible for another graph closes first.
void load_windows(Client& client);
// Shows a window for the client, above the window that the client stands in. Returns at once, but
// from frmCurves when it has been closed.
void show_window(Window window, Client& client, Integer page);
// Takes the windows from whichever graph they serve and closes them for good.
void unload_windows();
// The same for those that serve this client.
void release_windows(const Client& client);
// Someone has changed the client's graph: its visible windows show that.
void refill_windows(const Client& client);

}  // namespace kurv
