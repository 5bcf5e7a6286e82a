# Builds and installs the contract and the four tools alone, once static and once shared, with every
# package out of reach; then builds the tools' test over another data-access library with what was
# installed, and runs it.
include(${CMAKE_CURRENT_LIST_DIR}/scratch.cmake)

set(out_of_reach)
foreach(package PkgConfig ZLIB zstd CLI11 fmt nlohmann_json GTest benchmark Python3)
  list(APPEND out_of_reach -D CMAKE_DISABLE_FIND_PACKAGE_${package}=ON)
endforeach()

# The sources of that library include their headers from the project's root; here it has nothing else.
set(second_library tests/project/second_library)
file(COPY ${SOURCE_DIR}/${second_library}/ DESTINATION ${SCRATCH_DIR}/root/${second_library})

foreach(shared OFF ON)
  set(folder ${SCRATCH_DIR}/shared-${shared})
  configure(${SOURCE_DIR} ${folder}/velto -D VELTO_EMBEDDED=OFF -D BUILD_SHARED_LIBS=${shared}
    -D CMAKE_CXX_FLAGS_DEBUG=-O0 ${out_of_reach})
  build(${folder}/velto all)
  run(0 ${CMAKE_COMMAND} --install ${folder}/velto --config ${CONFIG} --prefix ${folder}/prefix)
  if(EXISTS ${folder}/prefix/include/embedded OR EXISTS ${folder}/prefix/bin)
    message(FATAL_ERROR "more than the contract and the tools was installed")
  endif()

  configure(${CMAKE_CURRENT_LIST_DIR}/tools_alone ${folder}/test -D CMAKE_PREFIX_PATH=${folder}/prefix
    -D ROOT=${SCRATCH_DIR}/root)
  build(${folder}/test all)
  run(0 ${folder}/test/tools_alone)
endforeach()
