// Checks for the tests in C: a failure is printed and counted, and the test goes on.
#pragma once

#include <KurvGraph/kurvgraph_c.h>

#include <stdio.h>
#include <string.h>

extern int failures;

#define CHECK(condition) \
  ((condition)           \
       ? (void)0         \
       : (void)(++failures, fprintf(stderr, "%s:%d: %s\n", __FILE__, __LINE__, #condition)))

// That the call returns this number.
#define CHECK_CALL(number, call)                                                              \
  do {                                                                                        \
    const int32_t wanted = (number);                                                          \
    const int32_t found = (call);                                                             \
    if (wanted == found) break;                                                               \
    ++failures;                                                                               \
    fprintf(stderr, "%s:%d: %s is %d instead of %d\n", __FILE__, __LINE__, #call, (int)found, \
            (int)wanted);                                                                     \
  } while (0)
#define CHECK_OK(call) CHECK_CALL(KURV_OK, call)

kurv_graph new_graph(void);
// A graph of one curve, the squares of 1 to 4.
int32_t load_squares(kurv_graph graph);
// Whether the detail of the last error contains these words.
int detail_has(const char* words);

void test_life(void);
void test_members(void);
void test_arguments(void);
void test_pictures(void);
void test_events(void);
