# The API reference (Doxygen over include/ormelix and docs/): the target `docs`
# writes HTML to <build>/docs/html, and the test api_reference (below) keeps it honest.
# The main page draws the object tree with Graphviz, so both are needed (./dev
# installs them: doxygen, graphviz).
find_package(Doxygen QUIET OPTIONAL_COMPONENTS dot)
if(NOT DOXYGEN_FOUND OR NOT DOXYGEN_DOT_EXECUTABLE)
  message(STATUS "Doxygen or Graphviz's dot not found: no target docs, no test api_reference")
  return()
endif()

set(ORMELIX_DOCS_DIR ${PROJECT_BINARY_DIR}/docs)
set(ORMELIX_DOCS_OUTPUT ${ORMELIX_DOCS_DIR})
get_filename_component(ORMELIX_DOCS_DOT_PATH ${DOXYGEN_DOT_EXECUTABLE} DIRECTORY)
set(ORMELIX_DOCS_CLASS_GRAPHS YES)
configure_file(${PROJECT_SOURCE_DIR}/docs/Doxyfile.in ${ORMELIX_DOCS_DIR}/Doxyfile @ONLY)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/docs/Doxyfile.in)

add_custom_target(docs
  COMMAND ${DOXYGEN_EXECUTABLE} ${ORMELIX_DOCS_DIR}/Doxyfile
  WORKING_DIRECTORY ${ORMELIX_DOCS_DIR}
  COMMENT "API reference: ${ORMELIX_DOCS_DIR}/html/index.html"
  VERBATIM)

# The test: the same input and warnings as the target, HTML into a folder of its
# own, without the class graphs (they take most of the time and warn about nothing
# in the headers; the main page's object tree is still drawn). Doxygen fails on the
# first warning (FAIL_ON_WARNINGS), so the reference cannot fall behind the headers.
# The sanitizer build leaves it out: it would repeat the same run.
if(ORMELIX_BUILD_TESTS AND NOT ORMELIX_SANITIZE)
  set(ORMELIX_DOCS_OUTPUT ${PROJECT_BINARY_DIR}/tests/api_reference)
  set(ORMELIX_DOCS_CLASS_GRAPHS NO)
  configure_file(${PROJECT_SOURCE_DIR}/docs/Doxyfile.in ${ORMELIX_DOCS_OUTPUT}/Doxyfile @ONLY)
  add_test(NAME api_reference COMMAND ${DOXYGEN_EXECUTABLE} ${ORMELIX_DOCS_OUTPUT}/Doxyfile
    WORKING_DIRECTORY ${ORMELIX_DOCS_OUTPUT})
  set_tests_properties(api_reference PROPERTIES LABELS docs TIMEOUT 300)
endif()
