# What every target of the house is compiled with: all warnings, as errors.
add_library(rollwick_compile INTERFACE)
target_compile_options(rollwick_compile INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # g++ 12 sees overlapping copies in "text" + std::string(...) where there are none.
  target_compile_options(rollwick_compile INTERFACE -Wno-restrict)
endif()
target_include_directories(rollwick_compile INTERFACE ${PROJECT_SOURCE_DIR}/src)

if(ROLLWICK_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer -O1)
  add_link_options(-fsanitize=address,undefined)
  add_compile_definitions(_GLIBCXX_ASSERTIONS)
endif()
