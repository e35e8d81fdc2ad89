/// @file
/// The control for C, and for every language that can call C: C99, without a C++ type in sight.
///
///     kurv_graph graph;
///     if (kurv_create_pixels(720, 480, 1, &graph) != KURV_OK) return 1;
///     kurv_value title = kurv_string("Squares");
///     kurv_let(graph, "Title", &title);
///     kurv_destroy(graph);
///
/// Results. A function that can fail returns KURV_OK or an error number, and then writes nothing to
/// its results. No C++ exception leaves the library, and an invalid handle or null pointer is an
/// error. A pointer that is not null must be valid, and so must the counts that go with it.
///
/// Memory. What is passed to a function is read before it returns, and belongs to the caller. What
/// a function returns belongs to the library, and its comment says how long it is valid; values of
/// kurv_get() and kurv_call() are released by kurv_value_clear().
///
/// Threads. A graph belongs to the thread that has made it, and another one gets KURV_WRONG_THREAD;
/// only kurv_destroy() and kurv_detach() may be called from everywhere. Graphs with a widget belong
/// to the thread of the toolkit's application. Different threads may use different graphs at once.
///
/// Texts are UTF-8. They have a length, so they may contain NUL characters, and are followed by one
/// where the library returns them.
///
/// Versions. Functions and constants are only added. A structure with a `size` may grow at its end:
/// the caller sets `size` to its sizeof(), and the library fills in the members that fit. All other
/// structures stay as they are.
#pragma once

#include <stddef.h>
#include <stdint.h>

#include <KurvGraph/export.h>
#include <KurvGraph/kurvgraph_c_values.h>

