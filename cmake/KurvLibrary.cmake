# kurv_library(NAME MODULES module... [PUBLIC_LINKS target...]): one library of these modules and of
# all that they link to. It is put together from their objects, so nothing is compiled twice. Shared
# or static, as BUILD_SHARED_LIBS says. PUBLIC_LINKS are the foreign libraries whose headers the
# public headers include.
function(kurv_library name)
  cmake_parse_arguments(library "" "" "MODULES;PUBLIC_LINKS" ${ARGN})
  kurv_closure("${library_MODULES}" modules foreign)
  list(TRANSFORM modules REPLACE ".+" "$<TARGET_OBJECTS:\\0>" OUTPUT_VARIABLE objects)
  list(REMOVE_ITEM foreign ${library_PUBLIC_LINKS})
  add_library(${name} ${objects})
  target_link_libraries(${name} PUBLIC ${library_PUBLIC_LINKS} PRIVATE ${foreign})
  target_compile_features(${name} INTERFACE cxx_std_20)
  target_include_directories(${name} INTERFACE
    "$<BUILD_INTERFACE:${KurvGraph_SOURCE_DIR}/include>"
    "$<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>")
  set_target_properties(${name} PROPERTIES
    LINKER_LANGUAGE CXX
    VERSION ${KurvGraph_VERSION}
    SOVERSION ${KurvGraph_VERSION_MAJOR})
  # Hidden visibility leaves the instances of standard templates visible; the list hides them too.
  if(BUILD_SHARED_LIBS AND UNIX AND NOT APPLE)
    set(symbols "${KurvGraph_SOURCE_DIR}/packaging/libraries/exported_symbols.map")
    target_link_options(${name} PRIVATE "LINKER:--version-script=${symbols}")
    set_target_properties(${name} PROPERTIES LINK_DEPENDS "${symbols}")
  endif()
endfunction()

# The modules that these link to, themselves included, and the foreign libraries of all of them.
function(kurv_closure begin modules_result foreign_result)
  set(waiting ${begin})
  set(modules "")
  set(foreign "")
  while(NOT waiting STREQUAL "")
    list(POP_FRONT waiting item)
    if(item IN_LIST modules OR item IN_LIST foreign)
      continue()
    elseif(item MATCHES "^kurv_")
      list(APPEND modules ${item})
      get_target_property(links ${item} LINK_LIBRARIES)
      if(links)
        list(APPEND waiting ${links})
      endif()
    else()
      list(APPEND foreign ${item})
    endif()
  endwhile()
  set(${modules_result} ${modules} PARENT_SCOPE)
  set(${foreign_result} ${foreign} PARENT_SCOPE)
endfunction()
