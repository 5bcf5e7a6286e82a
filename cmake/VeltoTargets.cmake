# What every target of the project shares: the language level, the include root, warnings, sanitizers.

include(GNUInstallDirs)

if(PROJECT_IS_TOP_LEVEL AND NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
  set(CMAKE_BUILD_TYPE Release CACHE STRING "Build type" FORCE)
endif()
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

# velto_target(<target>): settings for a library or program of this project.
function(velto_target target)
  target_compile_features(${target} PUBLIC cxx_std_17)
  set_target_properties(${target} PROPERTIES CXX_EXTENSIONS OFF)
  target_include_directories(${target} PUBLIC
    $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>
    $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include>
    $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion
    -Wold-style-cast -Woverloaded-virtual)
  if(VELTO_WERROR)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
  if(VELTO_SANITIZE)
    target_compile_options(${target} PRIVATE -fsanitize=${VELTO_SANITIZE} -fno-omit-frame-pointer
      -fno-sanitize-recover=all)
    target_link_options(${target} PUBLIC -fsanitize=${VELTO_SANITIZE})
  endif()
endfunction()
