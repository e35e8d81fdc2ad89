// The control for C, and for every language that can call C: C99, without a C++ type in sight.
//
//   kurv_graph graph;
//   if (kurv_create_pixels(720, 480, 1, &graph) != KURV_OK) return 1;
//   kurv_value title = kurv_string("Squares");
//   kurv_let(graph, "Title", &title);
//   kurv_destroy(graph);
//
// Results. A function that can fail returns KURV_OK or an error number, and then writes nothing to
// its results. No C++ exception leaves the library, and an invalid handle or null pointer is an
// error. A pointer that is not null must be valid, and so must the counts that go with it.
//
// Memory. What is passed to a function is read before it returns, and belongs to the caller. What a
// function returns belongs to the library, and its comment says how long it is valid; values of
// kurv_get() and kurv_call() are released by kurv_value_clear().
//
// Threads. A graph belongs to the thread that has made it, and another one gets KURV_WRONG_THREAD;
// only kurv_destroy() and kurv_detach() may be called from everywhere. Graphs with a widget belong
// to the thread of the toolkit's application. Different threads may use different graphs at once.
//
// Texts are UTF-8. They have a length, so they may contain NUL characters, and are followed by one
// where the library returns them.
//
// Versions. Functions and constants are only added. A structure with a `size` may grow at its end:
// the caller sets `size` to its sizeof(), and the library fills in the members that fit. All other
// structures stay as they are.
#pragma once

#include <stddef.h>
#include <stdint.h>

#include <KurvGraph/export.h>
#include <KurvGraph/kurvgraph_c_values.h>

