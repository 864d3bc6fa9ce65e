# pugixml in wide-character mode, from source: Debian's library is built narrow and exports the same mangled
# names, so ours is a static library with hidden visibility, one copy in each shared library that uses it.
if(NOT EXISTS "${PUGIXML_SOURCE_DIR}/src/pugixml.cpp")
  message(FATAL_ERROR "pugixml source not found in ${PUGIXML_SOURCE_DIR}; run scripts/setup first")
endif()

add_library(pugixml_wide STATIC "${PUGIXML_SOURCE_DIR}/src/pugixml.cpp")
target_compile_options(pugixml_wide PRIVATE -fvisibility=hidden)
target_compile_definitions(pugixml_wide PUBLIC PUGIXML_WCHAR_MODE)
target_include_directories(pugixml_wide SYSTEM PUBLIC
  "$<BUILD_INTERFACE:${PUGIXML_SOURCE_DIR}/src>"
  "$<INSTALL_INTERFACE:$<INSTALL_PREFIX>/${CMAKE_INSTALL_INCLUDEDIR}/vorn/pugixml>")
set_target_properties(pugixml_wide PROPERTIES EXPORT_NAME pugixml)
