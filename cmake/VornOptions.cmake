# Compiler and linker options shared by every target of the project.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

# One flat layout in the build tree, as in the installation: programs find libraries and modules the same way.
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bin")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/lib")
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/lib")
set(VORN_MODULE_DIR "${CMAKE_LIBRARY_OUTPUT_DIRECTORY}/vorn")

find_program(VORN_CCACHE ccache)
if(VORN_CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env
      CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime ${VORN_CCACHE})
endif()

add_library(vorn_options INTERFACE)
target_compile_options(vorn_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror
  -fno-semantic-interposition
  # Programs too, after CMake's own -fPIE for them: all share one precompiled header, which ties them to one code model.
  -fPIC
  # GCC 12 warns wrongly of std::string in optimised code (its bug 105329).
  "$<$<AND:$<CXX_COMPILER_ID:GNU>,$<NOT:$<CONFIG:Debug>>>:-Wno-array-bounds;-Wno-restrict;-Wno-stringop-overflow;-Wno-stringop-overread>"
  "-fmacro-prefix-map=${PROJECT_SOURCE_DIR}/="
  "$<$<BOOL:${VORN_CCACHE}>:-fpch-preprocess>")
target_include_directories(vorn_options INTERFACE "$<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>")
target_link_options(vorn_options INTERFACE "-Wl,--as-needed" "-Wl,-Bsymbolic-functions")
if(NOT VORN_FUZZ) # clang's sanitizers leave their symbols to the program
  target_link_options(vorn_options INTERFACE "-Wl,-z,defs")
endif()

find_program(VORN_MOLD mold)
if(VORN_MOLD)
  target_link_options(vorn_options INTERFACE "-fuse-ld=mold")
endif()

if(VORN_SANITIZE)
  target_compile_options(vorn_options INTERFACE
    "-fsanitize=${VORN_SANITIZE}" -fno-omit-frame-pointer -fno-sanitize-recover=undefined
    $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized> # GCC 12 warns wrongly of <regex> in instrumented code
    $<$<CXX_COMPILER_ID:Clang>:-fno-sanitize=function>) # clang 14 cannot have it in coroutines
  target_link_options(vorn_options INTERFACE "-fsanitize=${VORN_SANITIZE}")
endif()
if(VORN_COVERAGE)
  target_compile_options(vorn_options INTERFACE --coverage)
  target_link_options(vorn_options INTERFACE --coverage)
endif()

# The standard headers that nearly every source includes, precompiled once and shared.
file(CONFIGURE OUTPUT "${PROJECT_BINARY_DIR}/pch/empty.cpp" CONTENT "")
add_library(vorn_pch OBJECT "${PROJECT_BINARY_DIR}/pch/empty.cpp")
target_link_libraries(vorn_pch PRIVATE vorn_options)
target_precompile_headers(vorn_pch PRIVATE
  <algorithm> <array> <charconv> <cmath> <cstdint> <deque> <functional> <map> <memory> <optional>
  <span> <sstream> <string> <string_view> <unordered_map> <utility> <variant> <vector>)

# Sources of one folder (and its subfolders) as the sources of a target; EXCLUDE names one file to leave out.
function(vorn_target_sources target)
  cmake_parse_arguments(ARG "" "EXCLUDE" "" ${ARGN})
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/*.cpp")
  if(ARG_EXCLUDE)
    list(REMOVE_ITEM sources "${CMAKE_CURRENT_SOURCE_DIR}/${ARG_EXCLUDE}")
  endif()
  target_sources(${target} PRIVATE ${sources})
  target_precompile_headers(${target} REUSE_FROM vorn_pch)
endfunction()

# One layer of the host; USES names the layers below that it includes.
function(vorn_host_component name)
  cmake_parse_arguments(ARG "" "" "USES;LIBS" ${ARGN})
  add_library(host_${name} OBJECT)
  vorn_target_sources(host_${name})
  target_link_libraries(host_${name} PUBLIC vorn_options ${ARG_LIBS})
  foreach(lower IN LISTS ARG_USES)
    target_link_libraries(host_${name} PUBLIC host_${lower})
  endforeach()
endfunction()
