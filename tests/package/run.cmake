# The library as a host gets it, in a fresh folder:
#   MODE=deb      the Debian package (cpack -G DEB, as ./dev package makes it), looked
#                 into with dpkg-deb and unpacked with dpkg-deb -x into a root;
#   MODE=install  cmake --install into a prefix (where no package is made: the
#                 sanitizer build).
# Then the host of tests/package/host is built against it, found with find_package
# and with pkg-config, and run; and what else was installed is tried: the SQLite
# extension, the ormelix command and its manual page, the Python module.
cmake_minimum_required(VERSION 3.25)
file(REMOVE_RECURSE ${WORK_DIR})

function(must_run what)
  execute_process(${ARGN} RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
  if(NOT rc EQUAL 0)
    message(FATAL_ERROR "${what} failed (${rc}):\n${out}\n${err}")
  endif()
  set(out "${out}" PARENT_SCOPE)
  set(err "${err}" PARENT_SCOPE)
endfunction()

# Fails with the message unless the condition after it holds.
function(expect what)
  if(NOT (${ARGN}))
    message(FATAL_ERROR "${what}")
  endif()
endfunction()

if(MODE STREQUAL "deb")
  must_run("cpack" COMMAND ${CPACK} -G DEB --config ${BUILD_DIR}/CPackConfig.cmake -B ${WORK_DIR}/deb)
  must_run("dpkg --print-architecture" COMMAND dpkg --print-architecture OUTPUT_STRIP_TRAILING_WHITESPACE)
  set(package ${WORK_DIR}/deb/ormelix_${VERSION}_${out}.deb)
  if(NOT EXISTS ${package})
    file(GLOB made ${WORK_DIR}/deb/*.deb)
    message(FATAL_ERROR "no ${package}; cpack made: ${made}")
  endif()
  must_run("dpkg-deb -f" COMMAND dpkg-deb -f ${package} Package Version Depends)
  message(STATUS "${package}:\n${out}")
  # The shared libraries the programs link (named by dpkg-shlibdeps), and what a
  # host that links the static library needs.
  foreach(field "Package: ormelix\n" "Version: ${VERSION}\n" "libsqlite3-0" "libpq5" "libstdc++6" "libsqlite3-dev"
                "libpq-dev")
    string(FIND "${out}" "${field}" at)
    expect("the package's control fields lack '${field}':\n${out}" NOT at EQUAL -1)
  endforeach()
  must_run("dpkg-deb -x" COMMAND dpkg-deb -x ${package} ${WORK_DIR}/root)
  set(prefix ${WORK_DIR}/root/usr)
  foreach(file bin/ormelix share/man/man1/ormelix.1.gz share/doc/ormelix/changelog.gz include/ormelix/session/manager.h
               ${LIBDIR}/libormelix_core.a ${LIBDIR}/pkgconfig/ormelix.pc ${LIBDIR}/cmake/OrmelixCore/OrmelixCoreConfig.cmake
               ${LIBDIR}/ormelix/libormelix_sqlite_text.so)
    expect("the package lacks /usr/${file}" EXISTS ${prefix}/${file})
  endforeach()
else()
  set(prefix ${WORK_DIR}/prefix)
  must_run("cmake --install" COMMAND ${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${prefix})
endif()

# The host, found both ways. A sanitized build's library needs a host built with
# the same flags.
string(REPLACE ";" " " host_flags "${CXX_FLAGS}")
must_run("configuring the host"
  COMMAND ${CMAKE_COMMAND} -E env PKG_CONFIG_PATH=${prefix}/${LIBDIR}/pkgconfig
    ${CMAKE_COMMAND} -S ${SOURCE_DIR}/tests/package/host -B ${WORK_DIR}/build
    -DCMAKE_PREFIX_PATH=${prefix} -DCMAKE_CXX_COMPILER=${CMAKE_CXX_COMPILER} -DCMAKE_BUILD_TYPE=Release
    "-DCMAKE_CXX_FLAGS=${host_flags}")
file(STRINGS ${WORK_DIR}/build/CMakeCache.txt found REGEX "^(OrmelixCore_DIR|pkgcfg_lib_ORMELIX_ormelix_core):")
foreach(line ${found})
  string(FIND "${line}" "${prefix}/" at)
  expect("the host found the library elsewhere than in ${prefix}: ${line}" at GREATER -1)
endforeach()
list(LENGTH found ways)
expect("the host's build did not record both ways it found the library: ${found}" ways EQUAL 2)
must_run("building the host" COMMAND ${CMAKE_COMMAND} --build ${WORK_DIR}/build --parallel 2)
foreach(host host host_pkgconfig)
  must_run("the ${host}" COMMAND ${WORK_DIR}/build/${host} ${WORK_DIR}/${host}.db)
  message(STATUS "${host}: ${out}")
endforeach()

# The SQLite extension gives another program the stores' text order and LCASE.
must_run("sqlite3 with the extension"
  COMMAND sqlite3 :memory: -cmd ".load ${prefix}/${LIBDIR}/ormelix/libormelix_sqlite_text.so"
    "SELECT LCASE('ÄRZTE'), 'ÄRZTE' = 'ärzte' COLLATE ormelix_text" OUTPUT_STRIP_TRAILING_WHITESPACE)
expect("the extension answered '${out}' for LCASE('ÄRZTE') and 'ÄRZTE' = 'ärzte'" out STREQUAL "ärzte|1")

# The command names the version, and its manual page holds every command's help
# and reads without a warning of groff (which man uses).
must_run("ormelix --version" COMMAND ${prefix}/bin/ormelix --version)
expect("ormelix --version said '${out}'" out STREQUAL "ormelix (OrmelixCore) ${VERSION}\n")
must_run("ormelix --help" COMMAND ${prefix}/bin/ormelix --help)
string(REGEX MATCHALL "\n  [a-z0-9]+ " commands "${out}")
must_run("gzip -dc" COMMAND gzip -dc ${prefix}/share/man/man1/ormelix.1.gz OUTPUT_FILE ${WORK_DIR}/ormelix.1)
file(READ ${WORK_DIR}/ormelix.1 page)
foreach(command ${commands})
  string(STRIP "${command}" command)
  string(FIND "${page}" ".SS ${command}\n.nf\nusage: ormelix ${command}" at)
  expect("the manual page lacks the help of ormelix ${command}" at GREATER -1)
endforeach()
find_program(GROFF groff)
if(GROFF)
  must_run("groff" COMMAND ${GROFF} -man -Tutf8 -ww -z ${WORK_DIR}/ormelix.1)
  string(LENGTH "${err}" warnings)
  expect("groff warns about the manual page: ${err}" warnings EQUAL 0)
endif()

# The Python module imports with the Python it was built for from where it was
# installed (the package's /usr/lib/python3/dist-packages), names the version and
# has its stubs beside it; installed alone (the component python) below another
# prefix, it lies where that Python looks there.
if(PYTHON)
  # (Lines, not semicolons, which CMake would take for list separators.)
  set(check "import os, ormelix
here = os.path.dirname(ormelix.__file__)
assert ormelix.__version__ == '${VERSION}', ormelix.__version__
assert os.path.isfile(os.path.join(here, 'ormelix.pyi')), 'no stubs beside the module'
print(here)")
  set(packages ${prefix}/${PYTHON_DIR})
  if(MODE STREQUAL "deb")
    set(packages ${prefix}/${PYTHON_USR_DIR})
  endif()
  must_run("importing the installed module"
    COMMAND ${CMAKE_COMMAND} -E env PYTHONPATH=${packages} PYTHONDONTWRITEBYTECODE=1
      ${PYTHON} -c "${check}" OUTPUT_STRIP_TRAILING_WHITESPACE)
  expect("the module came from ${out}" out STREQUAL "${packages}")
endif()
if(PYTHON AND MODE STREQUAL "deb")
  set(alone ${WORK_DIR}/python)
  must_run("installing the module alone"
    COMMAND ${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${alone} --component python)
  must_run("importing the module installed alone"
    COMMAND ${CMAKE_COMMAND} -E env PYTHONPATH=${alone}/${PYTHON_DIR} PYTHONDONTWRITEBYTECODE=1
      ${PYTHON} -c "${check}" OUTPUT_STRIP_TRAILING_WHITESPACE)
  expect("the module installed alone came from ${out}" out STREQUAL "${alone}/${PYTHON_DIR}")
endif()
