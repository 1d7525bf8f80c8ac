#!/usr/bin/env python3
"""Each check passes on a small sound tree and fails when one thing is wrong in it.

usage: checks_test.py TOOLS_FOLDER
"""
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

TOOLS = pathlib.Path(sys.argv[1]).resolve()

SOUND_TREE = {
    "inc/MyDB.h": '#include "MyDbExport.h"\n#include "Shown.h"\n',
    "inc/MyDbExport.h": "#define MYDB_EXPORT\n",
    "inc/Shown.h": '#include "MyDbExport.h"\n#include "text/Text.h"\nclass MYDB_EXPORT Shown\n{\n};\n',
    "support/platform/Clock.h": "#ifdef _WIN32\n#include <windows.h>\n#endif\n",
    "support/text/Text.h": '#include "MyDbExport.h"\n#include <string>\n',
    "source/sql/Clause.h": '#include "text/Text.h"\n',
    "source/client/Handle.cpp": '#include "Shown.h"\n#include "sql/Clause.h"\n#include <mysql.h>\n'
                                "// KEPT K-01: the count is of items.\n",
    "tests/unit/ClauseTest.cpp": "TEST(Clause, Kept_K01_CountsItems)\n",
    "docs/kept-behaviours.md": "## Connection and queries\n| number | a | b | c |\n|---|---|---|---|\n"
                               "| K-01 | what | why | instead |\n",
}


