# Builds the wheel of the Python package without a network: cmake -D PYTHON=... -D SOURCE=... -D LIBRARIES=FILE,FILE
# -D STRIP=... -D FOLDER=... [-D PLATFORM=...] -P Wheel.cmake. The wheel is the only one in FOLDER then. PLATFORM is what
# the libraries are for, if it isn't the one that this runs on.

file(REMOVE_RECURSE ${FOLDER})
file(COPY ${SOURCE}/ DESTINATION ${FOLDER}/source PATTERN __pycache__ EXCLUDE)
file(COPY ${SOURCE}/../LICENSE DESTINATION ${FOLDER}/source)
string(REPLACE "," ";" LIBRARIES "${LIBRARIES}")
foreach(library ${LIBRARIES}) # a wheel holds no links: the file gets the name that is loaded
  get_filename_component(name ${library} NAME)
  file(REAL_PATH ${library} file)
  configure_file(${file} ${FOLDER}/source/nas2zdt/${name} COPYONLY)
  execute_process(COMMAND ${STRIP} ${FOLDER}/source/nas2zdt/${name} COMMAND_ERROR_IS_FATAL ANY)
endforeach()
if(PLATFORM)
  file(WRITE ${FOLDER}/source/setup.cfg "[bdist_wheel]\nplat_name = ${PLATFORM}\n")
endif()
execute_process(COMMAND ${PYTHON} -m build --wheel --no-isolation --outdir ${FOLDER} .
  WORKING_DIRECTORY ${FOLDER}/source OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
