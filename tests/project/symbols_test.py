#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Reads the symbol table of the four tools' library.

What the library leaves undefined is the contract's operations and the standard library, and nothing
else: so it can be linked with any data-access library that defines the contract. And the contract's
operations are indeed left undefined: the library brings no definition of its own.

Usage: symbols_test.py NM CXXFILT LIBRARY     checks an archive or a shared object
       symbols_test.py --self-test            checks this script on made-up tables
"""

import re
import subprocess
import sys
import unittest

CONTRACT_CLASS = (r"velto::Orv(Base|Provider|Consumer|FileIO|FileProvider|FileConsumer"
                  r"|LocationModel|Variant|Version)\b")
CONTRACT = re.compile(
    rf"({CONTRACT_CLASS}::"
    rf"|(typeinfo|typeinfo name|vtable|VTT) for {CONTRACT_CLASS}$"
    r"|velto::OrvUtilities::"
    r"|velto::getData(Provider|Consumer)\()")

# Operations that the tools cannot do without.
NEEDED = [
    "velto::getDataProvider(",
    "velto::OrvBase::setMeshId(int)",
    "velto::OrvBase::getMeshSize(",
    "velto::OrvBase::getErrors(bool, bool) const",
    "velto::OrvBase::getZoneSizeInfo(",
    "velto::OrvBase::getCellFaceZoneIds(",
    "velto::OrvVersion::getMajor()",
    "velto::OrvLocationModel::createFaceUse(int, int, int, int&)",
    "velto::OrvLocationModel::findFaceUse(int, ",
    "velto::OrvVariant::asStringVector() const",
    "velto::OrvUtilities::splitString(",
    "velto::getDataConsumer(",
    "velto::OrvBase::setZoneIds(",
    "velto::OrvConsumer::setLocationModel(",
]

# Mangled names of the standard library, and of the language's own support.
STANDARD_CXX = re.compile(
    r"_ZN?[KVRO]*(St|S[absiod])"            # std:: and its abbreviations
    r"|_ZN[KVRO]*9__gnu_cxx"
    r"|_ZT[ISTVC]+(N?K?(St|S[absiod])|N10__cxxabiv1|P?K?[a-z]$)"
    r"|_Z(n[wa]|d[la])"                     # new and delete
    r"|__cxa_|__dynamic_cast$|__gxx_personality_|_Unwind_")

STANDARD_C = re.compile(
    r"mem\w+|str\w+|wmem\w+|wcs\w+|f(open|close|read|write|flush|puts|putc|printf)(64)?|is[a-z]+"
    r"|to(lower|upper)|v?s?n?printf|puts|putchar|malloc|calloc|realloc|free|abort|exit|atexit"
    r"|time|tzset|clock|clock_gettime|localtime(_r)?|gmtime(_r)?|mktime"
    r"|f?(abs|min|max|mod)f?|sqrt|floor|ceil|l?l?round"
    r"|__\w+_chk|__stack_chk_fail|__isoc\d+_\w+|__errno_location|__dso_handle|__tls_get_addr"
    r"|_GLOBAL_OFFSET_TABLE_|__gmon_start__|_ITM_\w+|__libc_single_threaded|__assert_fail"
    r"|pthread_\w+")

# What a sanitizer or the coverage count brings in.
INSTRUMENTATION = re.compile(r"__(asan|ubsan|lsan|tsan|sanitizer|gcov|llvm)_")


def read_symbols(text):
    """Name to type letter, from `nm -P`: of a name that a member defines, its definition."""
    symbols = {}
    for line in text.splitlines():
        fields = line.split()
        if len(fields) < 2 or len(fields[1]) != 1:
            continue
        name, letter = fields[0].split("@")[0], fields[1]
        if name not in symbols or symbols[name] in "Uwv":
            symbols[name] = letter
    return symbols


def judge(symbols, plain):
    """What is wrong with a symbol table; `plain` gives the readable name of a symbol."""
    found = []
    undefined = [name for name, letter in symbols.items() if letter in "Uwv"]
    for name in undefined:
        if not (CONTRACT.match(plain[name]) or STANDARD_CXX.match(name)
                or STANDARD_C.fullmatch(name) or INSTRUMENTATION.match(name)):
            found.append(f"needs {plain[name]}, neither of the contract nor standard")
    # Inline members come as weak symbols (W, V, u) and are no definitions of a library's own.
    for name, letter in symbols.items():
        if letter in "TDBRS" and CONTRACT.match(plain[name]):
            found.append(f"defines {plain[name]}, an operation of the contract")
    for needed in NEEDED:
        if not any(plain[name].startswith(needed) for name in undefined):
            found.append(f"does not leave {needed} to the data-access library")
    return sorted(found)


class Symbols(unittest.TestCase):
    """Starts from a sound table, in which the names are readable already, and adds to it."""

    SOUND = {
        "velto::getDataProvider(std::string const&)": "U",
        "velto::OrvBase::setMeshId(int)": "U",
        "velto::OrvBase::getMeshSize(velto::OrvMeshSizeType, unsigned long&) const": "U",
        "velto::OrvBase::getErrors(bool, bool) const": "U",
        "velto::OrvBase::getZoneSizeInfo(int, velto::OrvZoneSizeType, unsigned long&) const": "U",
        "velto::OrvBase::getCellFaceZoneIds(int, std::list<int>&)": "U",
        "velto::OrvVersion::getMajor()": "U",
        "velto::OrvLocationModel::createFaceUse(int, int, int, int&)": "U",
        "velto::OrvLocationModel::findFaceUse(int, std::string const&, int&) const": "U",
        "velto::OrvVariant::asStringVector() const": "U",
        "velto::OrvUtilities::splitString(std::string const&, bool, char)": "U",
        "velto::getDataConsumer(velto::OrvFileFormatType)": "U",
        "velto::OrvBase::setZoneIds(velto::OrvZoneCategory, std::vector<int> const&)": "U",
        "velto::OrvConsumer::setLocationModel(velto::OrvLocationModel const*) const": "U",
        "velto::OrvChecker::checkCase(std::string const&)": "T",
        "velto::OrvFileIO::~OrvFileIO()": "W",
        "typeinfo for velto::OrvBase": "U",
        "_ZSt4cout": "U",
        "_ZNSolsEi": "U",
        "_ZTVN10__cxxabiv117__class_type_infoE": "U",
        "_ZdlPvm": "U",
        "fopen": "U",
        "memcpy": "U",
        "__asan_init": "U",
    }

    def complaints(self, added=None, without=None):
        symbols = {**self.SOUND, **(added or {})}
        symbols.pop(without, None)
        return judge(symbols, {name: name for name in symbols})

    def test_a_sound_table_passes(self):
        self.assertEqual(self.complaints(), [])

    def test_another_library_is_refused(self):
        self.assertEqual(self.complaints({"inflate": "U"}),
                         ["needs inflate, neither of the contract nor standard"])

    def test_the_embedded_library_is_refused(self):
        self.assertEqual(
            self.complaints({"velto::memory::Case::Case()": "U"}),
            ["needs velto::memory::Case::Case(), neither of the contract nor standard"])

    def test_a_definition_of_the_contract_is_refused(self):
        self.assertEqual(
            self.complaints({"velto::OrvVersion::getMinor()": "T"}),
            ["defines velto::OrvVersion::getMinor(), an operation of the contract"])

    def test_an_operation_that_is_not_left_undefined_is_missed(self):
        self.assertEqual(
            self.complaints(without="velto::OrvVersion::getMajor()"),
            ["does not leave velto::OrvVersion::getMajor() to the data-access library"])

    def test_what_another_member_defines_is_not_undefined(self):
        table = "f T 0 8\nlib.a[a.o]:\ng U\nh U\nlib.a[b.o]:\ng T 10 4\nf U\nh@GLIBC_2.2 U\n"
        self.assertEqual(read_symbols(table), {"f": "T", "g": "T", "h": "U"})


def main():
    if sys.argv[1:] == ["--self-test"]:
        unittest.main(argv=sys.argv[:1])
    if len(sys.argv) != 4:
        sys.exit(__doc__)
    nm, cxxfilt, library = sys.argv[1:]
    dynamic = [] if library.endswith(".a") else ["-D"]
    table = subprocess.run([nm, "-P", *dynamic, library], check=True, capture_output=True,
                           text=True).stdout
    symbols = read_symbols(table)
    names = subprocess.run([cxxfilt], input="\n".join(symbols), check=True, capture_output=True,
                           text=True).stdout.splitlines()
    found = judge(symbols, {symbol: re.sub(r"\[abi:\w+\]", "", name)
                            for symbol, name in zip(symbols, names)})
    for line in found:
        print(line)
    sys.exit(1 if found else 0)


if __name__ == "__main__":
    main()
