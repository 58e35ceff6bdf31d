# Names of the C++ library that a library of ours happens to define are nobody else's: without a list, a host that loads
# it may be bound to them.

# convertnastran_exports(TARGET NAME...): what the library TARGET exports, and nothing else.
function(convertnastran_exports target)
  if(WIN32) # exports what is declared so
    return()
  endif()
  set(names ${ARGN})
  list(JOIN names "; " names)
  set(list ${PROJECT_BINARY_DIR}/${target}.exports)
  file(CONFIGURE OUTPUT ${list} CONTENT "{ global: @names@; local: *; };\n" @ONLY)
  target_link_options(${target} PRIVATE LINKER:--version-script=${list})
  set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS ${list})
endfunction()
