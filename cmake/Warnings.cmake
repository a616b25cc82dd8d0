# The warnings that every target of the project is built with, as errors.
function(zephyls_warnings target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror)
endfunction()
