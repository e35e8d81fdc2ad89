/// @file
/// What the shared libraries export. They are compiled with hidden visibility, so a public function
/// and a class with members in the library or with a vtable say so; an exception and an interface
/// have one type information then, in the host and in the library.
#pragma once

#if defined(__GNUC__)
/// Before the name of what a shared library exports.
#define KURV_EXPORT __attribute__((visibility("default")))
/// Before the name of a class inside an exported one, which only the library knows.
#define KURV_HIDDEN __attribute__((visibility("hidden")))
#else
#define KURV_EXPORT
#define KURV_HIDDEN
#endif
