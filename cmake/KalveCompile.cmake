# How every target of this tree is compiled: warnings, sanitizers, the character set of the texts.

include(CheckCXXCompilerFlag)

if(KALVE_LATIN1)
  check_cxx_compiler_flag("-finput-charset=UTF-8 -fexec-charset=ISO-8859-1" KALVE_COMPILER_HAS_CHARSETS)
  if(NOT KALVE_COMPILER_HAS_CHARSETS)
    message(FATAL_ERROR "Kalve writes ISO-8859-1 from UTF-8 sources: it needs a compiler that knows "
                        "-finput-charset and -fexec-charset, such as g++ 12.")
  endif()
endif()

# What our own code is compiled with; generated parsers stay out of it.
add_library(kalve_warnings INTERFACE)
target_compile_options(kalve_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow $<$<BOOL:${KALVE_WERROR}>:-Werror>)

if(KALVE_ASAN)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()
