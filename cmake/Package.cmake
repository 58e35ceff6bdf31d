# Run by CPack between filling a package's folder and packing it: what a distribution asks of its packages, and what
# this one needs of others.

set(root ${CPACK_TEMPORARY_INSTALL_DIRECTORY})

# ---- the same bytes whenever and wherever it is made
if(DEFINED ENV{SOURCE_DATE_EPOCH} AND NOT CPACK_GENERATOR STREQUAL "DEB") # which knows how
  execute_process(COMMAND find ${root} -exec touch -h -d @$ENV{SOURCE_DATE_EPOCH} {} + COMMAND_ERROR_IS_FATAL ANY)
endif()

# ---- what the installer for Windows unpacks and removes: CPack's own lists are in the order of the file system
if(CPACK_GENERATOR STREQUAL "NSIS")
  file(GLOB_RECURSE entries LIST_DIRECTORIES ON RELATIVE ${root} ${root}/*) # sorted, folders before what is in them
  set(folders)
  foreach(entry ${entries})
    string(REPLACE / \\ target $INSTDIR/${entry})
    if(IS_DIRECTORY ${root}/${entry})
      string(APPEND CPACK_INSTALL_COMMANDS "  CreateDirectory \"${target}\"\n")
      string(PREPEND folders "  RMDir \"${target}\"\n")
    else()
      string(APPEND CPACK_INSTALL_COMMANDS "  File \"/oname=${target}\" \"${root}/${entry}\"\n")
      string(APPEND CPACK_REMOVE_COMMANDS "  Delete \"${target}\"\n")
    endif()
  endforeach()
  string(APPEND CPACK_REMOVE_COMMANDS "${folders}")
endif()

if(NOT CPACK_GENERATOR STREQUAL "DEB")
  return()
endif()
set(usr ${root}${CPACK_PACKAGING_INSTALL_PREFIX})

# ---- the changelog, dated like everything in the package
string(TIMESTAMP date "%a, %d %b %Y %H:%M:%S +0000" UTC)
set(changelog ${usr}/share/doc/${CPACK_PACKAGE_NAME}/changelog)
file(WRITE ${changelog} "${CPACK_PACKAGE_NAME} (${CPACK_PACKAGE_VERSION}) unstable; urgency=medium

  * Packaged as released.

 -- ${CPACK_PACKAGE_CONTACT}  ${date}
")
file(MAKE_DIRECTORY ${usr}/share/zsh/vendor-completions) # where this distribution's shell looks
file(RENAME ${usr}/share/zsh/site-functions/_nas2zdt ${usr}/share/zsh/vendor-completions/_nas2zdt)
file(REMOVE_RECURSE ${usr}/share/zsh/site-functions)
file(GLOB manual ${usr}/share/man/man1/*.1)
execute_process(COMMAND gzip -9 -n -f ${changelog} ${manual} COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND chmod -R go=u-w ${root} COMMAND_ERROR_IS_FATAL ANY) # whoever made it, everybody may read it

# ---- dependencies: the library and the command work without the desktop windows, whose toolkit is recommended only
find_program(DPKG_SHLIBDEPS dpkg-shlibdeps)
if(NOT DPKG_SHLIBDEPS)
  message(FATAL_ERROR "dpkg-shlibdeps, which finds what the package depends on, isn't there (package: dpkg-dev)")
endif()
file(GLOB_RECURSE binaries ${usr}/bin/nas2zdt ${usr}/libConvertNastran.so.*.* ${usr}/libnas2zdt.so.*.*
  ${usr}/Convertmsg.DLL)
file(GLOB_RECURSE plugin ${usr}/ConvertNastranGtk.so)
if(plugin)
  list(PREPEND plugin -dRecommends)
endif()
file(MAKE_DIRECTORY ${root}/DEBIAN) # by which it knows a package
file(WRITE ${root}/debian/control "")
execute_process(COMMAND ${DPKG_SHLIBDEPS} -O -dDepends ${binaries} ${plugin}
  WORKING_DIRECTORY ${root} OUTPUT_VARIABLE fields COMMAND_ERROR_IS_FATAL ANY)
file(REMOVE_RECURSE ${root}/DEBIAN ${root}/debian)
foreach(field Depends Recommends)
  if(fields MATCHES "shlibs:${field}=([^\n]*)")
    string(TOUPPER ${field} name)
    set(CPACK_DEBIAN_PACKAGE_${name} "${CMAKE_MATCH_1}")
  endif()
endforeach()
