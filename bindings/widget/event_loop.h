// The toolkit's application and its events, in a program that does not know the toolkit.
#pragma once

namespace kurv::c {

// Where the host has none. It exists until the process ends.
void make_application();

// Handles the events that are there. Where there are none, waits at most so long for some.
void process_events(int milliseconds);

}  // namespace kurv::c
