"""Installs the build into an empty folder and builds a client against it, both ways that clients find libraries."""

import glob
import os
import re
import shutil
import subprocess
import tempfile
import unittest

BUILD, CMAKE, CXX = (os.environ[k] for k in ("YLD_BUILD", "YLD_CMAKE", "YLD_CXX"))
FLAGS = os.environ.get("YLD_FLAGS", "").split()
LIBDIR = os.environ.get("YLD_LIBDIR", "lib")
CLIENT = os.path.join(os.path.dirname(os.path.abspath(__file__)), "client")
WALK = os.path.join(os.path.dirname(os.path.dirname(CLIENT)), "store")

# Written down from the program: node label, third component, length of (3, 0, 4) times the place.
CLIENT_SAYS = "".join("%d %g %g\n" % (i + 1, 4 * i, 5 * i) for i in range(8)) + "block of 8 rows of 3\ncaught: 1\n"

# Nodes, elements and their values stand twice, with the part and with its instance; each field has a block of its values.
DEBUG_CLIENT_SAYS = "8 nodes, 2 elements, 1 datums, 8 values, 8 of bulk, 3 pairs\n"


def run(*command, **options):
    return subprocess.run(command, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                          universal_newlines=True, timeout=600, **options)


class InstallTest(unittest.TestCase):
    maxDiff = None

    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        cls.prefix = os.path.join(cls.folder.name, "prefix")
        cls.installed = run(CMAKE, "--install", BUILD, "--prefix", cls.prefix)
        cls.library = os.path.join(cls.prefix, LIBDIR, "libyld.so")
        cls.headers = os.path.join(cls.prefix, "include", "yld")

    @classmethod
    def tearDownClass(cls):
        cls.folder.cleanup()

    def succeed(self, *command, **options):
        done = run(*command, **options)
        self.assertEqual(0, done.returncode, " ".join(command) + "\n" + done.stdout)
        return done.stdout

    def check_client(self, program, says=CLIENT_SAYS):
        path = os.path.join(self.folder.name, os.path.basename(os.path.dirname(program)) + ".yld")
        environment = dict(os.environ, LD_LIBRARY_PATH=os.path.join(self.prefix, LIBDIR))
        self.assertEqual(says, self.succeed(program, path, env=environment))
        self.assertTrue(os.path.exists(path))
        self.assertEqual([], glob.glob(path[:-4] + "*.lck"))

    def test_install_gives_all_parts(self):
        self.assertEqual(0, self.installed.returncode, self.installed.stdout)
        for name in (self.library, os.path.join(self.headers, "yld.h"),
                     os.path.join(self.prefix, LIBDIR, "cmake", "yld", "yldConfig.cmake"),
                     os.path.join(self.prefix, LIBDIR, "pkgconfig", "yld.pc")):
            self.assertTrue(os.path.exists(name), name)

    def test_client_by_find_package(self):
        build = os.path.join(self.folder.name, "found")
        # The prefix comes last: no default path may serve another library of this name.
        self.succeed(CMAKE, "-S", CLIENT, "-B", build, "-DCMAKE_CXX_COMPILER=" + CXX,
                     "-DCMAKE_CXX_FLAGS=" + " ".join(FLAGS), "-DCMAKE_PREFIX_PATH=" + self.prefix,
                     "-DCMAKE_FIND_USE_PACKAGE_REGISTRY=OFF")
        self.succeed(CMAKE, "--build", build)
        self.check_client(os.path.join(build, "client"))

    def build_by_pkg_config(self, name, *arguments):
        build = os.path.join(self.folder.name, name)
        os.mkdir(build)
        environment = dict(os.environ, PKG_CONFIG_PATH=os.path.join(self.prefix, LIBDIR, "pkgconfig"))
        flags = self.succeed("pkg-config", "--cflags", "--libs", "yld", env=environment).split()
        program = os.path.join(build, "client")
        self.succeed(CXX, *FLAGS, *arguments, "-o", program, *flags)
        return program

    def test_client_by_pkg_config(self):
        self.check_client(self.build_by_pkg_config("pkg", os.path.join(CLIENT, "client.cpp")))

    def test_client_that_inlines_nothing(self):
        # What a client takes from the library when it has no copy of its own: a private copy within the library may
        # keep the exported one from it, and no optimised client would notice.
        program = self.build_by_pkg_config("debug", "-std=c++20", "-O0", "-fno-inline", "-UNDEBUG", "-I", WALK,
                                           os.path.join(CLIENT, "debug_client.cpp"),
                                           os.path.join(WALK, "public_walk.cpp"))
        self.check_client(program, DEBUG_CLIENT_SAYS)

    @unittest.skipUnless(shutil.which("nm"), "no nm")
    def test_library_exports_the_public_interface_alone(self):
        public, defined = self.public_names(), self.defined_names()
        text = self.succeed("nm", "-D", "--defined-only", "-C", self.library)
        strong, foreign = [], []
        for line in text.splitlines():
            kind, name = line.split(None, 2)[1:]
            bare = re.sub(r"^(vtable for|typeinfo for|typeinfo name for|guard variable for|VTT for|"
                          r"(non-)?virtual thunk to|covariant return thunk to|construction vtable for) ", "", name)
            owner = re.match(r"[\w~]+", bare)
            self.assertIsNone(re.match(r"_?sqlite3", bare), name)
            if kind in "WVu":
                # Templates and inline functions that the client may have as well: of the standard library, or of
                # what installed headers define.
                if bare.startswith("void ("):
                    continue  # the type of a plain function pointer
                if not re.match(r"(decltype\(.*\) |[\w:<>*& ]+ )?(std|__gnu_cxx|operator)\b", bare):
                    if not owner or owner.group(0) not in defined:
                        foreign.append(name)
                continue
            strong.append(name)
            if not owner or (owner.group(0) not in public and "[abi" not in name):
                foreign.append(name)
        self.assertGreater(len(strong), 100)
        self.assertEqual([], foreign)
        for wanted in ("yld_initializeAPI", "yld_finalizeAPI", "openYld(yld_String const&, bool)", "saveYld(yld_Yld&)"):
            self.assertIn(wanted, strong)

    def public_names(self):
        """Every class and function that an installed header marks for export."""
        names = set()
        for header in glob.glob(os.path.join(self.headers, "**", "*.h"), recursive=True):
            with open(header) as stream:
                text = re.sub(r"//.*", "", stream.read())
            names.update(re.findall(r"(?:class|struct)\s+YLD_API\s+(\w+)", text))
            names.update(re.findall(r"YLD_API\s+(?!class|struct)[\w\s:<>&*,]*?[\s&*](\w+)\s*\(", text))
        self.assertIn("yld_Yld", names)
        self.assertIn("openYld", names)
        return names

    def defined_names(self):
        """Every class that an installed header defines or declares."""
        names = set()
        for header in glob.glob(os.path.join(self.headers, "**", "*.h"), recursive=True):
            with open(header) as stream:
                text = re.sub(r"//.*", "", stream.read())
            names.update(re.findall(r"(?:class|struct|enum)\s+(?:YLD_API\s+)?(\w+)(?:\s+final)?\s*[:{]", text))
        return names

    def test_installed_tool_finds_its_library(self):
        tool = os.path.join(self.prefix, "bin", "yld")
        if not os.path.exists(tool):
            self.skipTest("the build leaves the tool out")
        environment = {k: v for k, v in os.environ.items() if k != "LD_LIBRARY_PATH"}
        self.assertIn("import", self.succeed(tool, "--help", env=environment))

    def test_every_public_header_compiles_alone(self):
        headers = sorted(glob.glob(os.path.join(self.headers, "yld*.h")))
        self.assertGreater(len(headers), 25)
        for header in headers:
            with self.subTest(os.path.basename(header)):
                self.succeed(CXX, "-std=c++20", "-fsyntax-only", "-Wall", "-Wextra", "-Werror", "-I", self.headers,
                             "-x", "c++", "-include", header, os.devnull)

    def test_nothing_installed_names_the_build(self):
        for folder, _, files in os.walk(self.prefix):
            for name in files:
                if name.endswith((".cmake", ".pc", ".h")):
                    with open(os.path.join(folder, name)) as stream:
                        self.assertNotIn(BUILD, stream.read(), name)


if __name__ == "__main__":
    unittest.main(verbosity=1)
