# Installs the built library into a scratch prefix, then builds and runs a small host
# that finds it with find_package(OrmelixCore).
file(REMOVE_RECURSE ${WORK_DIR})
set(prefix ${WORK_DIR}/prefix)
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${prefix}
  RESULT_VARIABLE rc OUTPUT_QUIET)
if(NOT rc EQUAL 0)
  message(FATAL_ERROR "install failed: ${rc}")
endif()
# A sanitized build's library needs a host built with the same flags.
string(REPLACE ";" " " host_flags "${CXX_FLAGS}")
execute_process(COMMAND ${CMAKE_COMMAND} -S ${SOURCE_DIR}/tests/package/host -B ${WORK_DIR}/build
  -DCMAKE_PREFIX_PATH=${prefix} -DCMAKE_CXX_COMPILER=${CMAKE_CXX_COMPILER} -DCMAKE_BUILD_TYPE=Release
  "-DCMAKE_CXX_FLAGS=${host_flags}"
  RESULT_VARIABLE rc)
if(NOT rc EQUAL 0)
  message(FATAL_ERROR "configuring the host failed: ${rc}")
endif()
execute_process(COMMAND ${CMAKE_COMMAND} --build ${WORK_DIR}/build RESULT_VARIABLE rc)
if(NOT rc EQUAL 0)
  message(FATAL_ERROR "building the host failed: ${rc}")
endif()
execute_process(COMMAND ${WORK_DIR}/build/host ${WORK_DIR}/payroll.db RESULT_VARIABLE rc OUTPUT_VARIABLE out)
message(STATUS "${out}")
if(NOT rc EQUAL 0)
  message(FATAL_ERROR "the host failed: ${rc}")
endif()

# The module and its stubs, installed where that Python finds them below the prefix.
if(PYTHON)
  execute_process(COMMAND ${CMAKE_COMMAND} -E env PYTHONPATH=${prefix}/${PYTHON_DIR} PYTHONDONTWRITEBYTECODE=1
    ${PYTHON} -c "import os, ormelix; here = os.path.dirname(ormelix.__file__); \
assert os.path.isfile(os.path.join(here, 'ormelix.pyi')), 'no stubs beside the module'; print(here)"
    RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err OUTPUT_STRIP_TRAILING_WHITESPACE)
  if(NOT rc EQUAL 0 OR NOT out STREQUAL "${prefix}/${PYTHON_DIR}")
    message(FATAL_ERROR "the installed module ormelix was not found in ${prefix}/${PYTHON_DIR}: ${out} ${err}")
  endif()
  message(STATUS "the module ormelix imports from ${out}")
endif()
