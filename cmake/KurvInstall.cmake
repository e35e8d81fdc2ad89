# The libraries for hosts, and what cmake --install copies of them: a tree that works wherever it is
# moved. A host links to one of them: the widget contains all of the core.
include(CMakePackageConfigHelpers)
include(GNUInstallDirs)
include(KurvLibrary)

# The parts that KurvPackages makes packages of: everything here is for those who build hosts, but for
# the shared libraries themselves.
set(CMAKE_INSTALL_DEFAULT_COMPONENT_NAME development)
set(package_folder "${CMAKE_INSTALL_LIBDIR}/cmake/KurvGraph")
set(pkgconfig_folder "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
# The public headers that need Qt.
set(qt_headers indicator_style kurv_graph_plot kurv_graph_properties KurvGraph picture read_out
    replace_file screen_fit vector_picture wheel_guard window_places)

# What pkg-config calls the foreign packages of CMake.
set(pc_Fontconfig fontconfig)
set(pc_Freetype freetype2)
set(pc_HarfBuzz harfbuzz)
set(pc_PNG libpng)

# kurv_install(TARGET OUTPUT_NAME EXPORT_NAME DESCRIPTION): a library, its target for find_package with
# the packages that its hosts link to, and a file for pkg-config.
function(kurv_install target output_name export_name description)
  set_target_properties(${target} PROPERTIES OUTPUT_NAME ${output_name} EXPORT_NAME ${export_name})
  install(TARGETS ${target} EXPORT ${output_name}
    LIBRARY COMPONENT libraries NAMELINK_COMPONENT development)
  install(EXPORT ${output_name}
    FILE ${export_name}-targets.cmake
    NAMESPACE KurvGraph::
    DESTINATION "${package_folder}")

  get_target_property(links ${target} INTERFACE_LINK_LIBRARIES)
  # Those of a static library are followed by the private ones, each as $<LINK_ONLY:...>.
  string(REGEX MATCHALL "[A-Za-z0-9]+::[A-Za-z]+" links "${links}")
  set(requires "")
  set(dependencies "")
  foreach(link ${links})
    string(REGEX REPLACE "(.+)::(.+)" "\\1;\\2" names ${link})
    list(GET names 0 package)
    list(GET names 1 component)
    if(package STREQUAL "Fontconfig" AND NOT KURV_FONTCONFIG)
      continue()
    elseif(package STREQUAL "Qt6")
      string(APPEND requires " Qt6${component}")
      string(APPEND dependencies "find_dependency(Qt6 6.4 COMPONENTS ${component})\n")
    else()
      string(APPEND requires " ${pc_${package}}")
      string(APPEND dependencies "find_dependency(${package})\n")
    endif()
  endforeach()
  file(WRITE "${CMAKE_CURRENT_BINARY_DIR}/${export_name}-dependencies.cmake" "${dependencies}")
  install(FILES "${CMAKE_CURRENT_BINARY_DIR}/${export_name}-dependencies.cmake"
    DESTINATION "${package_folder}")
  file(RELATIVE_PATH prefix "/${pkgconfig_folder}" "/")
  string(REGEX REPLACE "/$" "" prefix "${prefix}")
  configure_file("${KurvGraph_SOURCE_DIR}/packaging/libraries/library.pc.in" "${output_name}.pc" @ONLY)
  install(FILES "${CMAKE_CURRENT_BINARY_DIR}/${output_name}.pc" DESTINATION "${pkgconfig_folder}")
endfunction()

get_target_property(core_modules kurv_core INTERFACE_LINK_LIBRARIES)
kurv_library(kurvgraph_core MODULES ${core_modules})
kurv_install(kurvgraph_core kurvgraph-core Core
  "An embeddable two-dimensional graph control, without a toolkit")
if(KURV_PIXELS AND NOT BUILD_SHARED_LIBS)
  install(FILES "${KurvGraph_SOURCE_DIR}/cmake/FindHarfBuzz.cmake" DESTINATION "${package_folder}")
endif()
if(KURV_QT)
  set(widget_modules kurv_qt_widget)
  if(KURV_PIXELS)
    list(APPEND widget_modules kurv_bindings_widget)
  endif()
  kurv_library(kurvgraph MODULES ${widget_modules} PUBLIC_LINKS Qt6::Widgets)
  kurv_install(kurvgraph kurvgraph KurvGraph
    "An embeddable two-dimensional graph control, as a Qt widget")
  set(left_out "")
else()
  list(TRANSFORM qt_headers APPEND "[.]h" OUTPUT_VARIABLE left_out)
  list(JOIN left_out "|" left_out)
  set(left_out REGEX "/(${left_out})$" EXCLUDE)
endif()
install(DIRECTORY "${KurvGraph_SOURCE_DIR}/include/KurvGraph"
  DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}"
  FILES_MATCHING PATTERN "*.h" ${left_out})

configure_package_config_file("${KurvGraph_SOURCE_DIR}/packaging/libraries/KurvGraphConfig.cmake.in"
  KurvGraphConfig.cmake INSTALL_DESTINATION "${package_folder}")
write_basic_package_version_file(KurvGraphConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES
  "${CMAKE_CURRENT_BINARY_DIR}/KurvGraphConfig.cmake"
  "${CMAKE_CURRENT_BINARY_DIR}/KurvGraphConfigVersion.cmake"
  DESTINATION "${package_folder}")
install(FILES "${KurvGraph_SOURCE_DIR}/LICENSE" DESTINATION "${CMAKE_INSTALL_DOCDIR}" COMPONENT licence)
