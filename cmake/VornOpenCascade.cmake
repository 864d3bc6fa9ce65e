# OpenCASCADE for the heavy mathematics of curves, as plain libraries behind one target: imported targets of its own
# package would be asked for again by everyone who uses the installation. No header of ours includes its headers.
find_package(OpenCASCADE REQUIRED CONFIG COMPONENTS FoundationClasses ModelingData)

add_library(vorn_opencascade INTERFACE)
target_include_directories(vorn_opencascade SYSTEM INTERFACE "${OpenCASCADE_INCLUDE_DIR}")
foreach(toolkit TKG3d TKMath TKernel)
  target_link_libraries(vorn_opencascade INTERFACE "$<TARGET_LINKER_FILE:${toolkit}>")
endforeach()
