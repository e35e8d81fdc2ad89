// The three windows, each once in a process, and their clients.
#pragma once

#include <KurvGraph/shell.h>

#include "dialogs/client.h"

namespace kurv {

// Makes the graph the client of all three. A window that is visible for another graph closes first.
void load_windows(Client& client);
// Shows a window for the client, above the window that contains the client. Returns at once, except
// for frmCurves, which is modal: then it returns when the window has been closed.
void show_window(Window window, Client& client, Integer page);
// Closes and deletes all windows, whichever client they have.
void unload_windows();
// The same for the windows of this client only.
void release_windows(const Client& client);
// Refills the visible windows of the client, after its graph has changed.
void refill_windows(const Client& client);

}  // namespace kurv
