// The member table, properties, values and the sizes of structures.
#include <stdlib.h>

#include "tests/bindings/check.h"

static int32_t kind_count(int32_t kind) {
  int32_t count = 0;
  size_t i;
  for (i = 0; i < kurv_member_count(); ++i) {
    kurv_member member;
    member.size = sizeof member;
    CHECK_OK(kurv_member_at(i, &member));
    count += member.kind == kind;
  }
  return count;
}

static void the_table_has_every_member(void) {
  size_t index = 0;
  kurv_member member;
  kurv_parameter parameter;
  member.size = sizeof member;
  parameter.size = sizeof parameter;
  CHECK(kind_count(KURV_METHOD) == 10);
  CHECK(kind_count(KURV_PROPERTY) == 35);
  CHECK(kind_count(KURV_EVENT) == 1);
  CHECK_OK(kurv_find_member("SCATTER_graph", &index));
  CHECK_OK(kurv_member_at(index, &member));
  CHECK(strcmp(member.name, "scatter_graph") == 0);
  CHECK(member.dispatch_id == 0x600300D7 && member.parameter_count == 11);
  CHECK(strlen(member.summary) > 20);
  CHECK_OK(kurv_parameter_at(index, 0, &parameter));
  CHECK(strcmp(parameter.name, "yarr_") == 0 && parameter.type == KURV_MATRIX);
  CHECK(!parameter.optional);
  CHECK_OK(kurv_parameter_at(index, 10, &parameter));
  CHECK(parameter.type == KURV_BOOLEAN && parameter.optional);
  CHECK_CALL(KURV_OUT_OF_RANGE, kurv_parameter_at(index, 11, &parameter));
  CHECK_CALL(KURV_OUT_OF_RANGE, kurv_member_at(kurv_member_count(), &member));
  CHECK_CALL(KURV_NO_SUCH_MEMBER, kurv_find_member("nothing", &index));
  CHECK_CALL(KURV_INVALID_CALL, kurv_find_member(NULL, &index));
  CHECK_CALL(KURV_INVALID_CALL, kurv_find_member("init", NULL));
  CHECK_CALL(KURV_INVALID_CALL, kurv_member_at(0, NULL));
}

// A program that was compiled with another version has smaller or larger structures.
static void structures_may_have_other_sizes(void) {
  struct {
    kurv_member member;
    long later[2];
  } larger;
  kurv_member member;
  memset(&member, 1, sizeof member);
  member.size = sizeof(size_t) + sizeof(char*);
  CHECK_OK(kurv_member_at(0, &member));
  CHECK(strcmp(member.name, "init") == 0 && member.size == sizeof(size_t) + sizeof(char*));
  CHECK(member.dispatch_id == 0x01010101);
  memset(&larger, 1, sizeof larger);
  larger.member.size = sizeof larger;
  CHECK_OK(kurv_member_at(0, &larger.member));
  CHECK(larger.later[0] == 0 && larger.later[1] == 0);
  member.size = 0;
  CHECK_CALL(KURV_INVALID_CALL, kurv_member_at(0, &member));
}

static void every_property_takes_its_own_value(kurv_graph graph) {
  size_t i;
  for (i = 0; i < kurv_member_count(); ++i) {
    kurv_member member;
    kurv_value value;
    kurv_value again;
    member.size = sizeof member;
    CHECK_OK(kurv_member_at(i, &member));
    if (member.kind != KURV_PROPERTY) continue;
    CHECK_OK(kurv_get(graph, member.name, &value));
    CHECK(value.type == member.type);
    CHECK_OK(kurv_let(graph, member.name, &value));
    CHECK_OK(kurv_let_by_id(graph, member.dispatch_id, &value));
    CHECK_OK(kurv_get_by_id(graph, member.dispatch_id, &again));
    CHECK(again.type == value.type);
    if (value.type == KURV_STRING) CHECK(strcmp(value.as.text.bytes, again.as.text.bytes) == 0);
    kurv_value_clear(&value);
    kurv_value_clear(&again);
    CHECK(value.type == KURV_MISSING && value.owner == NULL);
    kurv_value_clear(&value);
  }
  kurv_value_clear(NULL);
}

