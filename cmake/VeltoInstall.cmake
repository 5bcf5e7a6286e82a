# What is installed: the libraries, the program, the headers of the tools, of the contract and of what
# formats are written with, and the package that find_package(velto) finds.

include(CMakePackageConfigHelpers)

set(velto_libraries velto_contract veltofluidsorvutilities)
set(velto_header_folders include/velto data_access)
if(VELTO_EMBEDDED)
  list(APPEND velto_libraries veltofluidsorvinterface veltofluidsfactory)
  list(APPEND velto_header_folders embedded/base embedded/memory)
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
if(VELTO_BUILD_ORV)
  set_target_properties(orv PROPERTIES INSTALL_RPATH "$ORIGIN/../${CMAKE_INSTALL_LIBDIR}")
  install(TARGETS orv)
endif()

foreach(folder IN LISTS velto_header_folders)
  string(REGEX REPLACE "^include/" "" destination ${folder})
  install(DIRECTORY ${PROJECT_SOURCE_DIR}/${folder}/
    DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/${destination} FILES_MATCHING PATTERN "*.h")
endforeach()

if(VELTO_EMBEDDED)
  install(FILES ${PROJECT_SOURCE_DIR}/factory/makers.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/factory)
endif()

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
