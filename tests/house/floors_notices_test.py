#!/usr/bin/env python3
"""A test that never complains proves nothing: floors_test.py on small trees, each with one thing out of order."""

import sys
import tempfile
import unittest
from pathlib import Path

sys.dont_write_bytecode = True
sys.path.insert(0, str(Path(__file__).resolve().parent))
import floors_test  # noqa: E402

CLEAN = {
    "cmake/floors.txt": "# lowest first\nplatform/base\nplatform/store\ninclude\nyld/impl/base\nyld/impl/model\n",
    "platform/base/lok_Mutex.h": "#include <mutex>\nclass lok_Mutex {};\n",
    "platform/store/fio_File.h": "#include \"platform/base/lok_Mutex.h\"\n"
                                 "class fio_File\n{\npublic:\n    int size();\n};\n",
    "platform/store/fio_File.cpp": "#include \"platform/store/fio_File.h\"\n\n#include <sqlite3.h>\n\n"
                                   "int fio_File::size() { return 0; }\n",
    "platform/store/fio_Part.cpp": "#include \"platform/store/fio_File.h\"\n\nvoid fio_File::part() {}\n",
    "platform/store/fio_Names.h": "int fio_anything();\n",
    "include/yld_Node.h": "class YLD_API yld_Node {};\n",
    "yld/impl/base/yld_Raise.h": "void yld_Raise(const char* text);\n",
    "yld/impl/model/yld_Node.cpp": "#include \"yld_Node.h\"\n\n#include \"platform/store/fio_File.h\"\n"
                                   "#include \"yld/impl/base/yld_Raise.h\"\n\nyld_Node::yld_Node() = default;\n",
    "tools/info.cpp": "#include \"yld_Node.h\"\n",
    "tests/store/fio_File_test.cpp": "#include \"platform/store/fio_File.h\"\n#include <sqlite3.h>\n",
    "build/generated/any.cpp": "#include <sqlite3.h>\n",
}


class FloorsNoticesTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name).resolve()
        self.kept = floors_test.WITHOUT_CLASS, floors_test.PARTS
        self.addCleanup(self.restore)
        floors_test.WITHOUT_CLASS = {"fio_Names.h"}
        floors_test.PARTS = {"fio_Part.cpp": "fio_File"}
        for path, text in CLEAN.items():
            self.write(path, text)

    def restore(self):
        floors_test.WITHOUT_CLASS, floors_test.PARTS = self.kept

    def write(self, path, text):
        (self.root / path).parent.mkdir(parents=True, exist_ok=True)
        (self.root / path).write_text(text)

    def list_floors(self, *folders):
        self.write("cmake/floors.txt", "".join(folder + "\n" for folder in folders))

    def assert_complaints(self, *expected):
        """Of all checks together, so that none complains of what another is for."""
        self.assertEqual(sorted(expected), sorted(floors_test.complaints(self.root)))

    def test_a_clean_tree_has_none(self):
        self.assert_complaints()

    def test_an_arrow_up(self):
        self.write("platform/base/lok_Mutex.h", "#include \"platform/store/fio_File.h\"\nclass lok_Mutex {};\n")
        self.assert_complaints("platform/base/lok_Mutex.h includes platform/store/fio_File.h, which lies above it")

    def test_an_arrow_up_between_rooms_and_to_a_public_header(self):
        self.write("yld/impl/model/yld_Mesh.h", "class yld_Mesh {};\n")
        self.write("yld/impl/base/yld_Raise.h",
                   "#include \"yld/impl/model/yld_Mesh.h\"\nvoid yld_Raise(const char* text);\n")
        self.write("platform/store/fio_Names.h", "#include \"yld_Node.h\"\nint fio_anything();\n")
        self.assert_complaints(
            "yld/impl/base/yld_Raise.h includes yld/impl/model/yld_Mesh.h, which lies above it",
            "platform/store/fio_Names.h includes include/yld_Node.h, which lies above it")

    def test_an_include_that_leads_nowhere(self):
        self.write("include/yld_Node.h", "#include \"yld_Lost.h\"\nclass YLD_API yld_Node {};\n")
        self.assert_complaints("include/yld_Node.h includes yld_Lost.h, which is not in the tree")

    def test_an_include_of_what_is_on_no_floor(self):
        self.write("tests/test_files.h", "")
        self.write("platform/store/fio_Names.h", "#include \"tests/test_files.h\"\nint fio_anything();\n")
        self.assert_complaints("platform/store/fio_Names.h includes tests/test_files.h, which is on no floor")

    def test_an_unlisted_folder(self):
        self.write("platform/mesh/msh_Mesh.h", "class msh_Mesh {};\n")
        self.write("module/cal/impl/calC_Scalar.cpp", "")
        self.assert_complaints(
            "platform/mesh/msh_Mesh.h lies in a folder that cmake/floors.txt does not list",
            "module/cal/impl/calC_Scalar.cpp lies in a folder that cmake/floors.txt does not list")

    def test_a_module_is_a_floor_like_any_other_once_it_is_listed(self):
        self.write("module/cal/impl/calC_Scalar.h", "#include \"platform/store/fio_File.h\"\nclass calC_Scalar {};\n")
        self.write("module/cal/impl/calC_Scalar.cpp", "#include \"module/cal/impl/calC_Scalar.h\"\n")
        self.list_floors("platform/base", "platform/store", "module/cal/impl", "include", "yld/impl/base",
                         "yld/impl/model")
        self.assert_complaints()
        self.list_floors("platform/base", "module/cal/impl", "platform/store", "include", "yld/impl/base",
                         "yld/impl/model")
        self.assert_complaints(
            "module/cal/impl/calC_Scalar.h includes platform/store/fio_File.h, which lies above it")

    def test_a_listed_folder_that_is_not_there(self):
        self.list_floors("platform/base", "platform/store", "module/cal/impl", "include", "yld/impl/base",
                         "yld/impl/model")
        self.assert_complaints("cmake/floors.txt lists module/cal/impl, which is not there")

    def test_a_scattered_prefix(self):
        self.write("platform/store/lok_Other.h", "class lok_Other {};\n")
        self.assert_complaints("the prefix lok_ lives in platform/base, platform/store")

    def test_a_nameless_header(self):
        self.write("platform/store/fio_File2.h", "class fio_Extent {};\nclass fio_File2;\n")
        self.assert_complaints("platform/store/fio_File2.h holds nothing named fio_File2")

    def test_a_source_without_a_header(self):
        self.write("platform/store/fio_Alone.cpp", "")
        self.assert_complaints("platform/store/fio_Alone.cpp has no header of its name")

    def test_members_in_the_source_of_another_class(self):
        self.write("platform/base/lok_Key.h", "class lok_Key {};\n")
        self.write("platform/base/lok_Key.cpp",
                   "lok_Key::lok_Key() = default;\nconst int& lok_Mutex::holders() const { return m_holders; }\n"
                   "template<> int lok_Mutex<int>::special() { return 1; }\n")
        self.assert_complaints("platform/base/lok_Key.cpp defines members of lok_Mutex, which has a header of its own")

    def test_exceptions_that_nothing_needs(self):
        floors_test.WITHOUT_CLASS = {"fio_Names.h", "fio_Gone.h", "lok_Mutex.h"}
        floors_test.PARTS = {"fio_Part.cpp": "fio_File", "fio_Lost.cpp": "fio_File"}
        self.assert_complaints(
            "the exception for fio_Gone.h is for a file that is not there",
            "the exception for fio_Lost.cpp is for a file that is not there",
            "the exception for lok_Mutex.h is not needed: it holds what it is named after")

    def test_a_client_that_looks_inside(self):
        self.write("tools/info.cpp", "#include \"yld/impl/base/yld_Raise.h\"\n")
        self.write("examples/one/main.cpp", "#include <platform/store/fio_File.h>\n")
        self.assert_complaints(
            "tools/info.cpp includes yld/impl/base/yld_Raise.h, which is not a public header",
            "examples/one/main.cpp includes platform/store/fio_File.h, which is not a public header")

    def test_a_side_door(self):
        self.write("yld/impl/base/yld_Raise.h", "#include <sqlite3.h>\nvoid yld_Raise(const char* text);\n")
        self.write("tools/info.cpp", "#include <exodusII.h>\n")
        self.write("examples/main.cpp", "#include <CLI/CLI.hpp>\n")
        self.assert_complaints("yld/impl/base/yld_Raise.h includes sqlite3.h", "tools/info.cpp includes exodusII.h",
                               "examples/main.cpp includes CLI/CLI.hpp")


if __name__ == "__main__":
    unittest.main(verbosity=1)
