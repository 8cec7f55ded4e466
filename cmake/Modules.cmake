# dorvane_module(folder DEPENDS folder... LIBRARIES target... [MOC])
# One static library of all sources of src/<folder> but main.cpp, or a library of headers alone; folders name their
# libraries: qt/surface is dorvane_qt_surface.
function(dorvane_library_name folder out)
  string(REPLACE "/" "_" name ${folder})
  set(${out} dorvane_${name} PARENT_SCOPE)
endfunction()

function(dorvane_set_up target)
  target_include_directories(${target} PRIVATE ${PROJECT_SOURCE_DIR}/src)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wconversion -Wshadow)
endfunction()

function(dorvane_module folder)
  cmake_parse_arguments(ARG "MOC" "" "DEPENDS;LIBRARIES" ${ARGN})
  dorvane_library_name(${folder} name)
  file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/src/${folder}/*.cpp)
  file(GLOB headers CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/src/${folder}/*.h)
  list(FILTER sources EXCLUDE REGEX "/main\\.cpp$")
  if(sources)
    set(scope PUBLIC)
    add_library(${name} STATIC ${sources} ${headers})
    set_target_properties(${name} PROPERTIES AUTOMOC "${ARG_MOC}")
    dorvane_set_up(${name})
  else()
    set(scope INTERFACE)
    add_library(${name} INTERFACE)
  endif()
  target_include_directories(${name} ${scope} ${PROJECT_SOURCE_DIR}/src)
  foreach(dependency ${ARG_DEPENDS})
    dorvane_library_name(${dependency} dependency_name)
    target_link_libraries(${name} ${scope} ${dependency_name})
  endforeach()
  target_link_libraries(${name} ${scope} ${ARG_LIBRARIES})
endfunction()

# dorvane_program(name folder DEPENDS folder... LIBRARIES target... [MOC])
# The program of src/<folder>/main.cpp; everything else there is a library of its own, so that tests can link it. The
# resources of src/<folder>/*.qrc go whole into whatever links that library.
function(dorvane_program program folder)
  dorvane_module(${folder} ${ARGN})
  dorvane_library_name(${folder} name)

  file(GLOB resources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/src/${folder}/*.qrc)
  if(resources)
    add_library(${name}_resources OBJECT ${resources})
    set_target_properties(${name}_resources PROPERTIES AUTORCC ON LINKER_LANGUAGE CXX)
    target_link_libraries(${name}_resources PRIVATE Qt6::Core)
    target_sources(${name} INTERFACE $<TARGET_OBJECTS:${name}_resources>)
  endif()

  file(GLOB main CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/src/${folder}/main.cpp)
  if(main)
    add_executable(${program} ${main})
    dorvane_set_up(${program})
    target_link_libraries(${program} PRIVATE ${name})
  endif()
endfunction()

# What a test program finds around it: no display, and sanitizers that stop at the first finding and tell where it is.
set(test_environment
  QT_QPA_PLATFORM=offscreen
  ASAN_OPTIONS=detect_leaks=1:detect_stack_use_after_return=1:strict_string_checks=1:check_initialization_order=1
  UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
  "LSAN_OPTIONS=print_suppressions=0:suppressions='${PROJECT_SOURCE_DIR}/tests/lsan.supp'")

# dorvane_tests(folder DEPENDS folder... LIBRARIES target...)
# One test program of all tests/<folder>/*_test.cpp.
function(dorvane_tests folder)
  cmake_parse_arguments(ARG "" "" "DEPENDS;LIBRARIES" ${ARGN})
  dorvane_library_name(${folder} name)
  file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/tests/${folder}/*_test.cpp)
  if(NOT sources)
    return()
  endif()
  add_executable(${name}_test ${sources})
  target_include_directories(${name}_test PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  target_compile_options(${name}_test PRIVATE -Wall -Wextra -Wshadow)
  target_compile_definitions(${name}_test PRIVATE
    DORVANE_SOURCE_DIR="${PROJECT_SOURCE_DIR}" DORVANE_BINARY_DIR="${CMAKE_BINARY_DIR}")
  foreach(dependency ${ARG_DEPENDS})
    dorvane_library_name(${dependency} dependency_name)
    target_link_libraries(${name}_test PRIVATE ${dependency_name})
  endforeach()
  target_link_libraries(${name}_test PRIVATE GTest::gmock GTest::gtest_main ${ARG_LIBRARIES})
  add_test(NAME ${folder} COMMAND ${name}_test)
  set_tests_properties(${folder} PROPERTIES ENVIRONMENT "${test_environment}" TIMEOUT 600)
endfunction()
