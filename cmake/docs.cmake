# The API reference (Doxygen over include/ormelix and docs/): the target `docs`
# writes HTML to <build>/docs/html.
find_package(Doxygen QUIET OPTIONAL_COMPONENTS dot)
if(NOT DOXYGEN_FOUND)
  message(STATUS "Doxygen not found: no target docs, no test api_reference")
  return()
endif()

set(ORMELIX_DOCS_DIR ${PROJECT_BINARY_DIR}/docs)
set(ORMELIX_DOCS_OUTPUT ${ORMELIX_DOCS_DIR})
if(DOXYGEN_DOT_FOUND)
  set(ORMELIX_DOCS_HAVE_DOT YES)
  get_filename_component(ORMELIX_DOCS_DOT_PATH ${DOXYGEN_DOT_EXECUTABLE} DIRECTORY)
else()
  set(ORMELIX_DOCS_HAVE_DOT NO)
  set(ORMELIX_DOCS_DOT_PATH "")
endif()
configure_file(${PROJECT_SOURCE_DIR}/docs/Doxyfile.in ${ORMELIX_DOCS_DIR}/Doxyfile @ONLY)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/docs/Doxyfile.in)

add_custom_target(docs
  COMMAND ${DOXYGEN_EXECUTABLE} ${ORMELIX_DOCS_DIR}/Doxyfile
  WORKING_DIRECTORY ${ORMELIX_DOCS_DIR}
  COMMENT "API reference: ${ORMELIX_DOCS_DIR}/html/index.html"
  VERBATIM)
