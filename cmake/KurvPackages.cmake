# Debian packages: cpack -G DEB makes one of each part that is installed. packaging/make-packages
# builds them; what Debian wants in a package besides is in packaging/debian.
find_program(GZIP_PROGRAM gzip REQUIRED)
set(debian "${KurvGraph_SOURCE_DIR}/packaging/debian")

# kurv_compress(FILE RESULT): as Debian compresses documentation, the same bytes each time.
function(kurv_compress file result)
  execute_process(COMMAND "${GZIP_PROGRAM}" -9nc "${file}" OUTPUT_FILE "${result}" COMMAND_ERROR_IS_FATAL ANY)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${file}")
endfunction()

set(compressed "${CMAKE_CURRENT_BINARY_DIR}/compressed")
file(MAKE_DIRECTORY "${compressed}")
kurv_compress("${debian}/changelog" "${compressed}/changelog.Debian.gz")
kurv_compress("${KurvGraph_SOURCE_DIR}/CHANGELOG.md" "${compressed}/changelog.gz")
kurv_compress("${KurvGraph_SOURCE_DIR}/packaging/command_line/kurv.1" "${compressed}/kurv.1.gz")

# kurv_package(PART NAME SECTION DESCRIPTION): the package of what is installed with COMPONENT PART. The
# first line of the description is the short one. EXCLUDE_FROM_ALL: in packages alone.
macro(kurv_package part name section description)
  install(FILES "${debian}/copyright" "${compressed}/changelog.gz" "${compressed}/changelog.Debian.gz"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/${name}" COMPONENT ${part} EXCLUDE_FROM_ALL)
  string(TOUPPER ${part} PART)
  list(APPEND CPACK_COMPONENTS_ALL ${part})
  set(CPACK_DEBIAN_${PART}_PACKAGE_NAME ${name})
  set(CPACK_DEBIAN_${PART}_PACKAGE_SECTION ${section})
  set(CPACK_DEBIAN_${PART}_DESCRIPTION "${description}")
endmacro()

kurv_package(libraries libkurvgraph${KurvGraph_VERSION_MAJOR} libs
  "embeddable two-dimensional graph control, shared libraries
KurvGraph draws columns of numbers as a graph with axes, legend and titles,
in which the user can change everything that a person wants to change.
It is a widget for Qt 6 and a control that needs no toolkit.")
kurv_package(development libkurvgraph-dev libdevel
  "embeddable two-dimensional graph control, development files
This package has what programs with a graph in them are built with: headers,
files for CMake and pkg-config, and a plugin for Qt Widgets Designer.")
kurv_package(program kurv science
  "draws tables of numbers as graphs
kurv opens tables as spreadsheets, instruments and scripts write them and draws
their columns as curves, in a window or straight into PNG, BMP, SVG and PDF
files. It finds out separators, decimal signs, dates and units by itself, and
says what it left out.")
kurv_package(python python3-kurvgraph python
  "two-dimensional graphs for Python 3
This module draws lists and NumPy arrays with KurvGraph, as pictures without a
display, and puts the graph into windows of PyQt6 and PySide6.")

# What cpack does not write itself: which package has the libraries, for packages that are built on
# this one, and that the loader's cache is renewed.
set(shlibs "")
foreach(library kurvgraph_core kurvgraph)
  get_target_property(output_name ${library} OUTPUT_NAME)
  string(APPEND shlibs "lib${output_name} ${KurvGraph_VERSION_MAJOR} "
    "libkurvgraph${KurvGraph_VERSION_MAJOR} (>= ${KurvGraph_VERSION})\n")
endforeach()
file(WRITE "${CMAKE_CURRENT_BINARY_DIR}/control/shlibs" "${shlibs}")
file(WRITE "${CMAKE_CURRENT_BINARY_DIR}/control/triggers" "activate-noawait ldconfig\n")
set(CPACK_DEBIAN_LIBRARIES_PACKAGE_CONTROL_EXTRA
  "${CMAKE_CURRENT_BINARY_DIR}/control/shlibs" "${CMAKE_CURRENT_BINARY_DIR}/control/triggers")

install(FILES "${compressed}/kurv.1.gz"
  DESTINATION "${CMAKE_INSTALL_MANDIR}/man1" COMPONENT program EXCLUDE_FROM_ALL)
install(DIRECTORY "${KurvGraph_SOURCE_DIR}/bindings/python/kurvgraph"
  DESTINATION lib/python3/dist-packages COMPONENT python EXCLUDE_FROM_ALL
  FILES_MATCHING PATTERN "*.py" PATTERN "py.typed" PATTERN "__pycache__" EXCLUDE)
# By which importlib.metadata and pip know the module.
set(metadata "${CMAKE_CURRENT_BINARY_DIR}/kurvgraph-${KurvGraph_VERSION}.dist-info")
file(WRITE "${metadata}/METADATA"
  "Metadata-Version: 2.1\nName: kurvgraph\nVersion: ${KurvGraph_VERSION}\nLicense: MIT\n")
file(WRITE "${metadata}/INSTALLER" "debian\n")
install(DIRECTORY "${metadata}" DESTINATION lib/python3/dist-packages COMPONENT python EXCLUDE_FROM_ALL)

# dpkg-shlibdeps finds the libraries in the build; which package they are in is said here.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${CMAKE_CURRENT_BINARY_DIR}")
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
set(CPACK_COMPONENT_DEVELOPMENT_DEPENDS libraries)
set(CPACK_COMPONENT_PYTHON_DEPENDS libraries)
set(CPACK_DEBIAN_LIBRARIES_PACKAGE_RECOMMENDS "fonts-liberation")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "qt6-base-dev (>= 6.4)")
set(CPACK_DEBIAN_PROGRAM_PACKAGE_RECOMMENDS "fonts-dejavu-core, fonts-liberation")
set(CPACK_DEBIAN_PYTHON_PACKAGE_DEPENDS "python3:any (>= 3.9)")
set(CPACK_DEBIAN_PYTHON_PACKAGE_RECOMMENDS "python3-numpy")
set(CPACK_DEBIAN_PYTHON_PACKAGE_SUGGESTS "python3-pyqt6")
set(CPACK_DEBIAN_PYTHON_PACKAGE_ARCHITECTURE all)
set(CPACK_DEBIAN_PYTHON_PACKAGE_CONTROL_EXTRA "${debian}/postinst" "${debian}/prerm")

set(CPACK_GENERATOR DEB)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_GROUPING ONE_PER_GROUP)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SOURCE kurvgraph)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "The KurvGraph authors <kurvgraph@localhost>")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_STRIP_FILES ON)
# An empty one, because each package has its own.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")
set(CPACK_VERBATIM_VARIABLES ON)
include(CPack)
