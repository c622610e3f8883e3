"""Bad input: one line that says what and where, the documented exit code, nothing half-written left."""

import os
import pty
import signal
import subprocess
import tempfile
import time
import unittest

import exodus_writer
import programs
from programs import program, run

CUBE = [(x, y, z) for z in (0.0, 1.0) for y in (0.0, 1.0) for x in (0.0, 1.0)]
HEX = {"id": 1, "type": "HEX8", "connectivity": [[1, 2, 4, 3, 5, 6, 8, 7]]}


class ErrorTest(programs.ProgramTest):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = folder.name
        self.source = self.path("model.e")
        exodus_writer.write(self.source, 3, CUBE, [HEX], times=[0.0, 0.5],
                            nodal={"temp": [[1.0] * 8, [2.0] * 8]}, element={"e": {1: [[1.0], [2.0]]}})
        self.before = sorted(os.listdir(self.folder))

    def path(self, name):
        return os.path.join(self.folder, name)

    def database(self):
        target = self.path("made.yld")
        done = run("yld", "import", self.source, target)
        self.assertEqual(0, done.returncode, done.stderr)
        self.before = sorted(os.listdir(self.folder))
        return target

    def content(self, path):
        with open(path, "rb") as stream:
            return stream.read()

    def write(self, name, data):
        with open(self.path(name), "wb") as stream:
            stream.write(data)
        self.before = sorted(os.listdir(self.folder))
        return self.path(name)

    def assert_nothing_left(self):
        self.assertEqual(self.before, sorted(os.listdir(self.folder)))

    def assert_import_fails(self, source, target, *parts, options=()):
        self.assert_fails(run("yld", "import", source, target, *options), 1, *parts)
        self.assert_nothing_left()

    # Usage

    def test_help_tells_the_exit_codes(self):
        text = self.yld("--help")
        self.assertIn("Exit codes: 0 done; 1 it failed, one line on standard error says what and where; 2 bad usage.", text)
        for command in ("info", "values", "history", "import"):
            self.assertIn("FILE" if command != "import" else "OUT", self.yld(command, "--help"))

    def test_bad_usage(self):
        for arguments in ([], ["nonsense"], ["info"], ["info", "a", "b"], ["info", "a", "--nonsense"], ["import", "a"],
                          ["values", "a"], ["values", "a", "--field", "U", "--frame", "x"],
                          ["values", "a", "--field", "U", "--json", "--csv"]):
            with self.subTest(arguments):
                self.assert_fails(run("yld", *arguments), 2)

    # Files that are no database

    def test_databases_that_are_none(self):
        foreign = self.write("foreign.yld", b"This is a letter to a friend.\n" * 100)
        empty = self.write("empty.yld", b"")
        sqlite = self.write("other.yld", b"SQLite format 3\0" + bytes(4080))
        cases = [(self.path("none.yld"), "no such file"), (empty, "file is empty"), (self.folder, "is a directory"),
                 (foreign, ""), (self.source, ""), (sqlite, ""), ("/dev/null", "is no plain file"),
                 (os.path.join(self.source, "x.yld"), "Not a directory")]
        for path, what in cases:
            for arguments in (["info", path], ["info", path, "--json"], ["values", path, "--field", "temp"], ["history", path]):
                with self.subTest(arguments):
                    self.assert_fails(run("yld", *arguments), 1, what, path)
                    self.assert_nothing_left()

    def test_truncated_databases(self):
        whole = self.content(self.database())
        for size in (1, 15, 16, 99, 100, 512, 4096, len(whole) // 2, len(whole) - 1):
            with self.subTest(size):
                path = self.write("cut.yld", whole[:size])
                self.assert_fails(run("yld", "info", path), 1, path)
                self.assert_nothing_left()

    # Questions without an answer

    def test_unknown_names(self):
        path = self.database()
        cases = [(["--step", "nope"], ['no step "nope"', "there is: Step-1"]),
                 (["--frame", "2"], ["no frame 2", 'step "Step-1"', "there are 2, 0 to 1"]),
                 (["--frame", "-3"], ["no frame -3"]),
                 (["--instance", "nope"], ['no instance "nope"', "there is: model-1"]),
                 (["--position", "INTEGRATION_POINT"], ["no values at position INTEGRATION_POINT", "there is: NODAL"]),
                 (["--position", "nope"], ["no values at position nope"])]
        for options, parts in cases:
            with self.subTest(options):
                self.assert_fails(run("yld", "values", path, "--field", "temp", *options), 1, path, *parts)
        self.assert_fails(run("yld", "values", path, "--field", "nope"), 1, 'no field "nope"', "temp", "e", path)
        self.assert_nothing_left()

    def test_frames_count_from_either_end(self):
        path = self.database()
        for frame, value in ((0, 1), (1, 2), (-1, 2), (-2, 1)):
            self.assertEqual([value], self.values(path, "temp", "--frame", frame)[0]["data"])
        self.assertEqual([2], self.values(path, "temp")[0]["data"])

    def test_values_in_words(self):
        path = self.database()
        lines = self.yld("values", path, "--field", "temp").splitlines()
        self.assertEqual(["instance", "position", "node", "temp"], lines[0].split())
        self.assertEqual(["model-1", "NODAL", "1", "2"], lines[1].split())
        self.assertEqual(9, len(lines))
        answer = self.json("values", path, "--field", "e", "--json")
        self.assertEqual({"field": "e", "step": "Step-1", "frame": 1, "components": [],
                          "values": [{"instance": "model-1", "position": "CENTROID", "element": 1, "data": [2]}]}, answer)

    def test_info_in_words(self):
        text = self.yld("info", self.database())
        for part in ('part "model": 8 nodes, 1 elements', 'instance "model-1"', "HEX8", "block_1 (1)",
                     'step "Step-1": *STATIC, domain TIME, time period 0.5, 2 frames', "SCALAR", "8 NODAL"):
            self.assertIn(part, text)

    # Import

    def test_sources_that_are_none(self):
        whole = self.content(self.source)
        target = self.path("out.yld")
        foreign = self.write("foreign.e", b"This is a letter to a friend.\n" * 100)
        empty = self.write("empty.e", b"")
        hdf = self.write("hdf.e", b"\x89HDF\r\n\x1a\n" + bytes(1000))
        exodus_writer.Container().save(self.path("other.nc"), 0)
        self.before = sorted(os.listdir(self.folder))
        cases = [(self.path("none.e"), "no such file"), (empty, "file is empty"), (self.folder, "is a directory"),
                 (foreign, "not an Exodus II file"), (hdf, "not an Exodus II file"), ("/dev/null", "is no plain file"),
                 (self.path("other.nc"), "")]
        for path, what in cases:
            with self.subTest(path):
                self.assert_import_fails(path, target, what, path)
        for size in list(range(1, 64, 7)) + list(range(64, len(whole), max(1, len(whole) // 40))) + [len(whole) - 1]:
            with self.subTest(size):
                path = self.write("cut.e", whole[:size])
                self.assert_import_fails(path, target, path)

    def test_truncated_hdf5_source(self):
        whole = self.content(programs.exodus_file("biplane_rms_pressure_bs.exo", self.folder))
        self.before = sorted(os.listdir(self.folder))
        for size in (8, 512, 100000, len(whole) - 1):
            with self.subTest(size):
                path = self.write("cut.e", whole[:size])
                self.assert_import_fails(path, self.path("out.yld"), path)

    def test_counts_that_lie(self):
        # A dimension blown up: the header then promises more than the file has.
        whole = self.content(self.source)
        at = whole.index(b"num_nodes") + len(b"num_nodes\0\0\0")
        for count in (b"\0\0\0\x09", b"\x7f\xff\xff\xff", b"\xff\xff\xff\xff"):
            path = self.write("lie.e", whole[:at] + count + whole[at + 4:])
            self.assert_import_fails(path, self.path("out.yld"), path)

    def test_connectivity_and_sets_beyond_the_mesh(self):
        for options, what in (({"node_sets": [{"id": 3, "nodes": [9]}]}, "node set 3 names node 9 of 8"),
                              ({"side_sets": [{"id": 4, "sides": [(2, 1)]}]}, "side set 4 names element 2 of 1")):
            source = self.path("bad.e")
            exodus_writer.write(source, 3, CUBE, [HEX], **options)
            self.before = sorted(set(self.before + ["bad.e"]))
            self.assert_import_fails(source, self.path("out.yld"), what, source)
        block = dict(HEX, connectivity=[[1, 2, 4, 3, 5, 6, 8, 0]])
        exodus_writer.write(self.path("bad.e"), 3, CUBE, [block])
        self.assert_import_fails(self.path("bad.e"), self.path("out.yld"), "block 1 names node 0 of 8")

    def test_elements_without_a_counterpart(self):
        source = self.path("odd.e")
        for kind, nodes in (("NSIDED", 8), ("HEX8", 7), ("TETRA4", 8), ("8HEX", 8), ("", 8)):
            with self.subTest(kind):
                exodus_writer.write(source, 3, CUBE, [{"id": 5, "type": kind, "connectivity": [list(range(1, nodes + 1))]}])
                self.before = sorted(set(self.before + ["odd.e"]))
                self.assert_import_fails(source, self.path("out.yld"), "block 5 has elements of type", source)

    def test_duplicate_labels(self):
        source = self.path("twice.e")
        exodus_writer.write(source, 3, CUBE, [HEX], node_ids=[1, 2, 3, 4, 5, 6, 7, 7])
        self.before = sorted(self.before + ["twice.e"])
        self.assert_import_fails(source, self.path("out.yld"))

    def test_existing_target(self):
        target = self.write("there.yld", b"precious")
        self.assert_import_fails(self.source, target, "target exists", "--force", target)
        self.assertEqual(b"precious", self.content(target))
        done = run("yld", "import", self.source, target, "--force")
        self.assertEqual(0, done.returncode, done.stderr)
        self.assert_nothing_left()
        self.assertEqual(8, self.info(target)["parts"][0]["nodes"])

    def test_force_keeps_the_target_of_a_failed_import(self):
        target = self.write("there.yld", b"precious")
        bad = self.write("bad.e", self.content(self.source)[:-100])
        self.assert_import_fails(bad, target, "truncated", bad, options=["--force"])
        self.assertEqual(b"precious", self.content(target))

    def test_target_that_is_the_source(self):
        whole = self.content(self.source)
        link = self.path("link.yld")
        os.symlink(self.source, link)
        self.before = sorted(os.listdir(self.folder))
        for target in (self.source, link, os.path.join(self.folder, ".", "model.e")):
            for options in ([], ["--force"]):
                self.assert_import_fails(self.source, target, "same file", target, options=options)
        self.assertEqual(whole, self.content(self.source))

    def test_targets_that_cannot_be(self):
        for target, what in ((self.path("no/out.yld"), "folder of the target does not exist"),
                             (os.path.join(self.source, "out.yld"), "folder of the target is no folder"),
                             (self.folder, "target is a directory"), ("/proc/out.yld", "cannot write")):
            with self.subTest(target):
                self.assert_import_fails(self.source, target, what, target)
                self.assert_import_fails(self.source, target, what, target, options=["--force"])

    @unittest.skipIf(os.geteuid() == 0, "nothing is closed to root")
    def test_closed_folder(self):
        closed = self.path("closed")
        os.mkdir(closed, 0o555)
        self.before = sorted(os.listdir(self.folder))
        self.assert_import_fails(self.source, os.path.join(closed, "out.yld"), "cannot write")

    def test_target_that_is_being_written(self):
        target = self.write("busy.yld", b"busy")
        self.write("busy.lck", b"somebody")
        self.assert_import_fails(self.source, target, "open for writing", options=["--force"])
        self.assertEqual(b"busy", self.content(target))

    def test_full_disk(self):
        # A limit on the size of files stands in for it: the write fails in the middle of the work.
        import resource
        target = self.path("out.yld")

        def limit():
            signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
            resource.setrlimit(resource.RLIMIT_FSIZE, (20000, 20000))
        self.assert_fails(run("yld", "import", self.source, target, preexec_fn=limit, restore_signals=False), 1)
        self.assert_nothing_left()

    def test_signals_leave_nothing(self):
        # Long enough to be met in the middle of the work.
        times = [0.001 * i for i in range(3000)]
        source = self.path("long.e")
        exodus_writer.write(source, 3, CUBE, [HEX], times=times,
                            nodal={"v%d" % v: [[0.0] * 8] * len(times) for v in range(10)})
        self.before = sorted(os.listdir(self.folder))
        for number in (signal.SIGINT, signal.SIGTERM):
            process = subprocess.Popen([program("yld"), "import", source, self.path("out.yld")],
                                       stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE)
            deadline = time.monotonic() + 60
            while sorted(os.listdir(self.folder)) == self.before and process.poll() is None and time.monotonic() < deadline:
                time.sleep(0.002)
            process.send_signal(number)
            process.communicate(timeout=120)
            self.assertEqual(-number, process.returncode)
            self.assert_nothing_left()

    def test_a_killed_import_leaves_no_target(self):
        # Nobody is asked whether to end: what was written goes under another name until it is whole.
        times = [0.001 * i for i in range(3000)]
        source = self.path("long.e")
        exodus_writer.write(source, 3, CUBE, [HEX], times=times,
                            nodal={"v%d" % v: [[0.0] * 8] * len(times) for v in range(10)})
        before = sorted(os.listdir(self.folder))
        process = subprocess.Popen([program("yld"), "import", source, self.path("out.yld")],
                                   stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        deadline = time.monotonic() + 60
        while sorted(os.listdir(self.folder)) == before and process.poll() is None and time.monotonic() < deadline:
            time.sleep(0.002)
        process.kill()
        self.assertEqual(-signal.SIGKILL, process.wait(timeout=120))
        self.assertNotIn("out.yld", os.listdir(self.folder))
        # The leftovers are in nobody's way.
        self.assertEqual(0, run("yld", "import", source, self.path("out.yld")).returncode)

    # Streams

    def test_broken_pipe_is_quiet(self):
        path = self.database()
        for arguments in (["info", path, "--json"], ["values", path, "--field", "temp", "--csv"]):
            reading, writing = os.pipe()
            os.close(reading)
            result = subprocess.run([program("yld")] + arguments, stdin=subprocess.DEVNULL, stdout=writing,
                                    stderr=subprocess.PIPE, timeout=60)
            os.close(writing)
            self.assertEqual(b"", result.stderr)
            self.assertNotEqual(0, result.returncode)

    def test_full_output(self):
        path = self.database()
        with open("/dev/full", "w") as full:
            result = subprocess.run([program("yld"), "info", path], stdout=full, stderr=subprocess.PIPE,
                                    universal_newlines=True, timeout=60)
        self.assertEqual(1, result.returncode)
        self.assertEqual("yld: cannot write: standard output: No space left on device\n", result.stderr)

    def test_progress_bar_only_on_a_terminal(self):
        done = run("yld", "import", self.source, self.path("quiet.yld"))
        self.assertEqual("", done.stderr)
        leader, follower = pty.openpty()
        done = subprocess.run([program("yld"), "import", self.source, self.path("loud.yld")], stdin=subprocess.DEVNULL,
                              stdout=subprocess.PIPE, stderr=follower, timeout=60)
        os.close(follower)
        shown = b""
        try:
            while True:
                piece = os.read(leader, 4096)
                if not piece:
                    break
                shown += piece
        except OSError:
            pass
        os.close(leader)
        self.assertEqual((0, b""), (done.returncode, done.stdout))
        self.assertIn(b"importing [", shown)
        self.assertIn(b"2 of 2", shown)
        self.assertTrue(shown.endswith(b"\r\x1b[K"))


if __name__ == "__main__":
    programs.main()
