// The member table, as the C interface shows it: methods, properties and events as rows of one
// list.
#include <KurvGraph/kurvgraph_c.h>
#include <KurvGraph/text.h>

#include <string>
#include <vector>

#include "bindings/c/call_error.h"
#include "bindings/c/sized_structure.h"
#include "bindings/c/value_conversion.h"

namespace {

using kurv::c::CallError;
using kurv::c::guarded;
using kurv::c::required;

struct ParameterRow {
  std::string name;
  std::int32_t type;
  bool optional;
};

// With texts that end in NUL, which those of the table need not do.
struct Row {
  std::string name;
  std::uint32_t dispatch_id;
  std::int32_t kind;
  std::int32_t type;
  std::string summary;
  std::string initially;
  std::string unit;
  std::vector<ParameterRow> parameters;
};

std::vector<ParameterRow> parameter_rows(std::span<const kurv::Parameter> parameters) {
  std::vector<ParameterRow> rows;
  for (const kurv::Parameter& parameter : parameters) {
    rows.push_back(
        {std::string(parameter.name), kurv::c::type_number(parameter.type), parameter.optional});
  }
  return rows;
}

std::vector<Row> make_rows() {
  std::vector<Row> rows;
  for (const kurv::Member& member : kurv::members()) {
    const bool is_method = member.kind == kurv::MemberKind::kMethod;
    rows.push_back({std::string(member.name), member.dispatch_id,
                    is_method ? KURV_METHOD : KURV_PROPERTY,
                    is_method ? KURV_MISSING : kurv::c::type_number(member.type),
                    std::string(member.summary), std::string(member.initially),
                    std::string(member.unit), parameter_rows(member.parameters)});
  }
  for (const kurv::Event& event : kurv::events()) {
    rows.push_back({std::string(event.name), event.dispatch_id, KURV_EVENT, KURV_MISSING,
                    std::string(event.summary), "", "", parameter_rows(event.parameters)});
  }
  return rows;
}

// Never destroyed: hosts keep pointers into it.
const std::vector<Row>& rows() {
  static const auto* const all = new std::vector<Row>(make_rows());
  return *all;
}

template <class T>
const T& row_at(const std::vector<T>& list, std::size_t index) {
  if (index >= list.size()) throw CallError(KURV_OUT_OF_RANGE);
  return list[index];
}

}  // namespace

std::size_t kurv_member_count() {
  std::size_t count = 0;
  guarded([&] { count = rows().size(); });
  return count;
}

std::int32_t kurv_member_at(std::size_t index, kurv_member* member) {
  return guarded([&] {
    const Row& row = row_at(rows(), index);
    kurv::c::fill_in(member, {sizeof(kurv_member), row.name.c_str(), row.dispatch_id, row.kind,
                              row.type, row.parameters.size(), row.summary.c_str(),
                              row.initially.c_str(), row.unit.c_str()});
  });
}

std::int32_t kurv_parameter_at(std::size_t member, std::size_t index, kurv_parameter* parameter) {
  return guarded([&] {
    const ParameterRow& row = row_at(row_at(rows(), member).parameters, index);
    kurv::c::fill_in(parameter,
                     {sizeof(kurv_parameter), row.name.c_str(), row.type, row.optional ? 1 : 0});
  });
}

std::int32_t kurv_find_member(const char* name, std::size_t* index) {
  return guarded([&] {
    required(name);
    required(index);
    for (std::size_t i = 0; i < rows().size(); ++i) {
      if (!kurv::equals_ignoring_case(rows()[i].name, name)) continue;
      *index = i;
      return;
    }
    throw CallError(KURV_NO_SUCH_MEMBER, name);
  });
}
