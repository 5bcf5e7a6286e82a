# What is installed: the libraries, the program, the public and the contract's headers, and the
# package that find_package(velto) finds.

include(CMakePackageConfigHelpers)

set(velto_libraries velto_contract veltofluidsorvinterface veltofluidsorvutilities)
if(TARGET veltofluidsfactory)
  list(APPEND velto_libraries veltofluidsfactory)
endif()

foreach(library IN LISTS velto_libraries)
  if(NOT library STREQUAL velto_contract)
    set_target_properties(${library} PROPERTIES
      VERSION ${PROJECT_VERSION}
      SOVERSION ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR}
      INSTALL_RPATH "$ORIGIN")
  endif()
endforeach()

install(TARGETS ${velto_libraries} EXPORT veltoTargets)
if(TARGET orv)
  set_target_properties(orv PROPERTIES INSTALL_RPATH "$ORIGIN/../${CMAKE_INSTALL_LIBDIR}")
  install(TARGETS orv)
endif()

foreach(folder include/velto data_access)
  install(DIRECTORY ${PROJECT_SOURCE_DIR}/${folder} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
    FILES_MATCHING PATTERN "*.h")
endforeach()

set(velto_package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/velto)
if(NOT BUILD_SHARED_LIBS)
  set(BUILD_SHARED_LIBS OFF)
endif()
configure_package_config_file(
  ${PROJECT_SOURCE_DIR}/cmake/veltoConfig.cmake.in ${PROJECT_BINARY_DIR}/veltoConfig.cmake
  INSTALL_DESTINATION ${velto_package_dir})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/veltoConfigVersion.cmake
  COMPATIBILITY SameMinorVersion)
install(FILES
  ${PROJECT_BINARY_DIR}/veltoConfig.cmake
  ${PROJECT_BINARY_DIR}/veltoConfigVersion.cmake
  DESTINATION ${velto_package_dir})
install(EXPORT veltoTargets NAMESPACE velto:: DESTINATION ${velto_package_dir})
