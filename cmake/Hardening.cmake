# What makes a fault harder to use by whoever wrote the deck. The tests read it back from what was linked.

include(CheckCXXCompilerFlag)
include(CheckLinkerFlag)
include(CheckPIESupported)

add_library(convertnastran_hardening INTERFACE)
target_compile_options(convertnastran_hardening INTERFACE -Wformat -Werror=format-security)

if(WIN32)
  target_link_options(convertnastran_hardening INTERFACE LINKER:--dynamicbase,--nxcompat,--high-entropy-va)
  return()
endif()

check_pie_supported(LANGUAGES C CXX) # or programs are compiled for any address and linked for one
target_compile_options(convertnastran_hardening INTERFACE -fstack-protector-strong)
target_link_options(convertnastran_hardening INTERFACE LINKER:-z,relro,-z,now)

# Indirect branches and returns that lead to where they should, on processors that watch them. The C library's start
# files may lack the mark, and one object without it takes it from the whole: for returns it is set again, as start files
# don't touch where they return to. For branches their landing places would have to be there too.
check_cxx_compiler_flag(-fcf-protection=full CONVERTNASTRAN_HAS_CF_PROTECTION)
if(CONVERTNASTRAN_HAS_CF_PROTECTION)
  target_compile_options(convertnastran_hardening INTERFACE -fcf-protection=full)
  check_linker_flag(CXX LINKER:-z,shstk CONVERTNASTRAN_HAS_SHADOW_STACK)
  if(CONVERTNASTRAN_HAS_SHADOW_STACK)
    target_link_options(convertnastran_hardening INTERFACE LINKER:-z,shstk)
  endif()
endif()

# Calls of the C library know how long their buffers are, where the compiler does. Needs optimization; sanitizers know
# better. Level 3, which also asks at run time, keeps the functions that put numbers together from being inlined.
if(NOT CONVERTNASTRAN_SANITIZE)
  target_compile_options(convertnastran_hardening INTERFACE
    $<$<NOT:$<CONFIG:Debug>>:-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2>)
endif()
