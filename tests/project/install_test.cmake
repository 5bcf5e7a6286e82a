# Installs the project to a scratch folder, builds the example host against the installed package,
# and has it check a sound mesh and a damaged one.

# run(<status> COMMAND...) runs a command and fails if it does not end with that status.
function(run status)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output
    ERROR_VARIABLE output)
  if(NOT result EQUAL status)
    list(JOIN ARGN " " command)
    message(FATAL_ERROR "${command}\nended with ${result} instead of ${status}:\n${output}")
  endif()
endfunction()

set(prefix ${SCRATCH_DIR}/prefix)
file(REMOVE_RECURSE ${SCRATCH_DIR})
run(0 ${CMAKE_COMMAND} --install ${BUILD_DIR} --config ${CONFIG} --prefix ${prefix})

# Nothing that was installed as text remembers where it was built.
file(GLOB_RECURSE texts ${prefix}/*.cmake ${prefix}/*.h)
foreach(text IN LISTS texts)
  file(READ ${text} content)
  string(FIND "${content}" ${SOURCE_DIR} position)
  if(NOT position EQUAL -1)
    message(FATAL_ERROR "${text} names ${SOURCE_DIR}")
  endif()
endforeach()

run(0 ${CMAKE_COMMAND} -S ${SOURCE_DIR}/examples/host -B ${SCRATCH_DIR}/host -G ${GENERATOR}
  -D CMAKE_PREFIX_PATH=${prefix} -D CMAKE_BUILD_TYPE=${CONFIG} -D CMAKE_CXX_COMPILER=${COMPILER})
run(0 ${CMAKE_COMMAND} --build ${SCRATCH_DIR}/host --config ${CONFIG})

run(0 ${MAKE_POLYMESH} ${SCRATCH_DIR}/sound 2 2 2)
run(0 ${SCRATCH_DIR}/host/host ${SCRATCH_DIR}/sound)
run(0 ${MAKE_POLYMESH} ${SCRATCH_DIR}/damaged 2 2 2 --damage truncated)
run(1 ${SCRATCH_DIR}/host/host ${SCRATCH_DIR}/damaged)
if(EXISTS ${prefix}/bin/orv)
  run(0 ${prefix}/bin/orv --help)
endif()
