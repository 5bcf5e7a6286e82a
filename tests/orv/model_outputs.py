# SPDX-License-Identifier: Apache-2.0
"""The outputs of orv model that model_test.py expects, whole."""

PHYSICS = """\
physics.orv
  location model of the file, mesh 1, restart

part assembly
  body channel: fluid [10], takes in fluid interior [2], screen [3]
  body heater: solid [11], takes in solid interior [4]
  face inlet face
    side 0  body channel  face use channel inlet       +5 inlet
    side 1  -
  face channel hull
    side 0  body channel  face use channel walls       +6 fluid walls
    side 1  -
  face end face
    side 0  body heater   face use heater end          +7 outlet
    side 1  -
  face heater hull
    side 0  body heater   face use heater walls        +8 solid walls
    side 1  -
  face contact
    side 0  body channel  face use contact of channel  +9 contact
    side 1  body heater   face use contact of heater   -9 contact
  composite metal: body heater
  composite wetted: face uses channel walls, contact of channel
  composite heater unit: body heater; face uses heater end, heater walls

1 part, 2 bodies, 5 faces, 6 face uses, 3 composites
"""

PHYSICS_BUILT = """\
physics.orv
  built from the zones of mesh 1, restart

part P
  body fluid: fluid [10], takes in fluid interior [2], screen [3]
  body solid: solid [11], takes in solid interior [4]
  face F5
    side 0  body fluid  face use inlet            +5 inlet
    side 1  -
  face F6
    side 0  body fluid  face use fluid walls      +6 fluid walls
    side 1  -
  face contact
    side 0  body fluid  face use (contact@fluid)  +9 contact
    side 1  body solid  face use (contact@solid)  -9 contact
  face F7
    side 0  body solid  face use outlet           +7 outlet
    side 1  -
  face F8
    side 0  body solid  face use solid walls      +8 solid walls
    side 1  -

1 part, 2 bodies, 5 faces, 6 face uses, 0 composites
"""

TWO_BODIES = """\
two-bodies.orv
  built from the zones of mesh 1, restart

part P
  body fluid: fluid [10], takes in fluid interior [2], screen [3]
  body solid: solid [11], takes in solid interior [4]
  face F5
    side 0  body fluid  face use inlet            +5 inlet
    side 1  -
  face F6
    side 0  body fluid  face use fluid walls      +6 fluid walls
    side 1  -
  face between
    side 0  body fluid  face use (between@fluid)  +9 between
    side 1  body solid  face use (between@solid)  -9 between
  face F7
    side 0  body solid  face use outlet           +7 outlet
    side 1  -
  face F8
    side 0  body solid  face use solid walls      +8 solid walls
    side 1  -

1 part, 2 bodies, 5 faces, 6 face uses, 0 composites
"""

PERIODIC = """\
periodic.orv
  built from the zones of mesh 1, restart

part P
  body fluid: fluid [6], takes in interior [2]
  face F3
    side 0  body fluid  face use left   +3 left
    side 1  -
  face F4
    side 0  body fluid  face use right  +4 right
    side 1  -
  face F5
    side 0  body fluid  face use walls  +5 walls
    side 1  -

1 part, 1 body, 3 faces, 3 face uses, 0 composites
"""

SHADOW = """\
shadow.orv
  built from the zones of mesh 1, restart

part P
  body fluid: fluid [11], takes in fluid interior [2], screen [3]
  body solid: solid [12], takes in solid interior [4]
  face F5
    side 0  body fluid  face use inlet        +5 inlet
    side 1  -
  face F6
    side 0  body fluid  face use fluid walls  +6 fluid walls
    side 1  -
  face F9
    side 0  body fluid  face use fluid side   +9 fluid side
    side 1  body solid  face use solid side   +10 solid side
  face F7
    side 0  body solid  face use outlet       +7 outlet
    side 1  -
  face F8
    side 0  body solid  face use solid walls  +8 solid walls
    side 1  -

1 part, 2 bodies, 5 faces, 6 face uses, 0 composites
"""

POST = """\
post.orv
  built from the zones of mesh 1, post

part P
  body fluid: fluid [8]

1 part, 1 body, 0 faces, 0 face uses, 0 composites
"""

