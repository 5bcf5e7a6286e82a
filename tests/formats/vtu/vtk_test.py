#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Reads the files of make-vtu-files with VTK: counts, types, arrays, volumes.

Usage: vtk_test.py MAKE_VTU_FILES      exit status 77 if there is no VTK for Python
"""

import subprocess
import sys
import tempfile
import unittest

try:
    from vtkmodules.util.numpy_support import vtk_to_numpy
    from vtkmodules.vtkFiltersVerdict import vtkCellSizeFilter
    from vtkmodules.vtkIOXML import vtkXMLUnstructuredGridReader
except ImportError:
    sys.exit(77)

MAKE_VTU_FILES = sys.argv[1]

QUAD, TETRA, HEXAHEDRON, WEDGE, PYRAMID, POLYHEDRON = 9, 10, 12, 13, 14, 42


class Grid:
    """A file as VTK sees it."""

    def __init__(self, path):
        reader = vtkXMLUnstructuredGridReader()
        reader.SetFileName(path)
        reader.Update()
        self.error = reader.GetErrorCode()
        self.grid = reader.GetOutput()

    def counts(self):
        return self.grid.GetNumberOfPoints(), self.grid.GetNumberOfCells()

    def types(self):
        return [self.grid.GetCellType(cell) for cell in range(self.grid.GetNumberOfCells())]

    def sizes(self, name):
        """Volume or Area of each cell."""
        sizes = vtkCellSizeFilter()
        sizes.SetInputData(self.grid)
        sizes.Update()
        return vtk_to_numpy(sizes.GetOutput().GetCellData().GetArray(name)).tolist()

    @staticmethod
    def arrays(data):
        return {data.GetArrayName(i): vtk_to_numpy(data.GetArray(i)).tolist()
                for i in range(data.GetNumberOfArrays())}

    def point_data(self):
        return self.arrays(self.grid.GetPointData())

    def cell_data(self):
        return self.arrays(self.grid.GetCellData())

    def field_data(self):
        data = self.grid.GetFieldData()
        arrays = [data.GetAbstractArray(i) for i in range(data.GetNumberOfArrays())]
        return {array.GetName(): [array.GetValue(i) for i in range(array.GetNumberOfValues())]
                for array in arrays}


class VtuFiles(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(cls.folder.cleanup)
        subprocess.run([MAKE_VTU_FILES, cls.folder.name], check=True)

    def grids(self, name):
        """The plain and the packed file of a case."""
        for ending in (".vtu", "-packed.vtu"):
            grid = Grid(f"{self.folder.name}/{name}{ending}")
            self.assertEqual(grid.error, 0, name + ending)
            yield grid

    def assert_sizes(self, sizes, expected):
        self.assertEqual(len(sizes), len(expected))
        for size, wanted in zip(sizes, expected):
            self.assertAlmostEqual(size, wanted)

    def test_cells_of_every_shape_have_their_volume(self):
        for name in ("shapes", "shapes-by-nodes"):
            for grid in self.grids(name):
                self.assertEqual(grid.counts(), (18, 5))
                self.assertEqual(grid.types(), [HEXAHEDRON, PYRAMID, WEDGE, TETRA, POLYHEDRON])
                self.assert_sizes(grid.sizes("Volume"), [1, 1 / 3, 0.5, 1.25 / 6, 1.25])
                self.assertEqual(grid.point_data(), {"node id": list(range(1, 19))})
                self.assertEqual(grid.cell_data(),
                                 {"zone": [4, 4, 4, 4, 5], "cell id": [1, 2, 3, 4, 5]})
                self.assertEqual(grid.field_data(),
                                 {"zone ids": [4, 5], "zone names": ["solids", "prism"]})

    def test_results_are_point_and_cell_data(self):
        for grid in self.grids("results"):
            self.assertEqual(grid.point_data(), {
                "node id": list(range(1, 9)),
                "temperature": [280, 281, 282, 283, 284, 285, 286, 287],
                "velocity": [[x, 0, 0] for x in range(1, 9)]})
            self.assertEqual(grid.cell_data(), {"zone": [3], "cell id": [1], "pressure": [101325],
                                                "fraction": [0.25]})

    def test_partitions_are_pieces(self):
        for grid in self.grids("two-partitions"):
            self.assertEqual(grid.counts(), (16, 2))
            self.assert_sizes(grid.sizes("Volume"), [1, 1])
            self.assertEqual(grid.cell_data(),
                             {"zone": [3, 3], "cell id": [1, 1], "partition": [0, 1]})
        for grid in self.grids("partitions"):
            self.assertEqual(grid.counts(), (1694, 1000))
            self.assert_sizes(grid.sizes("Volume"), [0.001] * 1000)

    def test_pieces_differ_in_having_polyhedra(self):
        for grid in self.grids("mixed-pieces"):
            self.assertEqual(grid.types(), [HEXAHEDRON, HEXAHEDRON, PYRAMID, WEDGE, TETRA,
                                            POLYHEDRON, HEXAHEDRON])
            self.assert_sizes(grid.sizes("Volume"), [1, 1, 1 / 3, 0.5, 1.25 / 6, 1.25, 1])

    def test_planes_have_areas(self):
        for grid in self.grids("quads"):
            self.assertEqual(grid.types(), [QUAD, QUAD])
            self.assert_sizes(grid.sizes("Area"), [1, 1])

    def test_names_come_back(self):
        for grid in self.grids("names"):
            self.assertEqual(grid.field_data(),
                             {"zone ids": [3], "zone names": ["a<b> & \"c\" \u00e9"]})
            self.assertEqual(list(grid.cell_data()),
                             ["zone", "cell id", "w&<ter>/pressure", "fraction", "air/pressure"])

    def test_many_cells_come_in_many_blocks(self):
        for grid in self.grids("box"):
            self.assertEqual(grid.counts(), (32768, 29791))
            self.assertEqual(set(grid.types()), {HEXAHEDRON})
            volumes = grid.sizes("Volume")
            self.assertGreater(min(volumes), 0)
            self.assertAlmostEqual(sum(volumes), 1)
            self.assertEqual(grid.cell_data()["cell id"], list(range(1, 29792)))

    def test_polyhedra_have_volumes(self):
        for grid in self.grids("polyhedra"):
            self.assertEqual(grid.counts(), (2541, 1050))
            types = grid.types()
            self.assertEqual((types.count(HEXAHEDRON), types.count(POLYHEDRON)), (100, 950))
            volumes = grid.sizes("Volume")
            self.assertGreater(min(volumes), 0)
            self.assertAlmostEqual(sum(volumes), 7.8125)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
