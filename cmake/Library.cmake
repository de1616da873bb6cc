# rollwick_library(NAME FOLDER [USES lib...]): a static library of all sources of src/FOLDER, with the test program
# NAME_tests when FOLDER/tests has sources. USES is the whole list of libraries whose headers FOLDER may include;
# the test "layers" holds the sources to it.
set_property(GLOBAL PROPERTY ROLLWICK_LAYERS "")

function(rollwick_library name folder)
  cmake_parse_arguments(arg "" "" "USES" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/src/${folder}/*.cpp)
  add_library(${name} STATIC ${sources})
  target_link_libraries(${name} PUBLIC ${arg_USES} PRIVATE rollwick_compile rollwick_whole)

  string(REPLACE ";" "," uses "${arg_USES}")
  set_property(GLOBAL APPEND PROPERTY ROLLWICK_LAYERS "${name}=${folder}=${uses}")

  file(GLOB tests CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/src/${folder}/tests/*.cpp)
  if(tests)
    add_executable(${name}_tests ${tests})
    target_link_libraries(${name}_tests PRIVATE ${name} rollwick_test_support rollwick_compile rollwick_in_parts
                          GTest::gtest_main)
    gtest_discover_tests(${name}_tests DISCOVERY_TIMEOUT 60 TEST_PREFIX "${name}.")
  endif()
endfunction()
