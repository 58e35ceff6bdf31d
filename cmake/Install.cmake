# What an installation holds, how other projects find it, and the package.

if(NOT CMAKE_INSTALL_DOCDIR)
  if(WIN32)
    set(CMAKE_INSTALL_DOCDIR doc)
  else()
    set(CMAKE_INSTALL_DOCDIR share/doc/convertnastran) # where a distribution looks for a package's
  endif()
endif()
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

# The message library lies beside the library; the command, which lies elsewhere, finds it by its run path. It is the same
# in the folder of the build: one that is changed while it is installed is made as long as needed by empty elements, and
# those are the current directory.
file(RELATIVE_PATH library_from_command
  ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR})
set_target_properties(ConvertNastran nas2zdt_library PROPERTIES
  VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR} INSTALL_RPATH "$ORIGIN")
set_target_properties(nas2zdt PROPERTIES INSTALL_RPATH "$ORIGIN/${library_from_command}")
set_target_properties(ConvertNastran nas2zdt_library nas2zdt PROPERTIES BUILD_WITH_INSTALL_RPATH ON)
target_include_directories(ConvertNastran INTERFACE
  $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/Converter/ConvertNastran/driver>
  $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/ConvertNastran>)
target_include_directories(nas2zdt_library INTERFACE
  $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/nas2zdt/library>
  $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/nas2zdt>)