#ifdef __cplusplus
extern "C" {
#endif

/// The version of this header, as major * 10000 + minor * 100 + patch.
#define KURV_VERSION 10000
/// The version of the library, in the same form.
KURV_EXPORT int32_t kurv_version(void);

/// @name Errors
/// @{

/// Error numbers. Below zero: the caller has broken a rule of this interface. Above zero: the
/// run-time errors of the control, with the numbers that every host gets.
enum {
  KURV_OK = 0,                   ///< no error
  KURV_INVALID_HANDLE = -1,      ///< no such graph, or one that has been destroyed
  KURV_WRONG_THREAD = -2,        ///< the graph belongs to another thread
  KURV_NO_APPLICATION = -3,      ///< the toolkit's application has to be made first
  KURV_NO_WIDGET = -4,           ///< the graph has pixels only
  KURV_INTERNAL_ERROR = -5,      ///< an unexpected failure, which the detail describes
  KURV_INVALID_CALL = 5,         ///< an argument that is not accepted
  KURV_OVERFLOW = 6,             ///< a number that does not fit
  KURV_OUT_OF_MEMORY = 7,        ///< there is no memory for what was asked
  KURV_OUT_OF_RANGE = 9,         ///< an array is shorter than a count says
  KURV_DIVISION_BY_ZERO = 11,    ///< the limits of an axis are equal, or NumTicks is 0
  KURV_TYPE_MISMATCH = 13,       ///< a value that cannot be converted to its type
  KURV_FILE_NOT_FOUND = 53,      ///< there is no such file
  KURV_DEVICE_ERROR = 57,        ///< reading or writing failed
  KURV_DISK_FULL = 61,           ///< the device has no space left
  KURV_INPUT_PAST_END = 62,      ///< the file ends too early
  KURV_PERMISSION_DENIED = 70,   ///< the file may not be read or written
  KURV_FILE_ACCESS_ERROR = 75,   ///< the path names no regular file, or cannot be opened
  KURV_PATH_NOT_FOUND = 76,      ///< there is no such folder
  KURV_CANNOT_CREATE = 429,      ///< a service, a printer or a window cannot be made
  KURV_NO_SUCH_MEMBER = 438,     ///< there is no such method or property
  KURV_ARGUMENT_MISSING = 449,   ///< an argument that is not optional was omitted
  KURV_TOO_MANY_ARGUMENTS = 450  ///< there are more arguments than parameters
};

/// An error number with its texts.
typedef struct kurv_error {
  size_t size;       ///< sizeof(kurv_error), set by the caller
  int32_t number;    ///< such as KURV_OVERFLOW
  kurv_text text;    ///< such as "Type mismatch"
  kurv_text detail;  ///< the file, argument or sentence that it is about; empty where there is none
} kurv_error;

/// Stores the last error of the calling thread, KURV_OK before the first, in `error`. Calls that
/// succeed do not change it. The texts are valid until the next call of this thread that fails.
KURV_EXPORT int32_t kurv_last_error(kurv_error* error);

/// @}
/// @name Graphs
/// @{

/// A handle: null, or a number that is never given twice. It points to nothing.
typedef struct kurv_graph_handle* kurv_graph;

/// Makes a graph that draws into pixels, without a window or a toolkit: its size in logical pixels,
/// and the device pixels per logical one. KURV_INVALID_CALL for a size that is not 1 to 32767, or a
/// ratio that is not above 0 and at most 16. The library makes 32767 graphs in the life of a
/// process, destroyed ones included; the next is KURV_OVERFLOW.
KURV_EXPORT int32_t kurv_create_pixels(int32_t width, int32_t height, double ratio,
                                       kurv_graph* graph);
/// Makes a graph that is a widget: a child of `parent`, which is a QWidget*, or one without a
/// parent where it is null. The QWidget* of the graph is stored in `widget`, unless that is null.
/// It is hidden until the toolkit shows it. The graph ends when the widget is deleted, also by its
/// parent.
KURV_EXPORT int32_t kurv_create_widget(void* parent, kurv_graph* graph, void** widget);
/// Makes a graph that is a widget in a native window, a window identifier of X11, at its top left
/// corner and shown; where there is no QApplication, one is made. KURV_CANNOT_CREATE where there is
/// no such window.
KURV_EXPORT int32_t kurv_create_in_window(uintptr_t window, int32_t width, int32_t height,
                                          kurv_graph* graph, void** widget);
/// Stores the QWidget* of a graph in `widget`; KURV_NO_WIDGET where it has pixels only.
KURV_EXPORT int32_t kurv_get_widget(kurv_graph graph, void** widget);
/// Handles what has happened to windows since the last call, for hosts whose event loop is not that
/// of the toolkit; waits at most so long for something to happen.
KURV_EXPORT int32_t kurv_process_events(int32_t milliseconds);

/// Ends the graph, a widget too; the handle is invalid from then on. In a call of the graph's own
/// listener it ends with the call that is in progress. From another thread a widget is deleted when
/// its own thread gets there.
KURV_EXPORT int32_t kurv_destroy(kurv_graph graph);
/// Invalidates the handle and leaves a widget to its parent. What has no parent ends as above.
KURV_EXPORT int32_t kurv_detach(kurv_graph graph);
/// How many graphs exist in the process.
KURV_EXPORT size_t kurv_living(void);

/// @}
/// @name Members
/// @{

/// The kinds of members.
enum {
  KURV_METHOD = 1,    ///< a method, which is called
  KURV_PROPERTY = 2,  ///< a property, which is read and set
  KURV_EVENT = 3      ///< an event, which is raised
};

/// A row of the member table.
typedef struct kurv_member {
  size_t size;             ///< sizeof(kurv_member), set by the caller
  const char* name;        ///< in the letter case of the interface
  uint32_t dispatch_id;    ///< never changes
  int32_t kind;            ///< KURV_METHOD, KURV_PROPERTY or KURV_EVENT
  int32_t type;            ///< of a property, such as KURV_INTEGER
  size_t parameter_count;  ///< of a method or an event
  const char* summary;     ///< a sentence or two
  const char* initially;   ///< the value of a property of a new graph
  const char* unit;        ///< of a number; empty where it has none
} kurv_member;

/// A parameter of a method or an event.
typedef struct kurv_parameter {
  size_t size;       ///< sizeof(kurv_parameter), set by the caller
  const char* name;  ///< as in the member table
  int32_t type;      ///< such as KURV_INTEGER
  int32_t optional;  ///< not zero: may be omitted
} kurv_parameter;

/// How many rows the member table has: methods, properties and events, in the order of
/// the interface.
KURV_EXPORT size_t kurv_member_count(void);
/// Stores a row of the member table, counted from 0, in `member`. Texts are valid as long as the
/// library is loaded. KURV_OUT_OF_RANGE where there is no such row.
KURV_EXPORT int32_t kurv_member_at(size_t index, kurv_member* member);
/// Stores a parameter of a row in `parameter`, both counted from 0. Otherwise as kurv_member_at().
KURV_EXPORT int32_t kurv_parameter_at(size_t member, size_t index, kurv_parameter* parameter);
/// Stores the index of the member with that name, in any letter case, in `index`.
KURV_EXPORT int32_t kurv_find_member(const char* name, size_t* index);

/// Stores a property's value, which kurv_value_clear() releases, in `value`; the value before is
/// not released.
KURV_EXPORT int32_t kurv_get(kurv_graph graph, const char* name, kurv_value* value);
/// As kurv_get(), by dispatch identifier.
KURV_EXPORT int32_t kurv_get_by_id(kurv_graph graph, uint32_t dispatch_id, kurv_value* value);
/// Sets a property. Numbers, texts and truth values are converted to its type.
KURV_EXPORT int32_t kurv_let(kurv_graph graph, const char* name, const kurv_value* value);
/// As kurv_let(), by dispatch identifier.
KURV_EXPORT int32_t kurv_let_by_id(kurv_graph graph, uint32_t dispatch_id, const kurv_value* value);
/// Calls a method. Optional arguments are omitted by KURV_MISSING or a lower count. Arguments are
/// passed by reference: one that the method has changed is replaced by a value that
/// kurv_value_clear() releases, while the caller's own arrays stay as they are.
KURV_EXPORT int32_t kurv_call(kurv_graph graph, const char* name, kurv_value* arguments,
                              size_t count);
/// As kurv_call(), by dispatch identifier.
KURV_EXPORT int32_t kurv_call_by_id(kurv_graph graph, uint32_t dispatch_id, kurv_value* arguments,
                                    size_t count);

/// Adds a function curve, an expression of x, and redraws. KURV_INVALID_CALL for an expression that
/// is not accepted; the detail of the error is a sentence that says why.
KURV_EXPORT int32_t kurv_add_function(kurv_graph graph, const char* expression);
/// Adds a curve that is computed from x and other curves by their names, and redraws.
/// KURV_INVALID_CALL for an expression or a name that is not accepted; the detail of the error is a
/// sentence that says why.
KURV_EXPORT int32_t kurv_derive(kurv_graph graph, const char* name, const char* expression);

/// Adds points at the end of data that grow while they are shown, and redraws; the first ones
/// beyond 32767 are dropped. `points` is a KURV_MATRIX of all columns that were loaded, x first,
/// both indices from 1. Derived curves follow, and what has been set stays. KURV_OUT_OF_RANGE for
/// another number of columns.
KURV_EXPORT int32_t kurv_append_points(kurv_graph graph, const kurv_value* points);
/// Puts these points in the place of all points, and the names in the place of those that nobody
/// has changed. `names` are the names of the columns, as KURV_STRINGS. Otherwise as
/// kurv_append_points().
KURV_EXPORT int32_t kurv_replace_points(kurv_graph graph, const kurv_value* points,
                                        const kurv_value* names);

/// @}
/// @name Pictures and files
/// @{

/// The formats of pixels.
enum {
  KURV_ARGB32 = 1,  ///< a 32-bit number for each pixel, 0xFFRRGGBB
  KURV_RGBA8 = 2    ///< four bytes for each pixel: red, green, blue, 255
};

/// The pixels of a graph.
typedef struct kurv_pixels {
  size_t size;         ///< sizeof(kurv_pixels), set by the caller
  const void* pixels;  ///< the top left pixel
  int32_t width;       ///< in device pixels
  int32_t height;      ///< in device pixels
  int64_t stride;      ///< bytes from a row to the next, which is the one below it
  int32_t format;      ///< KURV_ARGB32
} kurv_pixels;

/// Stores where the pixels are that have been drawn, of a widget those of the plot. Valid until the
/// next call for this graph.
KURV_EXPORT int32_t kurv_get_pixels(kurv_graph graph, kurv_pixels* pixels);
/// Copies these pixels in a format, rows without gaps, into a buffer of at least width * height * 4
/// bytes. KURV_INVALID_CALL where `bytes`, the size of the buffer, is less.
KURV_EXPORT int32_t kurv_copy_pixels(kurv_graph graph, int32_t format, void* buffer, size_t bytes);
/// Saves these pixels as a PNG file. An older file is replaced as a whole, or stays as it was.
KURV_EXPORT int32_t kurv_save_png(kurv_graph graph, const char* path);
/// Saves the graph as a graph file, for file_load().
KURV_EXPORT int32_t kurv_save_graph(kurv_graph graph, const char* path);
/// Sets another size, within the limits of kurv_create_pixels(), and redraws. A widget has the
/// ratio of its screen.
KURV_EXPORT int32_t kurv_resize(kurv_graph graph, int32_t width, int32_t height, double ratio);

/// @}
/// @name Events
/// @{

/// Notices besides the events of the interface, whose identifiers are those of the member table.
enum {
  KURV_MOUSE_UP = 1,           ///< of the interface: Button, Shift, x, Y
  KURV_MESSAGE = 0x7F000001,   ///< of pixels: a message box, text, flags, title
  KURV_REDRAWN = 0x7F000002,   ///< a complete redraw; no arguments
  KURV_DESTROYED = 0x7F000003  ///< of a widget: it has been deleted; the handle is invalid by now
};

/// An event or a notice.
typedef struct kurv_event {
  size_t size;                  ///< that of the library's structure
  const char* name;             ///< "MouseUp", "message", "redrawn", "destroyed"
  uint32_t id;                  ///< such as KURV_MOUSE_UP
  const kurv_value* arguments;  ///< valid during the call
  size_t count;                 ///< how many arguments there are
} kurv_event;

/// What is called for each event, with the `user` of kurv_listen().
typedef void (*kurv_listener)(kurv_graph graph, const kurv_event* event, void* user);

/// Calls the listener for each event, on the thread of the graph; one for each graph, null for
/// none. `user` is passed on and belongs to the caller. A listener may call everything,
/// kurv_destroy() too. It must return: no exception and no longjmp() may leave it.
KURV_EXPORT int32_t kurv_listen(kurv_graph graph, kurv_listener listener, void* user);

/// A mouse button went down on a graph that draws into pixels, at a point in twips of the surface.
/// Button is 1 left, 2 right, 4 middle; shift adds up 1 shift, 2 control, 4 alt.
/// KURV_INVALID_CALL for a widget, which has the mouse of its window.
KURV_EXPORT int32_t kurv_press_mouse(kurv_graph graph, int16_t button, int16_t shift, float x,
                                     float y);
/// The button came up. Otherwise as kurv_press_mouse().
KURV_EXPORT int32_t kurv_release_mouse(kurv_graph graph, int16_t button, int16_t shift, float x,
                                       float y);

/// @}
/// @name The library as an in-process automation server
/// @{

/// The class identifier of the control.
#define KURV_CLASS_ID "{6F0C52B1-7D0E-4C43-9A5C-0E8B1D3F7A26}"

/// Makes graphs of one class. It belongs to the library and is valid as long as that is loaded.
typedef struct kurv_class_object {
  size_t size;           ///< that of the library's structure
  const char* class_id;  ///< KURV_CLASS_ID
  const char* name;      ///< "KurvGraph"
  /// Makes a graph as kurv_create_pixels() does.
  int32_t (*create_instance)(int32_t width, int32_t height, double ratio, kurv_graph* graph);
} kurv_class_object;

/// Enters the class of the control into the class registry of the process; again has no effect. The
/// registry is not locked: no other thread may use the library meanwhile. KURV_OK or
/// KURV_OUT_OF_MEMORY.
KURV_EXPORT int32_t kurv_DllRegisterServer(void);
/// Removes the class from the class registry; again has no effect. The registry is not locked here
/// either. KURV_OK.
KURV_EXPORT int32_t kurv_DllUnregisterServer(void);
/// Makes a graph in pixels of the class that is registered for the identifier. KURV_CANNOT_CREATE
/// where there is none, KURV_TYPE_MISMATCH where it is the class of something else.
KURV_EXPORT int32_t kurv_create_object(const char* class_id, int32_t width, int32_t height,
                                       double ratio, kurv_graph* graph);
/// Stores the class object for a class identifier, in any letter case, registered or not. KURV_OK;
/// KURV_INVALID_CALL for null pointers; KURV_CANNOT_CREATE for other classes, and `object` is null.
KURV_EXPORT int32_t kurv_DllGetClassObject(const char* class_id, const kurv_class_object** object);
/// What kurv_DllCanUnloadNow() returns while the library is in use.
#define KURV_IN_USE 1
/// KURV_OK where no graph exists and the class is not registered, so that the library may be
/// unloaded; otherwise KURV_IN_USE.
KURV_EXPORT int32_t kurv_DllCanUnloadNow(void);

/// @}

#ifdef __cplusplus
}
#endif
