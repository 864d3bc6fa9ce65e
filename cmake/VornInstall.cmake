# Public headers, the relocatable installation and the CMake package "testapi".
include(CMakePackageConfigHelpers)

set(VORN_PACKAGE_DIR "${CMAKE_INSTALL_LIBDIR}/cmake/testapi")
set(VORN_HEADER_DIR "${CMAKE_INSTALL_INCLUDEDIR}/vorn")

# Every header of a library's folder is public and keeps its path from the root of the sources. The target
# all_verify_interface_header_sets, outside the default build, proves that each compiles alone.
function(vorn_public_headers target folder)
  file(GLOB_RECURSE headers CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/${folder}/*.h")
  target_sources(${target} PUBLIC FILE_SET HEADERS BASE_DIRS "${PROJECT_SOURCE_DIR}" FILES ${headers})
  set_target_properties(${target} PROPERTIES VERIFY_INTERFACE_HEADER_SETS ON)
endfunction()

vorn_public_headers(vornhost host)
vorn_public_headers(vorntest vorntest)
vorn_public_headers(testapi testapi)

# Libraries are found from where their user stands, so that the installed tree can be moved.
set_target_properties(vornbench PROPERTIES INSTALL_RPATH "$ORIGIN/../${CMAKE_INSTALL_LIBDIR}")
set_target_properties(vornhost vorntest testapi PROPERTIES INSTALL_RPATH "$ORIGIN")
set_target_properties(cmdtests PROPERTIES INSTALL_RPATH "$ORIGIN/..")

install(TARGETS vornbench vornhost vorntest testapi pugixml_wide
  EXPORT testapiTargets
  RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}"
  LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}"
  ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}"
  FILE_SET HEADERS DESTINATION "${VORN_HEADER_DIR}")
install(TARGETS cmdtests LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}/vorn")

install(FILES "${PUGIXML_SOURCE_DIR}/src/pugixml.hpp" "${PUGIXML_SOURCE_DIR}/src/pugiconfig.hpp"
  DESTINATION "${VORN_HEADER_DIR}/pugixml")
install(FILES "${PUGIXML_SOURCE_DIR}/LICENSE.md" DESTINATION "${CMAKE_INSTALL_DOCDIR}/pugixml")
install(FILES README.md CHANGELOG.md LICENSE DESTINATION "${CMAKE_INSTALL_DOCDIR}")
install(DIRECTORY docs DESTINATION "${CMAKE_INSTALL_DOCDIR}" FILES_MATCHING PATTERN "*.md")
install(DIRECTORY examples DESTINATION "${CMAKE_INSTALL_DOCDIR}" PATTERN "results/*" EXCLUDE)

install(EXPORT testapiTargets NAMESPACE testapi:: DESTINATION "${VORN_PACKAGE_DIR}")
configure_package_config_file("${PROJECT_SOURCE_DIR}/cmake/testapiConfig.cmake.in"
  "${PROJECT_BINARY_DIR}/testapiConfig.cmake" INSTALL_DESTINATION "${VORN_PACKAGE_DIR}")
# Before 1.0 a new minor version may change interfaces.
write_basic_package_version_file("${PROJECT_BINARY_DIR}/testapiConfigVersion.cmake" COMPATIBILITY SameMinorVersion)
install(FILES "${PROJECT_BINARY_DIR}/testapiConfig.cmake" "${PROJECT_BINARY_DIR}/testapiConfigVersion.cmake"
  DESTINATION "${VORN_PACKAGE_DIR}")