install(TARGETS ConvertNastran nas2zdt_library EXPORT ConvertNastranTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
if(WIN32)
  install(TARGETS Convertmsg LIBRARY DESTINATION ${CMAKE_INSTALL_BINDIR})
else()
  install(TARGETS Convertmsg LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
endif()
if(TARGET ConvertNastranGtk)
  install(TARGETS ConvertNastranGtk LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
endif()
install(TARGETS nas2zdt RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(FILES Converter/ConvertNastran/driver/ConvertFile.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/ConvertNastran)
install(FILES nas2zdt/library/nas2zdt.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/nas2zdt)
if(NOT WIN32)
  install(FILES docs/nas2zdt.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
  install(FILES completions/nas2zdt.bash DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions RENAME nas2zdt)
  install(FILES completions/_nas2zdt DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/site-functions)
endif()
install(FILES README.md CHANGELOG.md docs/account.md docs/batches.md docs/cards.md docs/check.md docs/faithful.md
  docs/hosts.md docs/library.md docs/pictures.md docs/report.md docs/sections.md docs/zdt.md
  DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(FILES examples/read_zdt.py examples/sum_zdt.py DESTINATION ${CMAKE_INSTALL_DOCDIR}/examples)
if(WIN32)
  install(FILES LICENSE DESTINATION . RENAME LICENSE.txt)
else()
  install(FILES LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR} RENAME copyright)
endif()

# ---- for find_package(ConvertNastran) and pkg-config
set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/ConvertNastran)
install(EXPORT ConvertNastranTargets NAMESPACE ConvertNastran:: DESTINATION ${package_dir})
configure_package_config_file(cmake/ConvertNastranConfig.cmake.in
  ${PROJECT_BINARY_DIR}/ConvertNastranConfig.cmake INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/ConvertNastranConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/ConvertNastranConfig.cmake ${PROJECT_BINARY_DIR}/ConvertNastranConfigVersion.cmake
  DESTINATION ${package_dir})
file(RELATIVE_PATH prefix_from_pkgconfig ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
foreach(library ConvertNastran nas2zdt)
  configure_file(cmake/library.pc.in ${PROJECT_BINARY_DIR}/${library}.pc @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/${library}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
endforeach()

# ---- the Python package: installed for the interpreter of the distribution, or as a wheel with the library in it
if(CONVERTNASTRAN_PYTHON AND NOT WIN32) # there it is a wheel alone
  install(DIRECTORY python/nas2zdt DESTINATION ${CONVERTNASTRAN_PYTHON_DIR} PATTERN __pycache__ EXCLUDE)
endif()
file(READ python/pyproject.toml pyproject)
if(NOT pyproject MATCHES "\nversion = \"${PROJECT_VERSION}\"\n")
  message(FATAL_ERROR "python/pyproject.toml is of another version than ${PROJECT_VERSION}")
endif()
find_program(CONVERTNASTRAN_WHEEL_PYTHON python3 PATHS /usr/bin NO_DEFAULT_PATH) # the one that packages are for
find_program(CONVERTNASTRAN_WHEEL_PYTHON python3)
set(wheel_command ${CMAKE_COMMAND} -D PYTHON=${CONVERTNASTRAN_WHEEL_PYTHON} -D SOURCE=${PROJECT_SOURCE_DIR}/python
  -D STRIP=${CMAKE_STRIP} -D LIBRARIES=$<TARGET_SONAME_FILE:nas2zdt_library>,$<TARGET_FILE:Convertmsg>)
if(WIN32)
  list(TRANSFORM wheel_command REPLACE TARGET_SONAME_FILE TARGET_FILE)
  list(APPEND wheel_command -D PLATFORM=win_amd64)
endif()
add_custom_target(wheel
  COMMAND ${wheel_command} -D FOLDER=${PROJECT_BINARY_DIR}/wheel -P ${PROJECT_SOURCE_DIR}/cmake/Wheel.cmake
  VERBATIM)
add_dependencies(wheel nas2zdt_library Convertmsg)

# ---- the packages
set(CPACK_PACKAGE_NAME convertnastran)
set(CPACK_PACKAGE_CONTACT "the maintainers <maintainers@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY ${PROJECT_DESCRIPTION})
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
set(CPACK_STRIP_FILES ON)
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/cmake/Package.cmake)

if(WIN32)
  set(CPACK_GENERATOR ZIP)
  find_program(CONVERTNASTRAN_MAKENSIS makensis)
  if(CONVERTNASTRAN_MAKENSIS)
    list(APPEND CPACK_GENERATOR NSIS)
  else()
    message(STATUS "makensis isn't there: no installer among the packages")
  endif()
  list(APPEND CMAKE_MODULE_PATH ${PROJECT_SOURCE_DIR}/cmake) # where CPack finds our NSIS.template.in
  set(CPACK_PACKAGE_INSTALL_DIRECTORY ${PROJECT_NAME})
  set(CPACK_PACKAGE_INSTALL_REGISTRY_KEY ${PROJECT_NAME})
  set(CPACK_NSIS_DISPLAY_NAME ${PROJECT_NAME})
  set(CPACK_COPYRIGHT ${copyright})
  set(CPACK_DOCUMENTATION ${CMAKE_INSTALL_DOCDIR})
  include(CPack)
  return()
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_SYSTEM_NAME linux-${CMAKE_SYSTEM_PROCESSOR})
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION "A library that a structural analysis host loads and
calls, and the command nas2zdt for terminals and scripts. A deck is read with
all that it includes, resolved into global terms and written as one ZDT file.")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "python3, python3-numpy")

# How programs that link the library depend on this package, and that the loader learns of the library.
file(CONFIGURE OUTPUT ${PROJECT_BINARY_DIR}/package/shlibs CONTENT
  "libConvertNastran @PROJECT_VERSION_MAJOR@ convertnastran (>= @PROJECT_VERSION@)
libnas2zdt @PROJECT_VERSION_MAJOR@ convertnastran (>= @PROJECT_VERSION@)\n" @ONLY)
file(CONFIGURE OUTPUT ${PROJECT_BINARY_DIR}/package/triggers CONTENT "activate-noawait ldconfig\n")
set(CPACK_DEBIAN_PACKAGE_CONTROL_EXTRA ${PROJECT_BINARY_DIR}/package/shlibs ${PROJECT_BINARY_DIR}/package/triggers)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
include(CPack)
