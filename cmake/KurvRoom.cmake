# Every library of the project is made by this one function, so that the rules hold for each alike:
# C++20, warnings as errors in our own builds, public headers below include/ for everybody and the
# rooms' private headers for the rooms alone.
#
#   kurv_room(NAME SOURCES file... [LINKS target...])
function(kurv_room name)
  cmake_parse_arguments(room "" "" "SOURCES;LINKS" ${ARGN})
  add_library(${name} STATIC ${room_SOURCES})
  kurv_build_rules(${name})
  target_include_directories(${name}
    PUBLIC  "$<BUILD_INTERFACE:${KurvGraph_SOURCE_DIR}/include>"
    PRIVATE "${KurvGraph_SOURCE_DIR}")
  target_link_libraries(${name} PUBLIC ${room_LINKS})
  set_target_properties(${name} PROPERTIES
    POSITION_INDEPENDENT_CODE ON
    CXX_VISIBILITY_PRESET hidden
    VISIBILITY_INLINES_HIDDEN ON)
endfunction()

# Language level and warnings; also for programs and tests.
function(kurv_build_rules target)
  target_compile_features(${target} PUBLIC cxx_std_20)
  set_target_properties(${target} PROPERTIES CXX_EXTENSIONS OFF)
  if(KURV_DEVELOPER)
    target_compile_options(${target} PRIVATE
      -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wnon-virtual-dtor -Woverloaded-virtual
      -Wold-style-cast -Werror
      # g++ 12 sees overlapping copies in plain string concatenation at -O2.
      $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)
  endif()
endfunction()
