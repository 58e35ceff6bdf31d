# The page of --report, built from viewer/ by npm: CONVERTNASTRAN_PAGE is the source with it, or the one that stands for
# it where it can't be built. Nothing is written into the source folder.

set(CONVERTNASTRAN_PAGE nas2zdt/report/NoPage.cpp)
if(NOT CONVERTNASTRAN_VIEWER)
  return()
endif()

set(viewer_source ${PROJECT_SOURCE_DIR}/viewer)
set(viewer_build ${PROJECT_BINARY_DIR}/viewer)
set(viewer_missing "")
find_program(NODE_PROGRAM node)
find_program(NPM_PROGRAM npm)
if(NODE_PROGRAM AND NPM_PROGRAM)
  execute_process(COMMAND ${NODE_PROGRAM} --version OUTPUT_VARIABLE node_version OUTPUT_STRIP_TRAILING_WHITESPACE)
  string(REGEX REPLACE "^v" "" node_version "${node_version}")
  if(node_version VERSION_LESS 18)
    set(viewer_missing "Node.js is older than 18")
  endif()
else()
  set(viewer_missing "Node.js and npm aren't there")
endif()

# ---- the packages of the lock file, once for each state of it
if(NOT viewer_missing)
  file(MAKE_DIRECTORY ${viewer_build})
  foreach(name package.json package-lock.json .npmrc)
    configure_file(${viewer_source}/${name} ${viewer_build}/${name} COPYONLY)
  endforeach()
  file(SHA256 ${viewer_source}/package-lock.json viewer_lock)
  if(NOT EXISTS ${viewer_build}/installed-${viewer_lock})
    message(STATUS "Fetching the packages of the page")
    execute_process(
      COMMAND ${NPM_PROGRAM} ci --omit=dev --ignore-scripts --prefer-offline --no-audit --no-fund
        --fetch-retries=1 --fetch-timeout=30000
      WORKING_DIRECTORY ${viewer_build} TIMEOUT 180
      RESULT_VARIABLE npm_result OUTPUT_QUIET ERROR_VARIABLE npm_error)
    if(npm_result EQUAL 0)
      file(TOUCH ${viewer_build}/installed-${viewer_lock})
    else()
      string(REGEX MATCH "npm (ERR!|error)[^\n]*" npm_error "${npm_error}")
      set(viewer_missing "npm can't get the packages (${npm_error})")
    endif()
  endif()
endif()

if(viewer_missing)
  if(CONVERTNASTRAN_VIEWER STREQUAL "AUTO")
    message(STATUS "${viewer_missing}: nas2zdt is built without --report")
    return()
  endif()
  message(FATAL_ERROR "CONVERTNASTRAN_VIEWER is ON, but ${viewer_missing}")
endif()

set(CONVERTNASTRAN_PAGE ${viewer_build}/ReportPage.cpp)
set_source_files_properties(${CONVERTNASTRAN_PAGE} PROPERTIES COMPILE_OPTIONS -Wno-overlength-strings)
file(GLOB_RECURSE viewer_files CONFIGURE_DEPENDS ${viewer_source}/src/*)
add_custom_command(OUTPUT ${CONVERTNASTRAN_PAGE}
  COMMAND ${NODE_PROGRAM} ${viewer_source}/build.mjs ${viewer_build}
  DEPENDS ${viewer_source}/build.mjs ${viewer_build}/package-lock.json ${viewer_files}
  COMMENT "Building the page of --report" VERBATIM)