static int32_t let(kurv_graph graph, const char* name, kurv_value value) {
  return kurv_let(graph, name, &value);
}

static void values_are_converted(kurv_graph graph) {
  kurv_value value;
  CHECK_OK(let(graph, "NumTicks", kurv_string("12")));
  CHECK_OK(kurv_get(graph, "numticks", &value));
  CHECK(value.type == KURV_INTEGER && value.as.integer == 12);
  CHECK_OK(let(graph, "NumTicks", kurv_double(6.5)));  // a tie goes to the even neighbour
  CHECK_OK(kurv_get(graph, "NumTicks", &value));
  CHECK(value.as.integer == 6);
  CHECK_OK(let(graph, "X_grid", kurv_boolean(7)));
  CHECK_OK(kurv_get(graph, "X_grid", &value));
  CHECK(value.type == KURV_BOOLEAN && value.as.boolean == -1);
  CHECK_OK(let(graph, "FontSize", kurv_single(9.5f)));
  CHECK_OK(kurv_get(graph, "FontSize", &value));
  CHECK(value.type == KURV_SINGLE && value.as.single == 9.5f);
  CHECK_CALL(KURV_OVERFLOW, let(graph, "numticks", kurv_double(1e9)));
  CHECK(detail_has("NumTicks"));
  CHECK_CALL(KURV_TYPE_MISMATCH, let(graph, "NumTicks", kurv_string("twelve")));
  CHECK_CALL(KURV_TYPE_MISMATCH, let(graph, "Title", kurv_doubles(NULL, 0)));
  CHECK_CALL(KURV_TYPE_MISMATCH, let(graph, "Title", kurv_value_of(77)));
  CHECK_CALL(KURV_TYPE_MISMATCH, let(graph, "Title", kurv_value_of(KURV_VARIANT)));
  CHECK_CALL(KURV_TYPE_MISMATCH, let(graph, "Title", kurv_value_of(-1)));
}

static void texts_may_contain_nul(kurv_graph graph) {
  kurv_value value = kurv_string("a\0b");
  value.as.text.length = 3;
  CHECK_OK(kurv_let(graph, "Title", &value));
  CHECK_OK(kurv_get(graph, "Title", &value));
  CHECK(value.as.text.length == 3 && memcmp(value.as.text.bytes, "a\0b", 4) == 0);
  kurv_value_clear(&value);
  value = kurv_string(NULL);
  CHECK_CALL(KURV_INVALID_CALL, kurv_let(graph, "Title", &value));
  value.as.text.length = 0;
  CHECK_OK(kurv_let(graph, "Title", &value));
}

static void members_that_are_not_there(kurv_graph graph) {
  kurv_value value = kurv_missing();
  CHECK_CALL(KURV_NO_SUCH_MEMBER, kurv_get(graph, "nothing", &value));
  CHECK(detail_has("nothing"));
  CHECK_CALL(KURV_NO_SUCH_MEMBER, kurv_get(graph, "", &value));
  CHECK_CALL(KURV_NO_SUCH_MEMBER, kurv_get_by_id(graph, 1, &value));
  CHECK_CALL(KURV_NO_SUCH_MEMBER, kurv_let(graph, "build_the_graph", &value));
  CHECK_CALL(KURV_NO_SUCH_MEMBER, kurv_call(graph, "Title", NULL, 0));
  CHECK(detail_has("Title"));
  CHECK_CALL(KURV_INVALID_CALL, kurv_get(graph, NULL, &value));
  CHECK_CALL(KURV_INVALID_CALL, kurv_get(graph, "Title", NULL));
  CHECK_CALL(KURV_INVALID_CALL, kurv_let(graph, "Title", NULL));
  CHECK(value.type == KURV_MISSING);
}

void test_members(void) {
  const kurv_graph graph = new_graph();
  the_table_has_every_member();
  structures_may_have_other_sizes();
  every_property_takes_its_own_value(graph);
  values_are_converted(graph);
  texts_may_contain_nul(graph);
  members_that_are_not_there(graph);
  CHECK_OK(kurv_destroy(graph));
}
