# The package: libraries, headers, program, schema, and what find_package and pkg-config need.
include(CMakePackageConfigHelpers)

set(config_directory ${CMAKE_INSTALL_LIBDIR}/cmake/velk_amesp_inp)

set(installed_targets velk_amesp_inp)
if(TARGET velk_core_text)
  list(APPEND installed_targets velk_core_text velk_core_fs velk_core_resource)
endif()
install(TARGETS ${installed_targets} EXPORT velk_amesp_inp-targets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(EXPORT velk_amesp_inp-targets NAMESPACE velk:: DESTINATION ${config_directory})

install(DIRECTORY include/ ${PROJECT_BINARY_DIR}/include/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
  FILES_MATCHING PATTERN "*.hpp")
if(TARGET velk_core_text)
  install(DIRECTORY core/include/ ${PROJECT_BINARY_DIR}/core/include/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
    FILES_MATCHING PATTERN "*.hpp")
endif()
if(TARGET amesp-inp)
  install(TARGETS amesp-inp RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
endif()
install(FILES schemas/input/amesp.yaml DESTINATION ${CMAKE_INSTALL_DATADIR}/velk/schemas/input)

# A suite that brings its core libraries installs them as the package velk_core.
set(core_dependency)
if(NOT TARGET velk_core_text)
  set(core_dependency "include(CMakeFindDependencyMacro)\nfind_dependency(velk_core CONFIG)")
endif()
configure_package_config_file(cmake/velk_amesp_inp-config.cmake.in
  ${PROJECT_BINARY_DIR}/velk_amesp_inp-config.cmake
  INSTALL_DESTINATION ${config_directory})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/velk_amesp_inp-config-version.cmake
  COMPATIBILITY SameMinorVersion)
install(FILES
  ${PROJECT_BINARY_DIR}/velk_amesp_inp-config.cmake
  ${PROJECT_BINARY_DIR}/velk_amesp_inp-config-version.cmake
  DESTINATION ${config_directory})

# The prefix as seen from the directory of the .pc file, so that a moved installation still works.
file(RELATIVE_PATH prefix_from_pc ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
string(REGEX REPLACE "/$" "" prefix_from_pc "${prefix_from_pc}")
configure_file(cmake/velk_amesp_inp.pc.in ${PROJECT_BINARY_DIR}/velk_amesp_inp.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/velk_amesp_inp.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