class ChecksTest(unittest.TestCase):
    def setUp(self):
        self.root = pathlib.Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.root)
        for path, text in SOUND_TREE.items():
            self.write(path, text)
        self.write("tools/layers.txt", (TOOLS / "layers.txt").read_text(encoding="utf-8"))

    def write(self, path, text):
        target = self.root / path
        target.parent.mkdir(parents=True, exist_ok=True)
        target.write_text(text, encoding="utf-8")

    def append(self, path, text):
        self.write(path, SOUND_TREE.get(path, "") + text)

    def run_check(self, check, *arguments):
        return subprocess.run([sys.executable, str(TOOLS / check), *arguments, str(self.root)],
                              capture_output=True, text=True, check=False)

    def passes(self, check):
        result = self.run_check(check)
        self.assertEqual(0, result.returncode, result.stdout + result.stderr)

    def fails(self, check, expected):
        result = self.run_check(check)
        self.assertEqual(1, result.returncode, result.stdout + result.stderr)
        self.assertIn(expected, result.stdout)

    def test_a_sound_tree_passes(self):
        for check in ("check_layers", "check_kept", "check_files", "check_words"):
            with self.subTest(check):
                self.passes(check)

    # check_layers
    def test_an_include_that_goes_up_fails(self):
        self.append("source/sql/Clause.h", '#include "client/Handle.h"\n')
        self.write("source/client/Handle.h", "")
        self.fails("check_layers", "up from source/sql to source/client")

    def test_support_that_includes_a_database_class_fails(self):
        self.append("support/text/Text.h", '#include "Shown.h"\n')
        self.fails("check_layers", "up from support/text to inc")

    def test_an_internal_include_without_its_folder_fails(self):
        self.append("source/client/Handle.cpp", '#include "Owner.h"\n')
        self.write("source/client/Owner.h", "")
        self.fails("check_layers", "without its folder")

    def test_the_client_header_in_a_support_folder_fails(self):
        self.append("support/text/Text.h", "#include <mysql.h>\n")
        self.fails("check_layers", "includes <mysql.h>")

    def test_an_operating_system_header_outside_the_platform_folder_fails(self):
        self.append("source/sql/Clause.h", "#include <sys/stat.h>\n")
        self.fails("check_layers", "includes <sys/stat.h>")

    def test_a_platform_condition_outside_the_platform_folder_fails(self):
        self.append("source/sql/Clause.h", "#if defined(_WIN32)\n#endif\n")
        self.fails("check_layers", "asks for _WIN32")

    def test_an_include_that_is_not_there_fails(self):
        self.append("source/sql/Clause.h", '#include "sql/Gone.h"\n')
        self.fails("check_layers", "which is not there")

    def test_a_file_outside_all_layers_fails(self):
        self.write("support/misc/Other.h", "")
        self.fails("check_layers", "is in no layer")

    def test_a_public_header_that_the_header_for_hosts_forgets_fails(self):
        self.write("inc/Forgotten.h", "")
        self.fails("check_layers", "does not include Forgotten.h")

    # check_kept
    def test_a_tag_without_row_and_test_fails(self):
        self.append("source/sql/Clause.h", "// KEPT K-02: something else.\n")
        self.fails("check_kept", "K-02 has no row")
        self.fails("check_kept", "K-02 has no test")

    def test_a_row_without_tag_fails(self):
        self.append("docs/kept-behaviours.md", "| K-03 | what | why | instead |\n")
        self.fails("check_kept", "K-03 has no tag")

    def test_a_test_without_tag_fails(self):
        self.append("tests/unit/ClauseTest.cpp", "TEST(Clause, Kept_K04_DoesThat)\n")
        self.fails("check_kept", "K-04 has no tag")

    def test_a_row_with_an_empty_cell_fails(self):
        self.write("docs/kept-behaviours.md", "## Connection and queries\n| K-01 | what | | instead |\n")
        self.fails("check_kept", "K-01 needs what happens")

    def test_a_row_under_the_wrong_section_fails(self):
        self.write("docs/kept-behaviours.md", "## Date and time\n| K-01 | what | why | instead |\n")
        self.fails("check_kept", "does not belong under 'Date and time'")

    def test_a_tag_without_a_sentence_fails(self):
        self.write("source/sql/Clause.h", "// KEPT K-01\n")
        self.fails("check_kept", "needs a sentence")

    # check_files
    def test_a_long_source_fails(self):
        self.append("source/sql/Clause.h", "// line\n" * 550)
        self.fails("check_files", "551 lines")

    def test_a_public_header_may_be_longer(self):
        self.append("inc/Shown.h", "// line\n" * 700)
        self.passes("check_files")
        self.append("inc/Shown.h", "// line\n" * 800)
        self.fails("check_files", "800 at most")

    def test_a_source_that_is_not_ascii_fails(self):
        self.append("source/sql/Clause.h", "// \u00fc\n")
        self.fails("check_files", "source/sql/Clause.h:2: not ASCII")

    def test_a_blank_at_the_end_of_a_line_fails(self):
        self.append("source/sql/Clause.h", "int x; \n")
        self.fails("check_files", "blanks at the end")

    # check_words
    def test_words_that_lead_nowhere_fail(self):
        for words in ("as the specifications say", "see chapter 1.2", "for issue 12", "in /home/somebody/x",
                      "TODO later", "https://unknown.example.net/x"):
            with self.subTest(words):
                self.append("source/sql/Clause.h", f"// {words}\n")
                self.fails("check_words", "source/sql/Clause.h:2")

    def test_a_build_folder_is_not_looked_at(self):
        self.write("build/dev/notes.md", "see chapter 1.2\n")
        self.passes("check_words")

    # check_exports
    def check_exports(self, symbols, listed="Shown\n"):
        self.write("tools/exports.txt", listed)
        nm = self.root / "nm"
        nm.write_text("#!/bin/sh\ncat <<'END'\n" + "".join(f"0000000000001000 {s}\n" for s in symbols) + "END\n")
        nm.chmod(0o755)
        return self.run_check("check_exports", "--nm", str(nm), "library")

    def test_the_listed_names_pass(self):
        result = self.check_exports(["T Shown::Get(int) const", "V typeinfo name for Shown", "V vtable for Shown"])
        self.assertEqual(0, result.returncode, result.stdout + result.stderr)

    def test_instances_of_member_templates_belong_to_their_class(self):
        result = self.check_exports(["T Shown::Get()", "W void Shown::Put<std::map<int, int> >(std::map<int, int>)",
                                     "T Shown::operator<(Shown const&) const", "T Shown::operator long() const"])
        self.assertEqual(0, result.returncode, result.stdout + result.stderr)

    def test_instances_of_function_templates_fail(self):
        result = self.check_exports(["T Shown::Get()", "W int Count<Shown>(Shown)"])
        self.assertIn("not in the list: int Count<Shown>", result.stdout)

    def test_a_listed_abstract_class_need_not_be_visible(self):
        self.append("inc/Shown.h", "class MYDB_EXPORT Sink\n{\n};\n")
        result = self.check_exports(["T Shown::Get()"], "Shown\nabstract Sink\n")
        self.assertEqual(0, result.returncode, result.stdout + result.stderr)

    def test_a_visible_name_that_is_not_listed_fails(self):
        result = self.check_exports(["T Shown::Get()", "T sql::Quote(int)", "W std::vector<Shown>::size() const"])
        self.assertEqual(1, result.returncode)
        self.assertIn("not in the list: sql::Quote", result.stdout)
        self.assertIn("not in the list: std::vector<Shown>", result.stdout)

    def test_a_listed_name_that_is_not_visible_fails(self):
        result = self.check_exports(["T Shown::Get()"], "Shown\nGone\n")
        self.assertEqual(1, result.returncode)
        self.assertIn("not visible: Gone", result.stdout)

    def test_an_exported_declaration_that_is_not_listed_fails(self):
        self.append("inc/Shown.h", "MYDB_EXPORT int Count();\n")
        result = self.check_exports(["T Shown::Get()"])
        self.assertEqual(1, result.returncode)
        self.assertIn("declared in inc/Shown.h, but not in the list: Count", result.stdout)

    def check_dll(self, names):
        self.write("tools/exports.txt", "Shown\n")
        objdump = self.root / "objdump"
        table = "".join(f"\t[{number:4}] {name}\n" for number, name in enumerate(names))
        objdump.write_text(f"#!/bin/sh\ncat <<'END'\nNumber\n\n[Ordinal/Name Pointer] Table\n{table}\nThe rest\nEND\n")
        objdump.chmod(0o755)
        return self.run_check("check_exports", "--dll", str(objdump), "c++filt", "library")

    def test_the_listed_names_of_a_dll_pass(self):
        result = self.check_dll(["_ZN5Shown3GetEv", "_ZTI5Shown", "_ZTISt9bad_alloc"])
        self.assertEqual(0, result.returncode, result.stdout + result.stderr)

    def compare_exports(self, symbols, names):
        self.check_exports(symbols)
        self.check_dll(names)
        return subprocess.run([sys.executable, str(TOOLS / "check_exports"), "--nm", str(self.root / "nm"), "--dll",
                               str(self.root / "objdump"), "c++filt", "--same-as", "dll", "library"],
                              capture_output=True, text=True, check=False)

    def test_the_same_members_in_both_libraries_pass(self):
        result = self.compare_exports(["T Shown::Get(unsigned long) const", "W Shown::Twice()", "V vtable for Shown",
                                       "T Shown::Inner::operator()(int) const"], ["_ZNK5Shown3GetEy", "_ZTV5Shown"])
        self.assertEqual(0, result.returncode, result.stdout + result.stderr)

    def test_a_member_that_one_library_lacks_fails(self):
        result = self.compare_exports(["T Shown::Get()", "T Shown::Set(int)"], ["_ZN5Shown3GetEv", "_ZN5Shown3PutEv"])
        self.assertEqual(1, result.returncode)
        self.assertIn("not in the DLL: Shown::Set", result.stdout)
        self.assertIn("not in the shared library: Shown::Put", result.stdout)

    def test_a_name_of_a_dll_that_is_not_listed_fails(self):
        self.assertIn("not in the list: mysql_init", self.check_dll(["_ZN5Shown3GetEv", "mysql_init"]).stdout)

    def test_a_dll_without_names_fails(self):
        self.assertIn("not visible: Shown", self.check_dll([]).stdout)

    # count_results
    def count(self, cases, ctest_status="run", other=""):
        self.write("results/dev/ctest.xml", "<testsuite><testcase name='unit_x' status='%s'/></testsuite>" % ctest_status)
        if cases is not None:
            self.write("results/dev/gtest/unit_x.xml", f"<testsuites><testsuite>{cases}</testsuite></testsuites>")
        self.write("results/other.txt", other)
        result = subprocess.run([sys.executable, str(TOOLS / "count_results"), str(self.root / "results")],
                                capture_output=True, text=True, check=False)
        return result.returncode, result.stdout.splitlines()[-1], result.stdout

    GOOD = "<testcase classname='A' name='One' status='run'/><testcase classname='A' name='Two' status='run'/>"

    def test_cases_and_others_are_added_up(self):
        self.assertEqual((0, "3 passed, 0 failed"), self.count(self.GOOD, other="passed FuzzX\n")[:2])

    def test_a_failed_case_counts_once(self):
        bad = "<testcase classname='A' name='Three' status='run'><failure message='x'/></testcase>"
        self.assertEqual((1, "2 passed, 1 failed"), self.count(self.GOOD + bad, "fail")[:2])

    def test_a_program_that_crashes_counts_as_failed(self):
        self.assertEqual((1, "0 passed, 1 failed"), self.count(None, "fail")[:2])

    def test_a_program_that_ends_badly_after_its_cases_counts_as_failed(self):
        self.assertEqual((1, "2 passed, 1 failed"), self.count(self.GOOD, "fail")[:2])

    def test_a_program_that_was_not_built_counts_as_failed(self):
        self.assertEqual((1, "0 passed, 1 failed"), self.count(None, "notrun")[:2])

    def test_a_skip_without_a_reason_counts_as_failed(self):
        skip = "<testcase classname='A' name='Three' status='run'><skipped message='X.cpp:5&#x0A;'/></testcase>"
        self.assertEqual((1, "2 passed, 1 failed"), self.count(self.GOOD + skip)[:2])

    def test_a_skip_with_a_reason_is_shown(self):
        skip = "<testcase classname='A' name='Three' status='run'><skipped message='X.cpp:5&#x0A;no server'/></testcase>"
        code, last, output = self.count(self.GOOD + skip)
        self.assertEqual((0, "2 passed, 0 failed"), (code, last))
        self.assertIn("skipped dev: A.Three: no server", output)

    def test_a_disabled_case_counts_as_failed(self):
        disabled = "<testcase classname='A' name='DISABLED_Three' status='notrun' result='suppressed'/>"
        self.assertEqual((1, "2 passed, 1 failed"), self.count(self.GOOD + disabled)[:2])

    def test_a_run_without_any_test_fails(self):
        self.assertEqual((1, "0 passed, 0 failed"), self.count("")[:2])

    def counted(self, ctest, files=()):
        self.write("results/dev/ctest.xml", f"<testsuite>{ctest}</testsuite>")
        for name in files:
            self.write(f"results/dev/gtest/{name}.xml", f"<testsuites><testsuite>{self.GOOD}</testsuite></testsuites>")
        return subprocess.run([sys.executable, str(TOOLS / "count_results"), str(self.root / "results")],
                              capture_output=True, text=True, check=False).stdout.splitlines()

    def test_a_ctest_without_tests_counts_as_failed(self):
        self.write("results/other.txt", "passed dev: builds without a warning\n")
        self.assertEqual(["failed  dev: no test was run", "1 passed, 1 failed"], self.counted(""))

    def test_a_program_without_its_results_counts_as_failed(self):
        test = "<testcase name='unit_x' status='run'><system-out>[==========] 9 tests ran.</system-out></testcase>"
        self.assertEqual(["failed  dev: unit_x left no results", "0 passed, 1 failed"], self.counted(test))

    def test_results_without_their_test_count_as_failed(self):
        test = "<testcase name='unit_x' status='run'/>"
        self.assertEqual(["failed  dev: unit_y.xml belongs to no test", "2 passed, 1 failed"],
                         self.counted(test, ["unit_x", "unit_y"]))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