#ifdef __cplusplus
extern "C" {
#endif

// The version of this header, and that of the library, as major * 10000 + minor * 100 + patch.
#define KURV_VERSION 10000
KURV_EXPORT int32_t kurv_version(void);

// -- Errors -------------------------------------------------------------------------------------

// Below zero: the caller has broken a rule of this interface. Above zero: the run-time errors of
// the control, with the numbers that every host gets.
enum {
  KURV_OK = 0,
  KURV_INVALID_HANDLE = -1,  // no such graph, or one that has been destroyed
  KURV_WRONG_THREAD = -2,    // the graph belongs to another thread
  KURV_NO_APPLICATION = -3,  // the toolkit's application has to be made first
  KURV_NO_WIDGET = -4,       // the graph has pixels only
  KURV_INTERNAL_ERROR = -5,  // an unexpected failure, which the detail describes
  KURV_INVALID_CALL = 5,     // an argument that is not accepted
  KURV_OVERFLOW = 6,         // a number that does not fit
  KURV_OUT_OF_MEMORY = 7,
  KURV_OUT_OF_RANGE = 9,  // an array is shorter than a count says
  KURV_DIVISION_BY_ZERO = 11,
  KURV_TYPE_MISMATCH = 13,
  KURV_FILE_NOT_FOUND = 53,
  KURV_DEVICE_ERROR = 57,
  KURV_DISK_FULL = 61,
  KURV_INPUT_PAST_END = 62,
  KURV_PERMISSION_DENIED = 70,
  KURV_FILE_ACCESS_ERROR = 75,
  KURV_PATH_NOT_FOUND = 76,
  KURV_CANNOT_CREATE = 429,
  KURV_NO_SUCH_MEMBER = 438,
  KURV_ARGUMENT_MISSING = 449,
  KURV_TOO_MANY_ARGUMENTS = 450
};

typedef struct kurv_error {
  size_t size;
  int32_t number;
  kurv_text text;    // such as "Type mismatch"
  kurv_text detail;  // the file, argument or sentence that it is about; empty where there is none
} kurv_error;

// The last error of the calling thread: KURV_OK before the first. Calls that succeed do not change
// it. The texts are valid until the next call of this thread that fails.
KURV_EXPORT int32_t kurv_last_error(kurv_error* error);

// -- Graphs -------------------------------------------------------------------------------------

// A handle: null, or a number that is never given twice. It points to nothing.
typedef struct kurv_graph_handle* kurv_graph;

// A graph that draws into pixels, without a window or a toolkit: its size in logical pixels, and
// the device pixels per logical one. KURV_INVALID_CALL for a size that is not 1 to 32767, or a
// ratio that is not above 0 and at most 16. The library makes 32767 graphs in the life of a
// process, destroyed ones included; the next is KURV_OVERFLOW.
KURV_EXPORT int32_t kurv_create_pixels(int32_t width, int32_t height, double ratio,
                                       kurv_graph* graph);
// A graph that is a widget: a child of `parent`, which is a QWidget*, or one without a parent where
// it is null. The QWidget* of the graph is stored in `widget`, unless that is null. It is hidden
// until the toolkit shows it. Whoever deletes the widget, its parent too, ends the graph.
KURV_EXPORT int32_t kurv_create_widget(void* parent, kurv_graph* graph, void** widget);
// The same in a native window, a window identifier of X11, at its top left corner and shown; where
// there is no QApplication, one is made. KURV_CANNOT_CREATE where there is no such window.
KURV_EXPORT int32_t kurv_create_in_window(uintptr_t window, int32_t width, int32_t height,
                                          kurv_graph* graph, void** widget);
// The QWidget* of a graph; KURV_NO_WIDGET where it has pixels only.
KURV_EXPORT int32_t kurv_get_widget(kurv_graph graph, void** widget);
// Handles what has happened to windows since the last call, for hosts whose event loop is not that
// of the toolkit; waits at most so long for something to happen.
KURV_EXPORT int32_t kurv_process_events(int32_t milliseconds);

// Ends the graph, a widget too; the handle is invalid from then on. In a call of the graph's own
// listener it ends with the call that is in progress. From another thread a widget is deleted when
// its own thread gets there.
KURV_EXPORT int32_t kurv_destroy(kurv_graph graph);
// Invalidates the handle and leaves a widget to its parent. What has no parent ends as above.
KURV_EXPORT int32_t kurv_detach(kurv_graph graph);
// The graphs that exist in the process.
KURV_EXPORT size_t kurv_living(void);

// -- Members ------------------------------------------------------------------------------------

// The kinds of members.
enum { KURV_METHOD = 1, KURV_PROPERTY = 2, KURV_EVENT = 3 };

typedef struct kurv_member {
  size_t size;
  const char* name;
  uint32_t dispatch_id;
  int32_t kind;
  int32_t type;            // of a property
  size_t parameter_count;  // of a method or an event
  const char* summary;
  const char* initially;  // the value of a property of a new graph
  const char* unit;       // of a number; empty where it has none
} kurv_member;

typedef struct kurv_parameter {
  size_t size;
  const char* name;
  int32_t type;
  int32_t optional;  // not zero: may be omitted
} kurv_parameter;

// Methods, properties and events, in the order of the interface, counted from 0. Texts are valid as
// long as the library is loaded. KURV_OUT_OF_RANGE where there is no such row.
KURV_EXPORT size_t kurv_member_count(void);
KURV_EXPORT int32_t kurv_member_at(size_t index, kurv_member* member);
KURV_EXPORT int32_t kurv_parameter_at(size_t member, size_t index, kurv_parameter* parameter);
// The index of a member by its name, in any letter case.
KURV_EXPORT int32_t kurv_find_member(const char* name, size_t* index);

// A property's value, which kurv_value_clear() releases; the value before is not released.
KURV_EXPORT int32_t kurv_get(kurv_graph graph, const char* name, kurv_value* value);
KURV_EXPORT int32_t kurv_get_by_id(kurv_graph graph, uint32_t dispatch_id, kurv_value* value);
// Sets a property. Numbers, texts and truth values are converted to its type.
KURV_EXPORT int32_t kurv_let(kurv_graph graph, const char* name, const kurv_value* value);
KURV_EXPORT int32_t kurv_let_by_id(kurv_graph graph, uint32_t dispatch_id, const kurv_value* value);
// Calls a method. Optional arguments are omitted by KURV_MISSING or a lower count. Arguments are
// passed by reference: one that the method has changed is replaced by a value that
// kurv_value_clear() releases, while the caller's own arrays stay as they are.
KURV_EXPORT int32_t kurv_call(kurv_graph graph, const char* name, kurv_value* arguments,
                              size_t count);
KURV_EXPORT int32_t kurv_call_by_id(kurv_graph graph, uint32_t dispatch_id, kurv_value* arguments,
                                    size_t count);

// Adds a function curve, an expression of x; or a curve that is computed from x and other curves by
// their names. Both redraw. KURV_INVALID_CALL for an expression or a name that is not accepted; the
// detail of the error is a sentence that says why.
KURV_EXPORT int32_t kurv_add_function(kurv_graph graph, const char* expression);
KURV_EXPORT int32_t kurv_derive(kurv_graph graph, const char* name, const char* expression);

// For data that grow while they are shown. `points` is a KURV_MATRIX of all columns that were
// loaded, x first, both indices from 1; `names` are the names of these columns, as KURV_STRINGS.
// kurv_append_points() adds points at the end, and drops the first ones beyond 32767.
// kurv_replace_points() puts them in the place of all points, and the names in the place of those
// that nobody has changed. Derived curves follow, and what has been set stays. Both redraw.
// KURV_OUT_OF_RANGE for another number of columns.
KURV_EXPORT int32_t kurv_append_points(kurv_graph graph, const kurv_value* points);
KURV_EXPORT int32_t kurv_replace_points(kurv_graph graph, const kurv_value* points,
                                        const kurv_value* names);

// -- Pictures and files -------------------------------------------------------------------------

// The formats of pixels.
enum {
  KURV_ARGB32 = 1,  // a 32-bit number for each pixel, 0xFFRRGGBB
  KURV_RGBA8 = 2    // four bytes for each pixel: red, green, blue, 255
};

typedef struct kurv_pixels {
  size_t size;
  const void* pixels;
  int32_t width;  // in device pixels
  int32_t height;
  int64_t stride;  // bytes from a row to the next, which is the one below it
  int32_t format;  // KURV_ARGB32
} kurv_pixels;

// What has been drawn, of a widget the plot. Valid until the next call for this graph.
KURV_EXPORT int32_t kurv_get_pixels(kurv_graph graph, kurv_pixels* pixels);
// Copies it in a format, rows without gaps, into a buffer of at least width * height * 4 bytes.
// KURV_INVALID_CALL where the buffer is smaller.
KURV_EXPORT int32_t kurv_copy_pixels(kurv_graph graph, int32_t format, void* buffer, size_t bytes);
// Saves it as a PNG file. An older file is replaced as a whole, or stays as it was.
KURV_EXPORT int32_t kurv_save_png(kurv_graph graph, const char* path);
// Saves the graph as a graph file, for file_load().
KURV_EXPORT int32_t kurv_save_graph(kurv_graph graph, const char* path);
// Another size, within the limits of kurv_create_pixels(), and a redraw. A widget has the ratio of
// its screen.
KURV_EXPORT int32_t kurv_resize(kurv_graph graph, int32_t width, int32_t height, double ratio);

// -- Events -------------------------------------------------------------------------------------

// Notices besides the events of the interface, whose identifiers are those of the member table.
enum {
  KURV_MOUSE_UP = 1,           // of the interface: Button, Shift, x, Y
  KURV_MESSAGE = 0x7F000001,   // of pixels: a message box, text, flags, title
  KURV_REDRAWN = 0x7F000002,   // a complete redraw; no arguments
  KURV_DESTROYED = 0x7F000003  // of a widget: it has been deleted; the handle is invalid by now
};

typedef struct kurv_event {
  size_t size;
  const char* name;  // "MouseUp", "message", "redrawn", "destroyed"
  uint32_t id;
  const kurv_value* arguments;  // valid during the call
  size_t count;
} kurv_event;

typedef void (*kurv_listener)(kurv_graph graph, const kurv_event* event, void* user);

// Calls the listener for each event, on the thread of the graph; one for each graph, null for none.
// `user` is passed on and belongs to the caller. A listener may call everything, kurv_destroy()
// too. It must return: no exception and no longjmp() may leave it.
KURV_EXPORT int32_t kurv_listen(kurv_graph graph, kurv_listener listener, void* user);

// The mouse on a graph that draws into pixels: a button went down or up at a point in twips of the
// surface. Button is 1 left, 2 right, 4 middle; shift adds up 1 shift, 2 control, 4 alt.
// KURV_INVALID_CALL for a widget, which has the mouse of its window.
KURV_EXPORT int32_t kurv_press_mouse(kurv_graph graph, int16_t button, int16_t shift, float x,
                                     float y);
KURV_EXPORT int32_t kurv_release_mouse(kurv_graph graph, int16_t button, int16_t shift, float x,
                                       float y);

// -- The library as an in-process automation server ---------------------------------------------

// The class identifier of the control.
#define KURV_CLASS_ID "{6F0C52B1-7D0E-4C43-9A5C-0E8B1D3F7A26}"

// Makes graphs of one class. It belongs to the library and is valid as long as that is loaded.
typedef struct kurv_class_object {
  size_t size;
  const char* class_id;
  const char* name;  // "KurvGraph"
  // As kurv_create_pixels().
  int32_t (*create_instance)(int32_t width, int32_t height, double ratio, kurv_graph* graph);
} kurv_class_object;

// Enters the class of the control into the class registry of the process, or removes it; again has
// no effect. The registry is not locked: no other thread may use the library meanwhile. KURV_OK or
// KURV_OUT_OF_MEMORY.
KURV_EXPORT int32_t kurv_DllRegisterServer(void);
KURV_EXPORT int32_t kurv_DllUnregisterServer(void);
// A graph in pixels of the class that is registered for the identifier. KURV_CANNOT_CREATE where
// there is none, KURV_TYPE_MISMATCH where it is the class of something else.
KURV_EXPORT int32_t kurv_create_object(const char* class_id, int32_t width, int32_t height,
                                       double ratio, kurv_graph* graph);
// The class object for a class identifier, in any letter case, registered or not. KURV_OK;
// KURV_INVALID_CALL for null pointers; KURV_CANNOT_CREATE for other classes, and `object` is null.
KURV_EXPORT int32_t kurv_DllGetClassObject(const char* class_id, const kurv_class_object** object);
// KURV_OK where no graph exists and the class is not registered, so that the library may be
// unloaded; otherwise KURV_IN_USE.
#define KURV_IN_USE 1
KURV_EXPORT int32_t kurv_DllCanUnloadNow(void);

#ifdef __cplusplus
}
#endif
