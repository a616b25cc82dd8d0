# What every executable of a build with a sanitizer carries, since libraries are built without it.
function(zephyls_in_every_executable name source)
  add_library(${name} OBJECT ${source})
  link_libraries("$<$<STREQUAL:$<TARGET_PROPERTY:TYPE>,EXECUTABLE>:$<TARGET_OBJECTS:${name}>>")
endfunction()

if(CMAKE_CXX_FLAGS MATCHES "-fsanitize=thread")
  zephyls_in_every_executable(zephyls_thread_sanitizer
                              ${PROJECT_SOURCE_DIR}/cmake/ThreadSanitizer.cpp)
elseif(CMAKE_CXX_FLAGS MATCHES "-fsanitize=address")
  zephyls_in_every_executable(zephyls_address_sanitizer
                              ${PROJECT_SOURCE_DIR}/cmake/AddressSanitizer.cpp)
endif()