PARTITIONS = """\
partitions.orv
  built from the zones of mesh 1, partitioned post, partition 0

part P
  body fluid: fluid [5]

1 part, 1 body, 0 faces, 0 face uses, 0 composites
"""

FOAM = """\
foam
  built from the zones of mesh 1, restart

part P
  body cells: cells [9], takes in interior [2]
  face F3
    side 0  body cells  face use xMin  +3 xMin
    side 1  -
  face F4
    side 0  body cells  face use xMax  +4 xMax
    side 1  -
  face F5
    side 0  body cells  face use yMin  +5 yMin
    side 1  -
  face F6
    side 0  body cells  face use yMax  +6 yMax
    side 1  -
  face F7
    side 0  body cells  face use zMin  +7 zMin
    side 1  -
  face F8
    side 0  body cells  face use zMax  +8 zMax
    side 1  -

1 part, 1 body, 6 faces, 6 face uses, 0 composites
"""

FOAM_ZONES = """\
zones
  built from the zones of mesh 1, restart

part P
  body rotor: rotor [14]
  body default: default [15], takes in interior:default [2]
  face interior:default:rotor
    side 0  body default  face use (interior:default:rotor@default)  +3 interior:default:rotor
    side 1  body rotor    face use (interior:default:rotor@rotor)    -3 interior:default:rotor
  face F5
    side 0  body rotor    face use xMax                              +5 xMax
    side 1  -
  face F7
    side 0  body rotor    face use yMin:rotor                        +7 yMin:rotor
    side 1  -
  face F9
    side 0  body rotor    face use yMax:rotor                        +9 yMax:rotor
    side 1  -
  face F11
    side 0  body rotor    face use zMin:rotor                        +11 zMin:rotor
    side 1  -
  face F13
    side 0  body rotor    face use zMax:rotor                        +13 zMax:rotor
    side 1  -
  face F4
    side 0  body default  face use xMin                              +4 xMin
    side 1  -
  face F6
    side 0  body default  face use yMin:default                      +6 yMin:default
    side 1  -
  face F8
    side 0  body default  face use yMax:default                      +8 yMax:default
    side 1  -
  face F10
    side 0  body default  face use zMin:default                      +10 zMin:default
    side 1  -
  face F12
    side 0  body default  face use zMax:default                      +12 zMax:default
    side 1  -

1 part, 2 bodies, 11 faces, 12 face uses, 0 composites
"""

ODD_NAMES = r"""odd-names.orv
  location model of the file, mesh 1, restart

part a "quoted" part
  body "\x1b[31mred": "line\nbreak" [4]
  body "one, two": [5]
  face "-"
    side 0  body "\x1b[31mred"  face use "été \xff \u202e"  +2 <b>&amp;\N
    side 1  body "one, two"     face use ("-@one, two")     -2 <b>&amp;\N
  composite "(both)": bodies "\x1b[31mred", "one, two"; face "-"

1 part, 2 bodies, 1 face, 2 face uses, 1 composite
"""

BROKEN = """\
broken.orv
  location model of the file, mesh 1, restart

part first
  body left: left [4], [77] (not in mesh 1), takes in walls [3]
  body elsewhere: no zones in mesh 1
  body empty: no zones in mesh 1
  face walls
    side 0  -
    side 1  body left       face use twice  -2 between, +3 walls, +88 (no face zone of mesh 1), +4 (no face zone of mesh 1)
  face back
    side 0  body elsewhere  face use twice  no zones in mesh 1
    side 1  -
  face unused
    side 0  -
    side 1  -

part second
  body other: right [5]
  composite missing: body (901, not in the model); face (902, not in the model); face use (903, not in the model)
  composite of both parts: bodies left, empty, other; face walls; face use twice
  composite nothing: nothing

2 parts, 4 bodies, 3 faces, 2 face uses, 3 composites
"""

