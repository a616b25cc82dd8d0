# Every executable of a build that looks for races knows which libraries are built without it.
if(CMAKE_CXX_FLAGS MATCHES "-fsanitize=thread")
  add_library(zephyls_thread_sanitizer OBJECT ${PROJECT_SOURCE_DIR}/cmake/ThreadSanitizer.cpp)
  link_libraries(
    "$<$<STREQUAL:$<TARGET_PROPERTY:TYPE>,EXECUTABLE>:$<TARGET_OBJECTS:zephyls_thread_sanitizer>>")
endif()
