# Installs the project to a scratch folder, builds the examples with the installed package, and runs
# them.
include(${CMAKE_CURRENT_LIST_DIR}/scratch.cmake)

set(prefix ${SCRATCH_DIR}/prefix)
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

# The installed headers need no other.
file(GLOB_RECURSE headers RELATIVE ${prefix}/include ${prefix}/include/*.h)
list(TRANSFORM headers REPLACE "(.+)" "#include \"\\1\"\n")
list(JOIN headers "" content)
file(WRITE ${SCRATCH_DIR}/headers.cpp "${content}")
run(0 ${COMPILER} -std=c++17 -fsyntax-only -I ${prefix}/include ${SCRATCH_DIR}/headers.cpp)

foreach(example host own_source own_source_beside tools)
  configure(${SOURCE_DIR}/examples/${example} ${SCRATCH_DIR}/${example} -D CMAKE_PREFIX_PATH=${prefix})
  build(${SCRATCH_DIR}/${example} all)
endforeach()
try_host(${SCRATCH_DIR}/host)
include(${CMAKE_CURRENT_LIST_DIR}/try_own_source.cmake)
include(${CMAKE_CURRENT_LIST_DIR}/try_tools.cmake)
if(EXISTS ${prefix}/bin/orv)
  run(0 ${prefix}/bin/orv --help)
  foreach(page man/man1/orv.1 bash-completion/completions/orv zsh/site-functions/_orv
      fish/vendor_completions.d/orv.fish)
    run(0 ${CMAKE_COMMAND} -E cat ${prefix}/share/${page})
  endforeach()
endif()
