# Every library of the project is made by this one function, so that the same rules hold for all:
# C++20, the public headers in include/ for everybody, and the private headers beside the sources for
# the modules alone. A module is a folder, and its target is named after it: qt/surface is
# kurv_qt_surface.
#
# With CMAKE_UNITY_BUILD, as in the preset release, all sources of a module are compiled as one, which
# takes less than half the time: nearly all of it goes into the same headers. So no name may be
# in the unnamed namespaces of two sources of a module; tests/architecture checks that. HOT_LOOPS keeps
# the sources apart: a compiler decides anew what to inline when it sees more of the module.
#
#   kurv_module([HOT_LOOPS] SOURCES file... [LINKS target...])
function(kurv_module)
  cmake_parse_arguments(module "HOT_LOOPS" "" "SOURCES;LINKS" ${ARGN})
  file(RELATIVE_PATH folder "${KurvGraph_SOURCE_DIR}" "${CMAKE_CURRENT_SOURCE_DIR}")
  string(REPLACE "/" "_" name "kurv_${folder}")
  add_library(${name} STATIC ${module_SOURCES})
  kurv_build_rules(${name})
  target_include_directories(${name}
    PUBLIC  "$<BUILD_INTERFACE:${KurvGraph_SOURCE_DIR}/include>"
    PRIVATE "${KurvGraph_SOURCE_DIR}")
  target_link_libraries(${name} PUBLIC ${module_LINKS})
  set_target_properties(${name} PROPERTIES
    POSITION_INDEPENDENT_CODE ON
    CXX_VISIBILITY_PRESET hidden
    VISIBILITY_INLINES_HIDDEN ON)
  # g++ may inline exported functions within a source as it does hidden ones.
  target_compile_options(${name} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-fno-semantic-interposition>)
  if(module_HOT_LOOPS)
    set_target_properties(${name} PROPERTIES UNITY_BUILD OFF)
  endif()
endfunction()

# Language level and warnings; also for programs and tests. Warnings are for those who work on this
# project, so a host that adds it to its own build sees none. They are errors where
# CMAKE_COMPILE_WARNING_AS_ERROR says so, as the presets for development do: a compiler that is newer
# than this code must not stop anybody else's build.
function(kurv_build_rules target)
  target_compile_features(${target} PUBLIC cxx_std_20)
  set_target_properties(${target} PROPERTIES CXX_EXTENSIONS OFF)
  if(KurvGraph_IS_TOP_LEVEL)
    target_compile_options(${target} PRIVATE
      -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wnon-virtual-dtor -Woverloaded-virtual
      -Wold-style-cast
      # g++ 12 sees overlapping copies in plain string concatenation at -O2.
      $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)
  endif()
endfunction()
