# Builds and runs a program whose build contains the project as a folder, and configures one that
# fetches it. Only the program is built, without optimisation.
include(${CMAKE_CURRENT_LIST_DIR}/scratch.cmake)

configure(${SOURCE_DIR}/examples/subdirectory ${SCRATCH_DIR}/subdirectory -D CMAKE_CXX_FLAGS_DEBUG=-O0)
build(${SCRATCH_DIR}/subdirectory host)
try_host(${SCRATCH_DIR}/subdirectory)
foreach(unwanted orv tests samples)
  if(EXISTS ${SCRATCH_DIR}/subdirectory/velto/${unwanted})
    message(FATAL_ERROR "${unwanted} takes part in the build of another project")
  endif()
endforeach()

configure(${SOURCE_DIR}/examples/fetched ${SCRATCH_DIR}/fetched
  -D FETCHCONTENT_SOURCE_DIR_VELTO=${SOURCE_DIR})
