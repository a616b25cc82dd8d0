# The warnings that every target of the project is built with, as errors.
function(zephyls_warnings target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror)
  if(ZEPHYLS_TOGETHER)
    # What one source calls its own may be a local name of the next in the group.
    target_compile_options(${target} PRIVATE -Wno-shadow)
  endif()
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # g++ 12 sees overlapping copies in `"text" + std::string()` when it optimizes; there are none.
    target_compile_options(${target} PRIVATE $<$<CONFIG:Release>:-Wno-restrict>)
  endif()
endfunction()
