# What every target of the house is compiled with: all warnings, as errors.
add_library(rollwick_compile INTERFACE)
target_compile_options(rollwick_compile INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # g++ 12 sees overlapping copies in "text" + std::string(...) where there are none.
  target_compile_options(rollwick_compile INTERFACE -Wno-restrict)
endif()
if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
  # Its -Wconversion also means the int that counts bets and indexes their tables; g++ keeps that apart.
  target_compile_options(rollwick_compile INTERFACE -Wno-sign-conversion)
endif()
target_include_directories(rollwick_compile INTERFACE ${PROJECT_SOURCE_DIR}/src)

if(ROLLWICK_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer -O1)
  add_link_options(-fsanitize=address,undefined)
  add_compile_definitions(_GLIBCXX_ASSERTIONS)
endif()

if(ROLLWICK_FUZZ)
  if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    message(FATAL_ERROR "The fuzz targets need clang++: cmake -DCMAKE_CXX_COMPILER=clang++ -DROLLWICK_FUZZ=ON")
  endif()
  add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all
                      -fno-omit-frame-pointer -gline-tables-only -O2)
  add_link_options(-fsanitize=address,undefined)
  add_compile_definitions(_GLIBCXX_ASSERTIONS)
endif()

# The programs are made of their libraries as a whole in a release build, which makes the roll faster; tests are not,
# for it takes long. Objects of libraries can be used either way.
add_library(rollwick_whole INTERFACE)
add_library(rollwick_whole_program INTERFACE)
add_library(rollwick_in_parts INTERFACE)
if(CMAKE_BUILD_TYPE STREQUAL "Release" AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # A roll goes through many short functions: calls cost it more than the size of the code.
  target_compile_options(rollwick_whole INTERFACE -flto=auto -ffat-lto-objects --param=max-inline-insns-auto=80
                         --param=inline-unit-growth=100)
  # g++ 12 sees texts and tables overflow there that it did not see in their own files.
  target_link_options(rollwick_whole_program INTERFACE -flto=auto -O3 --param=max-inline-insns-auto=80
                      --param=inline-unit-growth=100 -Wno-stringop-overflow
                      -Wno-alloc-size-larger-than)
  target_link_options(rollwick_in_parts INTERFACE -fno-lto)

  # What rolls were seen to do tells the compiler which ways through the programs are the frequent ones: `collect`
  # makes programs that note it beside their objects, `use` makes them by it. .ci/house.sh does one after the other.
  # Functions whose branches have changed since are made as without.
  set(ROLLWICK_PROFILE "" CACHE STRING "collect what rolls do, use what was collected, or neither")
  if(ROLLWICK_PROFILE STREQUAL "collect")
    target_compile_options(rollwick_whole INTERFACE -fprofile-generate)
    target_link_options(rollwick_whole_program INTERFACE -fprofile-generate)
  elseif(ROLLWICK_PROFILE STREQUAL "use")
    target_compile_options(rollwick_whole INTERFACE -fprofile-use -fprofile-correction -Wno-missing-profile
                           -Wno-coverage-mismatch)
  endif()
endif()
