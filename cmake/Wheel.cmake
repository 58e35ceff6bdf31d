# Builds the wheel of the Python package without a network: cmake -D PYTHON=... -D SOURCE=... -D LIBRARIES=FILE,FILE
# -D FOLDER=... -P Wheel.cmake. The wheel is the only one in FOLDER then.

file(REMOVE_RECURSE ${FOLDER})
file(COPY ${SOURCE}/ DESTINATION ${FOLDER}/source PATTERN __pycache__ EXCLUDE)
string(REPLACE "," ";" LIBRARIES "${LIBRARIES}")
foreach(library ${LIBRARIES}) # a wheel holds no links: the file gets the name that is loaded
  get_filename_component(name ${library} NAME)
  file(REAL_PATH ${library} file)
  configure_file(${file} ${FOLDER}/source/nas2zdt/${name} COPYONLY)
endforeach()
execute_process(COMMAND ${PYTHON} -m build --wheel --no-isolation --outdir ${FOLDER} .
  WORKING_DIRECTORY ${FOLDER}/source OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
