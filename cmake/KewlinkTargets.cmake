# Helpers that give every target of the project the same flags.

add_library(kewlink_flags INTERFACE)
target_include_directories(kewlink_flags INTERFACE ${PROJECT_SOURCE_DIR}/src ${PROJECT_SOURCE_DIR})
target_compile_options(kewlink_flags INTERFACE -Wall -Wextra -Wpedantic -Wshadow
  -Wnon-virtual-dtor -Woverloaded-virtual)
target_compile_definitions(kewlink_flags INTERFACE QT_NO_CAST_TO_ASCII
  QT_NO_CAST_FROM_BYTEARRAY QT_NO_KEYWORDS QT_DISABLE_DEPRECATED_BEFORE=0x050F00)
if(CMAKE_BUILD_TYPE STREQUAL "Release")  # what a distribution's build turns on
  set(CMAKE_POSITION_INDEPENDENT_CODE ON)
  add_compile_options(-fstack-protector-strong)
  add_compile_definitions(_FORTIFY_SOURCE=2)
  add_link_options(-Wl,-z,relro,-z,now)
endif()
if(KWCC_WERROR)
  target_compile_options(kewlink_flags INTERFACE -Werror)
endif()
if(KWCC_FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link)  # the fuzzer steers by the coverage of all code
endif()
if(KWCC_SANITIZE)
  add_compile_options(-fsanitize=${KWCC_SANITIZE} -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${KWCC_SANITIZE})
  # In each program alone, not in the libraries that it is linked from.
  target_sources(kewlink_flags INTERFACE
    $<$<STREQUAL:$<TARGET_PROPERTY:TYPE>,EXECUTABLE>:${PROJECT_SOURCE_DIR}/cmake/KeepModules.cpp>)
  if(KWCC_SANITIZE MATCHES "undefined")
    add_compile_options(-fno-sanitize-recover=undefined)
  endif()
endif()

# kewlink_library(NAME LIBRARIES...): one static library from all sources of
# the current folder but its main.cpp.
function(kewlink_library name)
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp
    ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
  list(FILTER sources EXCLUDE REGEX "/main\\.cpp$")
  add_library(${name} STATIC ${sources})
  target_link_libraries(${name} PUBLIC ${ARGN} PRIVATE kewlink_flags)
endfunction()

# The code of the tests themselves is compiled as it stands: with sanitizers that takes half
# the time.
function(kewlink_plain_code name)
  if(KWCC_SANITIZE)
    target_compile_options(${name} PRIVATE -O0)
  endif()
endfunction()

# kewlink_tests(NAME LIBRARIES...): one test program from all *_test.cpp of the
# current folder. CTest runs it whole, with its tests in another order each time: each
# leaves the program as it found it (tests/support/StartState.h). Under ThreadSanitizer
# those with "Threads" in their names run alone, with the label threads; the target
# thread_tests builds the folders that have some.
function(kewlink_tests name)
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp
    ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
  add_executable(${name} ${sources})
  target_link_libraries(${name} PRIVATE ${ARGN} GTest::gtest kewlink_flags)
  kewlink_plain_code(${name})
  target_compile_definitions(${name} PRIVATE
    KWCC_SOURCE_DIR="${PROJECT_SOURCE_DIR}" KWCC_BINARY_DIR="${PROJECT_BINARY_DIR}")
  if(KWCC_SANITIZE MATCHES "thread")
    set(text)
    foreach(source IN LISTS sources)
      file(STRINGS ${source} threaded REGEX "TEST.*Threads")
      string(APPEND text "${threaded}")
    endforeach()
    if(NOT text)
      return()
    endif()
    add_dependencies(thread_tests ${name})
    add_test(NAME ${name} COMMAND ${name} --gtest_filter=*Threads*)
    set_tests_properties(${name} PROPERTIES LABELS threads)
  else()
    add_test(NAME ${name} COMMAND ${name} --gtest_shuffle)
  endif()
  set_tests_properties(${name} PROPERTIES TIMEOUT 300
    ENVIRONMENT "QT_QPA_PLATFORM=offscreen;QT_LOGGING_RULES=qt.qpa.*=false")
endfunction()
