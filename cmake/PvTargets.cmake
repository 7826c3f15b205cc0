# Compiler rules that every target of the project shares, and the two
# functions that make a folder into a target.

add_library(pv_rules INTERFACE)
target_compile_definitions(pv_rules INTERFACE PV_VERSION="${PROJECT_VERSION}")
if(MSVC)
  # /fp:precise relaxes nothing, and multiplies and adds are not contracted without
  # /fp:contract since Visual Studio 2022, the oldest that is meant. /bigobj: code that is
  # there once for each kind of processor.
  target_compile_options(pv_rules INTERFACE /W4 /WX /permissive- /Zc:__cplusplus /utf-8
                                            /fp:precise /bigobj)
  # Neither asked of the other compilers: signs of constants (4245), conditions that a
  # template makes constant (4127), padding for an alignment that was asked for (4324),
  # code behind what ends in one instance of a template (4702), functions of the vector
  # library that are not inlined (4714) or not called (4505).
  target_compile_options(pv_rules INTERFACE /wd4245 /wd4127 /wd4324 /wd4702 /wd4714 /wd4505)
  # The standard's own functions are no fault (4996).
  target_compile_definitions(pv_rules INTERFACE _CRT_SECURE_NO_WARNINGS)
else()
  # Pictures must be the same on every machine, so no fused multiply-add and
  # no relaxed arithmetic anywhere.
  target_compile_options(
    pv_rules INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion
                       -Wdouble-promotion -Werror -ffp-contract=off)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # GCC 12 sees an overlap in `"text" + std::string` that is not there (its bug 105651).
    target_compile_options(pv_rules INTERFACE -Wno-restrict)
  endif()
endif()

if(MINGW)
  # Vectors that GCC keeps on the stack are not aligned there on 64-bit Windows (its bug
  # 54412), so the assembler makes each aligned move an unaligned one.
  target_compile_options(pv_rules INTERFACE -Wa,-muse-unaligned-vector-move)
endif()

if(PV_SANITIZE)
  set(pv_sanitizers address,undefined)
  target_compile_options(
    pv_rules INTERFACE -fsanitize=${pv_sanitizers} -fno-sanitize-recover=all
                       -fno-omit-frame-pointer)
  target_link_options(pv_rules INTERFACE -fsanitize=${pv_sanitizers})
endif()
if(PV_FUZZ)
  target_compile_options(pv_rules INTERFACE -fsanitize=fuzzer-no-link)
endif()

# pv_folder(NAME SOURCES file... [LINK target...])
# One folder of src/ as a static library; headers are found from src/.
function(pv_folder name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(${name} PUBLIC ${ARG_LINK} PRIVATE pv_rules)
endfunction()

# pv_test(NAME SOURCES file... [LINK target...])
# A GoogleTest program whose cases become separate tests, or one where each start of a
# program goes through an emulator.
function(pv_test name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  target_compile_definitions(
    ${name} PRIVATE PV_SOURCE_DIR="${PROJECT_SOURCE_DIR}" PV_BINARY_DIR="${CMAKE_BINARY_DIR}")
  target_link_libraries(${name} PRIVATE ${ARG_LINK} GTest::gtest_main pv_rules)
  if(CMAKE_CROSSCOMPILING)
    # What is tested is compiled as it is shipped; the tests are compiled quickly.
    target_compile_options(${name} PRIVATE -O0 -fpch-preprocess)
    target_precompile_headers(${name} REUSE_FROM pv_test_headers)
    add_test(NAME ${name} COMMAND ${name})
    set_tests_properties(${name} PROPERTIES TIMEOUT 300)
    return()
  endif()
  gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 300)
endfunction()
