# Runs the examples own_source and own_source_beside of ${SCRATCH_DIR} on the meshes of the first, on
# meshes of other kinds and on none.
set(program ${SCRATCH_DIR}/own_source/check_plain_mesh)
file(COPY ${SOURCE_DIR}/examples/own_source/meshes/ DESTINATION ${SCRATCH_DIR})

expect("two_rooms.plain: sound\n" 0 ${program} two_rooms.plain)
expect("Error: checkDomain : The attribute 'location' of 'air' references locations that don't exist \
in the location model.
Error: checkFaceConnectivity : Face node ids out of node id range
damaged.plain: not sound
" 1 ${program} damaged.plain)
expect("Error:  : Error reading ORV file
Error:  : ORV - unreadable.plain: line 27: expected a number, found eleven
unreadable.plain: not sound
" 1 ${program} unreadable.plain)

file(WRITE ${SCRATCH_DIR}/other.txt "Something else\n")
expect("Error:  : Not a ORV file (cannot setup provider)\nother.txt: not sound\n"
  1 ${program} other.txt)
expect("Error:  : Error: No such file / unreadable\nmissing: not sound\n" 1 ${program} missing)

# refuse(<lines> <reason>) has the program read a plain mesh of those lines.
function(refuse lines reason)
  file(WRITE ${SCRATCH_DIR}/bad.plain "plainmesh 1\n${lines}\n")
  expect("Error:  : Error reading ORV file\nError:  : ORV - bad.plain: ${reason}\nbad.plain: not sound\n"
    1 ${program} bad.plain)
endfunction()

refuse("node 1 2" "line 2: expected node X Y Z, found 3 words")
refuse("node 1 2 3m" "line 2: expected a number, found 3m")
refuse("\n# a comment\nface 1 2  3 4 5" "line 4: did not expect face here")
refuse("faces roof dome" "line 2: expected a type of face zone, found dome")
refuse("faces roof wall\nface 1 0  3 4" "line 3: expected face CELL0 CELL1 and 3 to 1000 nodes, found 5 words")
refuse("faces roof wall\nface 1 -1  3 4 5" "line 3: expected a number, found -1")
refuse("cells hall\ncell cube" "line 3: expected a shape, found cube")

# Beside the formats of velto: the same mesh, a copy of it in a store, and a mesh of another format.
set(beside ${SCRATCH_DIR}/own_source_beside)
expect("two_rooms.plain: sound\n" 0 ${beside}/check_any two_rooms.plain)
expect("" 0 ${beside}/copy_any two_rooms.plain rooms.orv)
expect("rooms.orv: sound\n" 0 ${beside}/check_any rooms.orv)
expect("Error:\n\tunreadable.plain: line 27: expected a number, found eleven\n"
  1 ${beside}/copy_any unreadable.plain none.orv)
run(0 ${beside}/check_any sound)
expect("Error:  : Not a ORV file (cannot setup provider)\nother.txt: not sound\n"
  1 ${beside}/check_any other.txt)
