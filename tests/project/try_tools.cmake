# Runs the example tools of ${SCRATCH_DIR}, each on samples of the installed program.
set(programs ${SCRATCH_DIR}/tools)
run(0 ${prefix}/bin/orv sample physics physics.orv)
run(0 ${prefix}/bin/orv sample two-bodies two.orv --cells 100)
run(0 ${prefix}/bin/orv sample --defect face-node-range ids.orv)

expect("" 0 ${programs}/check_case physics.orv)
expect("ids.orv: error: checkFaceConnectivity : Face node ids out of node id range
missing: error:  : Error: No such file / unreadable
" 1 ${programs}/check_case physics.orv ids.orv missing)

run(0 ${prefix}/bin/orv sample --defect overlap overlap.orv)
run(0 ${prefix}/bin/orv sample --defect one-dimensional line.orv)
expect("" 0 ${programs}/list_findings physics.orv)
expect("error, mesh 1, target 1, partition -1, checkFaceZones: Overlapping Face ranges\n"
  1 ${programs}/list_findings overlap.orv)
expect("error, mesh 1, target 0, partition -1, checkMeshSize: Invalid mesh dimension
the check ended in checkMeshSize
" 1 ${programs}/list_findings line.orv)

expect("" 0 ${programs}/copy_case physics.orv copy.orv)
expect("copy.orv: sound (0 errors, 0 warnings)\n" 0 ${prefix}/bin/orv check --level 2 copy.orv)
expect("missing: not a case that can be read\n" 2 ${programs}/copy_case missing none.orv)
expect("Error:
\tstart of writing: nowhere/copy.orv: cannot be made: No such file or directory
Error:
\tend of writing: nothing was written because of the error before
" 1 ${programs}/copy_case physics.orv nowhere/copy.orv)

expect("channel: 3 face uses around it\nheater: 3 face uses around it\n"
  0 ${programs}/show_bodies physics.orv)
expect("fluid: 3 face uses around it\nsolid: 3 face uses around it\n"
  0 ${programs}/show_bodies two.orv)

expect("coating: side 0 of zone 7 side 0 of zone 8
friction: side 0 of zone 6 side 0 of zone 9
inflow: side 0 of zone 5
insulation: side 0 of zone 8 side 0 of zone 7
screen:
steel side: side 1 of zone 9
water side: side 0 of zone 9
" 0 ${programs}/show_regions physics.orv)
expect("Location Model is not valid as it doesn't contain any parts.\n"
  1 ${programs}/show_regions two.orv)
