# HarfBuzz::HarfBuzz, the library that shapes texts. Its own configuration is not part of every
# installation.
find_path(HarfBuzz_INCLUDE_DIR hb.h PATH_SUFFIXES harfbuzz)
find_library(HarfBuzz_LIBRARY harfbuzz)
include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(HarfBuzz REQUIRED_VARS HarfBuzz_LIBRARY HarfBuzz_INCLUDE_DIR)
if(HarfBuzz_FOUND AND NOT TARGET HarfBuzz::HarfBuzz)
  add_library(HarfBuzz::HarfBuzz UNKNOWN IMPORTED GLOBAL)
  set_target_properties(HarfBuzz::HarfBuzz PROPERTIES
    IMPORTED_LOCATION "${HarfBuzz_LIBRARY}"
    INTERFACE_INCLUDE_DIRECTORIES "${HarfBuzz_INCLUDE_DIR}")
endif()
mark_as_advanced(HarfBuzz_INCLUDE_DIR HarfBuzz_LIBRARY)
