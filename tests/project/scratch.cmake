# What the tests share that build a project of their own in a scratch folder. They are run with
#   SOURCE_DIR, BUILD_DIR     the project and its build
#   SCRATCH_DIR               a folder of the test's own, which is emptied
#   CONFIG, GENERATOR         how to build
#   COMPILER, FLAGS, LAUNCHER the C++ compiler of the build, its flags and its launcher, if there is one
file(REMOVE_RECURSE ${SCRATCH_DIR})
file(MAKE_DIRECTORY ${SCRATCH_DIR})

# run(<status> COMMAND...) runs a command in the scratch folder, fails if it does not end with that
# status, and leaves what it printed in the variable output.
function(run status)
  execute_process(COMMAND ${ARGN} WORKING_DIRECTORY ${SCRATCH_DIR}
    RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
  if(NOT result EQUAL status)
    list(JOIN ARGN " " command)
    message(FATAL_ERROR "${command}\nended with ${result} instead of ${status}:\n${output}")
  endif()
  set(output "${output}" PARENT_SCOPE)
endfunction()

# expect(<text> <status> COMMAND...) does the same, and fails if anything but that text is printed.
function(expect text status)
  run(${status} ${ARGN})
  if(NOT output STREQUAL text)
    list(JOIN ARGN " " command)
    message(FATAL_ERROR "${command}\nprinted\n${output}instead of\n${text}")
  endif()
endfunction()

# configure(<source> <build> OPTIONS...) and build(<build> TARGETS...)
function(configure source build)
  run(0 ${CMAKE_COMMAND} -S ${source} -B ${build} -G ${GENERATOR} -D CMAKE_BUILD_TYPE=${CONFIG}
    -D CMAKE_CXX_COMPILER=${COMPILER} -D CMAKE_CXX_FLAGS=${FLAGS}
    -D CMAKE_CXX_COMPILER_LAUNCHER=${LAUNCHER} ${ARGN})
endfunction()

function(build folder)
  run(0 ${CMAKE_COMMAND} --build ${folder} --config ${CONFIG} --target ${ARGN})
endfunction()

# Runs the example host of a folder on a sound mesh and on a damaged one.
function(try_host folder)
  run(0 ${MAKE_POLYMESH} ${SCRATCH_DIR}/sound 2 2 2)
  expect("" 0 ${folder}/host ${SCRATCH_DIR}/sound)
  run(0 ${MAKE_POLYMESH} ${SCRATCH_DIR}/damaged 2 2 2 --damage truncated)
  run(1 ${folder}/host ${SCRATCH_DIR}/damaged)
  if(NOT output MATCHES "Error reading ORV file")
    message(FATAL_ERROR "host prints of a damaged mesh: ${output}")
  endif()
endfunction()
