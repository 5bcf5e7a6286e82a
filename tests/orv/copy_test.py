#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""orv copy as a user meets it: whole outputs, exit statuses, what is left on the disk.

Usage: copy_test.py ORV MAKE_POLYMESH SCHEMA
"""

import json
import os
import pathlib
import re
import signal
import subprocess
import sys
import tempfile
import time
import unittest

import jsonschema

from disturbed import STEPS

ORV, MAKE_POLYMESH, SCHEMA = map(os.path.abspath, sys.argv[1:4])

PERIODIC_PLAN = """\
periodic.orv -> copy.orv (store)

mesh  target   partition  zones  nodes  faces  cells    data
   1  restart                 6     27     36      8  2.2 kB

besides
solver type     VELTO_GENERIC
location model  one that is built from the zones
settings        7
results         none

no copy carries
  mesh 1, restart: the shadow links of face zones 3,4
  mesh 1, restart: the shadow faces of face zones 3,4
"""


class OrvCopy(unittest.TestCase):
    """A folder with samples of about eight cells, in which the program runs."""

    def setUp(self):
        self._folder = tempfile.TemporaryDirectory()
        self.folder = pathlib.Path(self._folder.name)
        self.addCleanup(self._folder.cleanup)

    def orv(self, *arguments):
        done = subprocess.run([ORV, *map(str, arguments)], capture_output=True, text=True,
                              cwd=self.folder, check=False)
        return done.returncode, done.stdout, done.stderr

    def sample(self, name, cells=8, file=None):
        file = file or name + ".orv"
        self.assertEqual(self.orv("sample", name, file, "-n", cells)[0], 0)
        return file

    def decomposed(self, folder):
        """A case folder with the meshes of two processors."""
        for processor in ("processor0", "processor1"):
            subprocess.run([MAKE_POLYMESH, self.folder / folder / processor / "constant/polyMesh",
                            "2", "1", "1"], check=True, stdout=subprocess.DEVNULL)

    def files(self):
        return sorted(str(path.relative_to(self.folder)) for path in self.folder.rglob("*")
                      if path.is_file())

    def size(self, name):
        size = (self.folder / name).stat().st_size
        return f"{size} bytes" if size < 1000 else f"{size / 1000:.1f} kB"


class Copies(OrvCopy):
    def test_are_verified_on_demand(self):
        self.sample("box")
        self.assertEqual(
            self.orv("copy", "box.orv", "copy.orv", "--verify"),
            (0, f"copy.orv: 8 cells, {self.size('copy.orv')}, same as its source\n", ""))

    def test_tell_the_files_that_they_wrote(self):
        self.sample("results")
        status, out, err = self.orv("copy", "results.orv", "copy.orv")
        self.assertEqual((status, out, err),
                         (0, f"copy.orv: 8 cells, {self.size('copy.orv')}\n"
                             f"copy.orvr: results, {self.size('copy.orvr')}\n", ""))
        self.assertEqual(self.files(), ["copy.orv", "copy.orvr", "results.orv", "results.orvr"])

    def test_of_samples_check_as_good_as_their_source(self):
        for name in ("box", "box-cells", "post", "polyhedra", "plane", "two-bodies", "periodic",
                     "shadow", "physics", "results", "partitions"):
            with self.subTest(name):
                source = self.sample(name, 60)
                for level in ("0", "4"):
                    self.assertEqual(
                        self.orv("copy", source, "copy.orv", "-f", "--verify", "-c", level)[0], 0)
                    self.assertEqual(
                        self.orv("check", "copy.orv", "--level", "2"),
                        (0, "copy.orv: sound (0 errors, 0 warnings)\n", ""))

    def test_of_an_openfoam_mesh_keep_its_messages(self):
        subprocess.run([MAKE_POLYMESH, self.folder / "constant/polyMesh", "2", "2", "2"],
                       check=True, stdout=subprocess.DEVNULL)
        self.assertEqual(self.orv("copy", ".", "copy.orv", "--verify"),
                         (0, f"copy.orv: 8 cells, {self.size('copy.orv')}, same as its source\n",
                          ""))
        self.assertEqual(self.orv("check", "copy.orv", "--no-location-model")[1],
                         "copy.orv: sound (0 errors, 0 warnings)\n")

    def test_of_copies_are_equal(self):
        self.sample("physics")
        self.orv("copy", "physics.orv", "one.orv")
        self.assertEqual(self.orv("copy", "one.orv", "two.orv", "--verify")[0], 0)
        settings = [[s for s in json.loads(self.orv("info", file, "--json")[1])["files"][0]["settings"]
                     if s["key"] != "Time"] for file in ("one.orv", "two.orv")]
        ours = [[s for s in some if not s["key"].endswith(("Time", "Format"))] for some in settings]
        self.assertEqual(ours[0], ours[1])

    def test_carry_settings_below_the_solver_format(self):
        self.sample("physics")
        self.orv("copy", "physics.orv", "copy.orv", "--solver-format", "OTHER")
        info = json.loads(self.orv("info", "copy.orv", "--json")[1])["files"][0]
        self.assertEqual(info["solverType"], "OTHER")
        keys = [setting["key"] for setting in info["settings"]]
        self.assertTrue(all(key.startswith("OTHER/") for key in keys
                            if key not in ("Time", "Source Format", "Destination Format")), keys)
        self.assertEqual(self.orv("regions", "copy.orv")[1].splitlines()[3:],
                         self.orv("regions", "physics.orv")[1].splitlines()[3:])

    def test_leave_out_what_they_are_told_to(self):
        self.sample("results")
        self.orv("copy", "results.orv", "copy.orv", "--no-results", "--no-settings",
                 "--no-location-model", "--no-units", "--no-face-cells")
        info = json.loads(self.orv("info", "copy.orv", "--json")[1])["files"][0]
        self.assertEqual((info["settings"], info["locationModel"], info["results"],
                          info["meshes"][0]["units"]), ([], False, "", ""))
        self.assertEqual(self.files(), ["copy.orv", "results.orv", "results.orvr"])

    def test_take_the_results_that_are_named(self):
        self.sample("results")
        os.rename(self.folder / "results.orvr", self.folder / "of-monday.orvr")
        self.assertEqual(self.orv("copy", "results.orv", "copy.orv", "--results", "of-monday.orvr",
                                  "--verify")[0], 0)
        self.assertEqual(self.files(),
                         ["copy.orv", "copy.orvr", "of-monday.orvr", "results.orv"])

    def test_put_results_where_they_are_told_to(self):
        self.sample("results")
        status, out, err = self.orv("copy", "results.orv", "copy.orv", "--results-to", "flow.orvr",
                                    "--verify")
        self.assertEqual((status, out, err),
                         (0, f"copy.orv: 8 cells, {self.size('copy.orv')}, same as its source\n"
                             f"flow.orvr: results, {self.size('flow.orvr')}, same as its source\n",
                          ""))
        self.assertEqual(self.files(), ["copy.orv", "flow.orvr", "results.orv", "results.orvr"])

    def test_print_their_steps_on_demand(self):
        self.sample("box")
        status, out, err = self.orv("copy", "box.orv", "copy.orv", "-v")
        self.assertEqual((status, out, err),
                         (0, STEPS + f"copy.orv: 8 cells, {self.size('copy.orv')}\n", ""))

    def test_choose_a_partition(self):
        self.sample("partitions", 64)
        self.orv("copy", "partitions.orv", "copy.orv", "--partition", "2")
        info = json.loads(self.orv("info", "copy.orv", "--json")[1])["files"][0]
        self.assertEqual([mesh["partition"] for mesh in info["meshes"]], [2])


class OtherFormats(OrvCopy):
    def test_an_openfoam_case_is_written_and_read_back(self):
        self.sample("two-bodies", 60)
        self.assertEqual(
            self.orv("copy", "two-bodies.orv", "case/", "--no-settings")[0::2],
            (0, "Warning: case/: zone 6 'fluid walls': written as patch 'fluid_walls'\n"
                "Warning: case/: zone 8 'solid walls': written as patch 'solid_walls'\n"
                "Warning: case/: zone 2 'fluid interior': written as face zone 'fluid_interior'\n"
                "Warning: case/: zone 4 'solid interior': written as face zone "
                "'solid_interior'\n"))
        self.assertEqual(self.files(),
                         [f"case/constant/polyMesh/{name}" for name in
                          ("boundary", "cellZones", "faceZones", "faces", "neighbour", "owner",
                           "points")] + ["two-bodies.orv"])
        self.assertEqual(self.orv("check", "case", "--no-location-model"),
                         (0, "case: sound (0 errors, 0 warnings)\n", ""))
        of_sample, of_copy = [json.loads(self.orv("info", file, "--json")[1])["files"][0]["meshes"][0]
                              for file in ("two-bodies.orv", "case")]
        self.assertEqual(of_copy["sizes"], of_sample["sizes"])
        self.assertEqual(sorted(zone["name"] for zone in of_copy["zones"][1:]),
                         sorted(zone["name"].replace(" ", "_")
                                for zone in of_sample["zones"][1:]))

    def test_an_openfoam_case_can_be_text_or_packed(self):
        self.sample("box", 60)
        self.orv("copy", "box.orv", "case/")
        kept = {}
        for form, options in {"text": ["--text"], "packed": ["-c", "6"]}.items():
            self.assertEqual(self.orv("copy", "case", form + "/", *options)[0], 0)
            self.assertEqual(self.orv("copy", form, form + ".vtu")[0], 0)
            kept[form] = (self.folder / (form + ".vtu")).read_bytes()
        self.assertTrue(b"ascii;" in (self.folder / "text/constant/polyMesh/points").read_bytes())
        self.assertTrue((self.folder / "packed/constant/polyMesh/points.gz").exists())
        self.assertTrue(kept["text"] == kept["packed"])

    def test_partitions_are_written_into_processor_folders(self):
        self.decomposed("case")
        status, out, _ = self.orv("copy", "case", "copy/", "--to", "openfoam")
        self.assertEqual(
            (status, [line.split(":")[0] for line in out.splitlines()]),
            (0, ["copy/processor0/constant/polyMesh", "copy/processor1/constant/polyMesh"]))
        self.assertEqual(self.orv("copy", "copy", "copy.orv")[0], 0)

    def test_a_grid_for_viewers_has_results(self):
        self.sample("results", 60)
        status, out, err = self.orv("copy", "results.orv", "grid.vtu", "--no-settings")
        self.assertEqual(
            (status, out, err),
            (0, f"grid.vtu: 64 cells, {self.size('grid.vtu')}\n",
             "Warning: grid.vtu: end of writing: variables of faces are left out: wall shear "
             "stress\n"
             f"orv: no place in vtu for: {self.faces('results.orv')} faces, but for what they tell "
             "of cells\n"))
        header = (self.folder / "grid.vtu").read_bytes().split(b"<AppendedData")[0].decode()
        self.assertEqual(re.findall('Float64" Name="([^"]*)"', header),
                         ["temperature", "water/velocity", "air/velocity", "pressure",
                          "water/fraction", "air/fraction", "Points"])

    def test_what_a_format_has_no_place_for_is_told(self):
        self.sample("physics", 60)
        for destination, lines in {
                "case/": ["  the location model", "  28 settings"],
                "grid.vtu": [f"  {self.faces('physics.orv')} faces, but for what they tell of cells",
                             "  the location model", "  28 settings"]}.items():
            name = "vtu" if destination.endswith("vtu") else "openfoam"
            plan = self.orv("copy", "physics.orv", destination, "--dry-run")[1].splitlines()
            self.assertEqual(plan[plan.index(f"no place in {name} for") + 1:], lines)

    def faces(self, file):
        info = json.loads(self.orv("info", file, "--json")[1])
        return info["files"][0]["meshes"][0]["sizes"]["faces"]


class Plans(OrvCopy):
    def test_say_what_is_copied_and_what_is_lost(self):
        self.sample("periodic")
        self.assertEqual(self.orv("copy", "periodic.orv", "copy.orv", "--dry-run"),
                         (0, PERIODIC_PLAN, ""))
        self.assertEqual(self.files(), ["periodic.orv"])

    def test_name_what_no_copy_carries(self):
        for defect, line in {"face-child": "the hierarchy of zones 5",
                             "cell-child": "the hierarchy of zones 8"}.items():
            self.orv("sample", "--defect", defect, "damaged.orv", "-f")
            plan = self.orv("copy", "damaged.orv", "copy.orv", "--dry-run")[1].splitlines()
            self.assertEqual(plan[plan.index("no copy carries") + 1:], ["  mesh 1, post: " + line])

    def test_know_that_faces_of_polyhedra_are_found_again(self):
        self.sample("polyhedra", 60)
        plan = self.orv("copy", "polyhedra.orv", "copy.orv", "--dry-run")[1]
        self.assertFalse("no copy carries" in plan, plan)

    def test_fit_their_schema(self):
        self.sample("results")
        for arguments in ([], ["--dry-run"], ["-f", "--verify"]):
            status, out, err = self.orv("copy", "results.orv", "copy.orv", "--json", "-f",
                                        *arguments)
            self.assertEqual((status, err), (0, ""))
            report = json.loads(out)
            jsonschema.validate(report, json.loads(pathlib.Path(SCHEMA).read_text()))
            self.assertEqual((report["dryRun"], report["verified"], len(report["written"])),
                             ("--dry-run" in arguments, "--verify" in arguments,
                              0 if "--dry-run" in arguments else 2))


class NewerVersion(OrvCopy):
    def test_is_copied_as_far_as_it_is_known(self):
        self.orv("sample", "--defect", "newer-major", "newer.orv")
        status, out, err = self.orv("copy", "newer.orv", "copy.orv")
        self.assertEqual((status, out.split(":")[0]), (0, "copy.orv"))
        self.assertRegex(err, r"\Aorv: newer\.orv: is of version \d+\.\d+\.\d+, which is newer than "
                              r"this program; what is new in it is not copied\n")


class Refusals(OrvCopy):
    def refused(self, *arguments):
        before = self.files()
        status, out, err = self.orv("copy", *arguments)
        self.assertEqual((status, out), (2, ""))
        self.assertEqual(self.files(), before)
        return err

    def test_of_the_source_itself(self):
        self.sample("results")
        os.symlink("results.orv", self.folder / "link.orv")
        os.symlink("results.orvr", self.folder / "link-to.orvr")
        for destination in ("results.orv", "./results.orv", "link.orv"):
            self.assertEqual(self.refused("results.orv", destination, "--force"),
                             f"orv: {destination}: is the source itself, which is never written\n")
        self.assertEqual(
            self.refused("results.orv", "link-to.orv", "--force"),
            "orv: link-to.orvr: is the source itself, which is never written\n")

    def test_of_results_in_the_file_of_the_case(self):
        self.sample("results")
        self.assertEqual(self.refused("results.orv", "copy.orv", "--results-to", "./copy.orv"),
                         "orv: copy.orv: cannot hold a case and its results both\n")
        self.assertEqual(self.refused("results.orv", "copy.orv", "--results-to", "results.orvr",
                                      "--force"),
                         "orv: results.orvr: is the source itself, which is never written\n")

    def test_of_the_source_folder(self):
        self.sample("box")
        self.orv("copy", "box.orv", "case/")
        for source in ("case", "case/constant/polyMesh", "case/constant/polyMesh/owner"):
            for destination in ("case/", "./case", "case/constant", "case/constant/",
                                "case/constant/polyMesh", "case/constant/polyMesh/"):
                err = self.refused(source, destination, "--to", "openfoam", "--force")
                self.assertTrue(err.endswith("polyMesh: is the source itself, which is never "
                                             "written\n"), err)

    def test_of_processor_folders(self):
        self.decomposed("case")
        self.assertEqual(self.refused("case", "case/", "--force"),
                         "orv: case/processor0/constant/polyMesh: is the source itself, which is "
                         "never written\n")
        self.decomposed("other")
        self.assertEqual(self.refused("case", "other/"),
                         "orv: other/processor0/constant/polyMesh: is there already; --force "
                         "replaces it\n")

    def test_of_verifying_what_cannot_be_compared(self):
        self.sample("box")
        for destination, name in {"case/": "openfoam", "grid.vtu": "vtu"}.items():
            self.assertEqual(
                self.refused("box.orv", destination, "--verify"),
                "orv: --verify compares array by array, and the format "
                f"{name} numbers its elements in a way of its own, or cannot be read\n")

    def test_of_verifying_what_is_left_out(self):
        self.sample("box")
        for left_out in ("nodes", "faces", "cell-types", "units"):
            self.assertEqual(
                self.refused("box.orv", "copy.orv", "--verify", "--no-" + left_out),
                "orv: --verify compares all of a mesh, and some of it would be left out\n")
        self.assertEqual(self.orv("copy", "box.orv", "copy.orv", "--verify", "--no-settings",
                                  "--no-location-model", "--no-results")[0], 0)

    def test_of_meshes_that_a_format_cannot_take(self):
        self.sample("post")
        self.assertEqual(self.refused("post.orv", "case/"),
                         "orv: post.orv: holds no such target or partition of mesh 1, or none but "
                         "post targets, which this format does not take\n")
        self.sample("plane")
        self.assertEqual(self.refused("plane.orv", "case/"),
                         "Error: case/: end of writing: mesh 1: is of dimension 2, OpenFOAM meshes "
                         "are of dimension 3\n"
                         "Error: case/: end of writing: nothing was written because of the error "
                         "before\n"
                         "orv: case/: nothing was written\n")

    def test_of_what_is_there(self):
        self.sample("box")
        (self.folder / "there.orv").write_text("mine")
        self.assertEqual(self.refused("box.orv", "there.orv"),
                         "orv: there.orv: is there already; --force replaces it\n")
        self.assertEqual((self.folder / "there.orv").read_text(), "mine")
        self.assertEqual(self.orv("copy", "box.orv", "there.orv", "--force")[0], 0)

    def test_of_formats(self):
        self.sample("box")
        self.assertEqual(self.refused("box.orv", "copy.orv", "--to", "stor"),
                         "orv: no format that can be written is named stor; did you mean store? "
                         "`orv formats` lists all\n")
        self.assertEqual(self.refused("box.orv", "copy.foo"),
                         "orv: copy.foo: its name tells no format that can be written; --to names "
                         "one, and `orv formats` lists them\n")

    def test_of_sources(self):
        self.assertEqual(self.refused("nothing.orv", "copy.orv"),
                         "orv: nothing.orv: no such file or folder\n")
        self.sample("box")
        self.assertEqual(self.refused("box.orv", "copy.orv", "--mesh", "3"),
                         "orv: box.orv: holds no mesh 3, but 1\n")
        self.assertEqual(self.refused("box.orv", "copy.orv", "--target", "post"),
                         "orv: box.orv: holds no such target or partition of mesh 1\n")

    def test_of_a_folder_that_is_not_there(self):
        self.sample("box")
        err = self.refused("box.orv", "missing/copy.orv")
        self.assertTrue(err.startswith("Error: missing/copy.orv: "), err)
        self.assertTrue(err.endswith("orv: missing/copy.orv: nothing was written\n"), err)


class Failures(OrvCopy):
    def damage(self, file):
        """Flips a byte in the middle of the coordinates of a case."""
        content = bytearray((self.folder / file).read_bytes())
        content[len(content) // 2] ^= 0x55
        (self.folder / file).write_bytes(content)

    def test_to_read_leave_nothing(self):
        self.sample("box", 1000)
        self.damage("box.orv")
        status, out, err = self.orv("copy", "box.orv", "copy.orv")
        self.assertEqual((status, out), (2, ""))
        self.assertTrue(err.endswith("orv: copy.orv: nothing was written; --keep-going copies what "
                                     "can be read\n"), err)
        self.assertEqual(self.files(), ["box.orv"])
        status, out, err = self.orv("copy", "box.orv", "copy.orv", "--keep-going")
        self.assertEqual((status, self.files()), (1, ["box.orv", "copy.orv"]), err)

    def test_for_want_of_room_say_so_and_leave_nothing(self):
        self.sample("box", 20000)
        small = self.folder / "small"
        small.mkdir()
        mounted = subprocess.run(["mount", "-t", "tmpfs", "-o", "size=1M", "tmpfs", str(small)],
                                 capture_output=True, check=False)
        if mounted.returncode != 0:
            self.skipTest("no small file system can be made here")
        try:
            status, out, err = self.orv("copy", "box.orv", "small/copy.orv")
            left = os.listdir(small)
        finally:
            subprocess.run(["umount", str(small)], check=True)
        self.assertEqual((status, out, left), (2, "", []))
        self.assertIn("No space left on device", err)
        self.assertTrue(err.endswith("orv: small/copy.orv: nothing was written\n"), err)

    def test_on_an_interrupt_leave_nothing(self):
        self.sample("box", 300000)
        for number in (signal.SIGINT, signal.SIGTERM, signal.SIGHUP):
            with self.subTest(number):
                copying = subprocess.Popen([ORV, "copy", "box.orv", "copy.orv", "-c", "9"],
                                           cwd=self.folder, stdout=subprocess.PIPE,
                                           stderr=subprocess.PIPE, text=True)
                while copying.poll() is None and len(self.files()) < 2:
                    time.sleep(0.001)
                copying.send_signal(number)
                out, err = copying.communicate(timeout=60)
                self.assertEqual((copying.returncode, out, err),
                                 (2, "", "orv: copy.orv: interrupted; nothing was written\n"))
                self.assertEqual(self.files(), ["box.orv"])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
