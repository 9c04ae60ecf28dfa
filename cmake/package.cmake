# Installing (cmake --install) and the Debian package (./dev package: cpack -G DEB).
#
# The package holds what cmake --install puts below /usr: the library with its
# headers, CMake package files and ormelix.pc, the ormelix command with its manual
# page, the SQLite extension and, where built, the Python module in
# /usr/lib/python3/dist-packages. dpkg-shlibdeps names the shared libraries the
# programs link as dependencies; the development packages of SQLite and libpq are
# named as well, as a host that links the static library needs them (headers and
# linker names alike), and so is the Python the module is built for.
include(CMakePackageConfigHelpers)
install(TARGETS ormelix_core EXPORT OrmelixCoreTargets
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
  INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
# cmake --install --strip (and the package) takes the debug information out of the
# archive too, which CMake leaves in: 130 MB become a tenth of it.
install(CODE "
  if(CMAKE_INSTALL_DO_STRIP)
    execute_process(COMMAND \"${CMAKE_STRIP}\" --strip-debug
      \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_LIBDIR}/$<TARGET_FILE_NAME:ormelix_core>\")
  endif()")
install(DIRECTORY include/ormelix DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(EXPORT OrmelixCoreTargets NAMESPACE OrmelixCore:: DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/OrmelixCore)
configure_package_config_file(cmake/OrmelixCoreConfig.cmake.in
  ${CMAKE_CURRENT_BINARY_DIR}/OrmelixCoreConfig.cmake
  INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/OrmelixCore)
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/OrmelixCoreConfigVersion.cmake
  COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/OrmelixCoreConfig.cmake ${CMAKE_CURRENT_BINARY_DIR}/OrmelixCoreConfigVersion.cmake
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/OrmelixCore)

# ormelix.pc finds the prefix from where it lies: libdir/pkgconfig, up to the prefix.
if(IS_ABSOLUTE "${CMAKE_INSTALL_LIBDIR}")
  message(FATAL_ERROR "CMAKE_INSTALL_LIBDIR must be relative to the prefix for ormelix.pc: ${CMAKE_INSTALL_LIBDIR}")
endif()
file(RELATIVE_PATH ORMELIX_PC_TO_PREFIX /prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig /prefix)
configure_file(cmake/ormelix.pc.in ${CMAKE_CURRENT_BINARY_DIR}/ormelix.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/ormelix.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME ormelix)
set(CPACK_PACKAGE_VENDOR OrmelixCore)
set(CPACK_PACKAGE_CONTACT "OrmelixCore maintainers <maintainers@ormelix.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "data library of an Austrian payroll application, its command and Python module")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION "OrmelixCore holds the data of an Austrian payroll application: employers,
dated statutory tables, employees with monthly pay records, careers, children,
short-time work, benefits in kind and countries, over SQLite and PostgreSQL.

This package holds the static C++20 library with its headers, CMake package
files and pkg-config file, the ormelix command (make, show, copy, export,
import, back up and check stores), the SQLite extension with the stores' text
order, and the Python module ormelix.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "libsqlite3-dev, libpq-dev")
if(TARGET ormelix_python)
  string(APPEND CPACK_DEBIAN_PACKAGE_DEPENDS ", ${ORMELIX_PYTHON_DEPENDS}")
endif()
set(CPACK_STRIP_FILES ON)

# A Debian package carries a changelog (the package's alone, not cmake --install's);
# this one names the version it is built from.
find_program(ORMELIX_GZIP gzip)
mark_as_advanced(ORMELIX_GZIP)
if(ORMELIX_GZIP)
  set(doc ${PROJECT_BINARY_DIR}/package-files/doc)
  string(TIMESTAMP date "%a, %d %b %Y %H:%M:%S +0000" UTC)
  file(WRITE ${doc}/changelog "ormelix (${PROJECT_VERSION}) unstable; urgency=medium\n\n"
    "  * OrmelixCore ${PROJECT_VERSION}, built from its sources.\n\n -- ${CPACK_PACKAGE_CONTACT}  ${date}\n")
  execute_process(COMMAND ${ORMELIX_GZIP} -9 -n -f ${doc}/changelog)
  set(CPACK_INSTALLED_DIRECTORIES ${doc} ${CPACK_PACKAGING_INSTALL_PREFIX}/share/doc/ormelix)
endif()
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/package)
include(CPack)
