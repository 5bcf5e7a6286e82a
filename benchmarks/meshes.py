# SPDX-License-Identifier: Apache-2.0
"""The meshes that compare and growth measure: a box of hexahedra, and irregular polyhedra."""

import os
import pathlib
import random
import shutil

from measure import remove, run

SYSTEM = {
    "controlDict": "application checkMesh; startFrom startTime; startTime 0; stopAt endTime;\n"
                   "endTime 1; deltaT 1; writeControl timeStep; writeInterval 1;\n"
                   "writeFormat binary; writePrecision 12; writeCompression off;\n",
    "fvSchemes": "divSchemes{} gradSchemes{} laplacianSchemes{} ddtSchemes{default none;}\n"
                 "interpolationSchemes{} snGradSchemes{}\n",
    "fvSolution": "",
}
ORIGIN = (0, 0, 0)
# A cube in six tetrahedra around its diagonal, each from corner to corner with its volume positive.
CUBE = [(ORIGIN, (1, 0, 0), (1, 1, 0), (1, 1, 1)), (ORIGIN, (1, 0, 1), (1, 0, 0), (1, 1, 1)),
        (ORIGIN, (1, 1, 0), (0, 1, 0), (1, 1, 1)), (ORIGIN, (0, 1, 0), (0, 1, 1), (1, 1, 1)),
        (ORIGIN, (0, 0, 1), (1, 0, 1), (1, 1, 1)), (ORIGIN, (0, 1, 1), (0, 0, 1), (1, 1, 1))]


def find_openfoam():
    """Has the programs of the Debian package find their files."""
    if "WM_PROJECT_DIR" not in os.environ and os.path.isdir("/usr/share/openfoam"):
        os.environ["WM_PROJECT_DIR"] = "/usr/share/openfoam"


def write_system(case):
    """What OpenFOAM's programs need beside a mesh."""
    (case / "system").mkdir(parents=True)
    for name, text in SYSTEM.items():
        header = f"FoamFile {{ version 2.0; format ascii; class dictionary; object {name}; }}\n"
        (case / "system" / name).write_text(header + text, encoding="ascii")


def write_tetrahedra(file, side):
    """A block of side x side x side cubes of six tetrahedra each, its inner nodes moved at random,
    in the format of Gmsh."""
    row = side + 1
    numbers = random.Random(1)

    def moved(x):
        return x + numbers.uniform(-0.2, 0.2) if 0 < x < side else x

    with open(file, "w", encoding="ascii") as out:
        out.write(f"$MeshFormat\n2.2 0 8\n$EndMeshFormat\n$Nodes\n{row ** 3}\n")
        for node in range(row ** 3):
            x, y, z = node % row, node // row % row, node // row ** 2
            out.write(f"{node + 1} {moved(x):.6f} {moved(y):.6f} {moved(z):.6f}\n")
        out.write(f"$EndNodes\n$Elements\n{6 * side ** 3}\n")
        corners = [[x + row * (y + row * z) for x, y, z in tetrahedron] for tetrahedron in CUBE]
        element = 0
        for cube in range(side ** 3):
            first = 1 + cube % side + row * (cube // side % side + row * (cube // side ** 2))
            for a, b, c, d in corners:
                element += 1
                out.write(f"{element} 4 2 1 1 {first + a} {first + b} {first + c} {first + d}\n")
        out.write("$EndElements\n")


class Mesh:
    """A mesh in a folder of its own, as a store file, and as OpenFOAM cases, binary and in text."""

    def __init__(self, folder, orv, kind, cells):
        self.folder = pathlib.Path(folder) / f"{kind}-{cells}"
        self.folder.mkdir()
        self.orv = orv
        self.cells = cells
        self.store = self.folder / "mesh.orv"
        self.binary = self.text = None
        self.is_restart = True  # and so can be an OpenFOAM mesh
        if kind == "polyhedra":
            self.make_polyhedra()
        else:
            self.name = f"box of {cells} hexahedra"
            self.sample("box")

    def sample(self, name):
        run([self.orv, "sample", name, self.store, "-n", str(self.cells)])

    def make_polyhedra(self):
        """The dual of a tetrahedral mesh: cells of eight to fourteen faces."""
        if not shutil.which("gmshToFoam") or not shutil.which("polyDualMesh"):
            self.name = f"{self.cells} polyhedra of orv sample, bricks in running bond"
            self.is_restart = False
            self.sample("polyhedra")
            return
        side = max(2, round(self.cells ** (1 / 3)) - 1)
        self.cells = (side + 1) ** 3
        self.name = (f"{self.cells} polyhedra, made by polyDualMesh of {6 * side ** 3} tetrahedra "
                     "with nodes moved at random")
        case = self.folder / "dual"
        write_system(case)
        write_tetrahedra(case / "tetrahedra.msh", side)
        run(["gmshToFoam", "tetrahedra.msh"], folder=case)
        run(["polyDualMesh", "-overwrite", "60"], folder=case)  # 60 degrees make an edge
        run([self.orv, "copy", case, self.store])
        remove(case)

    def make_binary(self):
        self.binary = self.make_case("binary")

    def make_text(self):
        self.text = self.make_case("text", "--text")

    def make_case(self, name, *options):
        case = self.folder / name
        write_system(case)
        run([self.orv, "copy", self.store, self.poly_mesh(case), "--to", "openfoam", *options])
        return case

    @staticmethod
    def poly_mesh(case):
        return case / "constant" / "polyMesh"