DOT = """\
graph "location model" {
  graph [rankdir=LR, nodesep=0.14, ranksep=0.3, ordering=out, bgcolor="white", pad=0.15,
         labelloc=t, labeljust=l, fontname="Helvetica,Arial,sans-serif", fontsize=11,
         fontcolor="#5f6b7a"]
  node [fontname="Helvetica,Arial,sans-serif", fontsize=10, fontcolor="#1f2937", height=0.3,
        width=0.4, margin="0.12,0.06"]
  edge [color="#8a97a8", penwidth=1.1, tailport=e, headport=w]
  label=<physics.orv: location model of the file, mesh 1, restart<br align="left"/>part assembly<br align="left"/>>

  {
    body_2 [label=<<b>channel</b><br/><font point-size="8.5" color="#55606e">fluid [10]</font><br/><font point-size="8.5" color="#55606e">takes in fluid interior [2], screen [3]</font>>, shape=box, style="rounded,filled", fillcolor="#dbe8f6", color="#3f6fa8", penwidth=1.3]
    body_3 [label=<<b>heater</b><br/><font point-size="8.5" color="#55606e">solid [11]</font><br/><font point-size="8.5" color="#55606e">takes in solid interior [4]</font>>, shape=box, style="rounded,filled", fillcolor="#dbe8f6", color="#3f6fa8", penwidth=1.3]
    face_4 [label=<inlet face>, shape=box, style="rounded,filled", fillcolor="#f6f7f9", color="#a3adba"]
    face_6 [label=<channel hull>, shape=box, style="rounded,filled", fillcolor="#f6f7f9", color="#a3adba"]
    face_8 [label=<end face>, shape=box, style="rounded,filled", fillcolor="#f6f7f9", color="#a3adba"]
    face_10 [label=<heater hull>, shape=box, style="rounded,filled", fillcolor="#f6f7f9", color="#a3adba"]
    face_12 [label=<contact>, shape=box, style="rounded,filled", fillcolor="#fde3c4", color="#c9781d"]
    use_5 [label=<channel inlet<br/><font point-size="8.5" color="#55606e">+5 inlet</font>>, shape=plaintext, margin="0.05,0.02"]
    body_2 -- use_5
    use_5 -- face_4
    use_7 [label=<channel walls<br/><font point-size="8.5" color="#55606e">+6 fluid walls</font>>, shape=plaintext, margin="0.05,0.02"]
    body_2 -- use_7
    use_7 -- face_6
    use_9 [label=<heater end<br/><font point-size="8.5" color="#55606e">+7 outlet</font>>, shape=plaintext, margin="0.05,0.02"]
    body_3 -- use_9
    use_9 -- face_8
    use_11 [label=<heater walls<br/><font point-size="8.5" color="#55606e">+8 solid walls</font>>, shape=plaintext, margin="0.05,0.02"]
    body_3 -- use_11
    use_11 -- face_10
    use_13 [label=<contact of channel<br/><font point-size="8.5" color="#55606e">+9 contact</font>>, shape=plaintext, margin="0.05,0.02"]
    body_2 -- use_13
    use_13 -- face_12
    use_14 [label=<contact of heater<br/><font point-size="8.5" color="#55606e">-9 contact</font>>, shape=plaintext, margin="0.05,0.02"]
    use_14 -- body_3
    face_12 -- use_14
    composite_15 [label=<<b>metal</b>>, shape=note, style=filled, fillcolor="#f7f3d7", color="#a89c4a"]
    composite_15 -- body_3 [style=dashed, color="#a89c4a"]
    composite_16 [label=<<b>wetted</b>>, shape=note, style=filled, fillcolor="#f7f3d7", color="#a89c4a"]
    composite_16 -- use_7 [style=dashed, color="#a89c4a"]
    composite_16 -- use_13 [style=dashed, color="#a89c4a"]
    composite_17 [label=<<b>heater unit</b>>, shape=note, style=filled, fillcolor="#f7f3d7", color="#a89c4a"]
    composite_17 -- body_3 [style=dashed, color="#a89c4a"]
    composite_17 -- use_9 [style=dashed, color="#a89c4a"]
    composite_17 -- use_11 [style=dashed, color="#a89c4a"]
  }
}
"""

SAME_NAMES = "Error: same-names.orv: Unable to define body 'same'\n"

ZONES_ERRORS = [
    "Unable to build location model: Face zone 2'between' bounds mode than one cell zone on side 0.",
    "Unable to build location model: Face zone 2'between' bounds mode than one cell zone on side 1.",
]
