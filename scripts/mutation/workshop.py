"""A copy of the library's sources and objects in which one mutant at a time is built and tested."""
import json
import os
import pathlib
import re
import shutil
import signal
import subprocess

CONFIGURE = ["cmake", "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Debug", "-DCMAKE_CXX_COMPILER=clang++-14",
             "-DCMAKE_CXX_FLAGS_DEBUG=-O0 -w -D_GLIBCXX_ASSERTIONS", "-DCMAKE_CXX_COMPILER_LAUNCHER=",
             "-DCMAKE_SHARED_LINKER_FLAGS=-fuse-ld=gold", "-DVELK_BUILD_TESTS=OFF", "-DVELK_BUILD_TOOLS=OFF",
             "-DVELK_INSTALL=OFF"]
MEMORY = 6 << 20  # KiB


def output(command, **options):
    return subprocess.run(command, check=True, text=True, stdout=subprocess.PIPE, **options).stdout


class Library:
    """The unchanged library, not optimised: the objects and the commands that make them."""

    def __init__(self, source, build):
        self.source, self.build = source, build
        subprocess.run(CONFIGURE + ["-S", source, "-B", build], check=True, stdout=subprocess.DEVNULL)
        subprocess.run(["ninja", "-C", build], check=True, stdout=subprocess.DEVNULL)
        lines = output(["ninja", "-C", build, "-t", "commands"]).splitlines()
        self.compile = {}
        for line in lines:
            if " -c " in line:
                self.compile[re.search(r" -o (\S+\.o) ", line)[1]] = line
        self.link = [line for line in lines if " -shared " in line]
        self.objects_of = self.read_dependencies()
        self.make_precompiled_header()

    def read_dependencies(self):
        objects = {}
        for block in output(["ninja", "-C", self.build, "-t", "deps"]).split("\n\n"):
            name, _, rest = block.partition(":")
            for path in re.findall(r"^ +(\S+)$", rest, re.MULTILINE):
                if path.startswith((self.source + "/src/", self.source + "/core/")):
                    objects.setdefault(os.path.relpath(path, self.source), []).append(name)
        return objects

    def make_precompiled_header(self):
        """The standard headers once: they are most of what compiling costs."""
        headers = set()
        for path in list(pathlib.Path(self.source, "src").rglob("*.[ch]pp")):
            headers |= set(re.findall(r"^#include <([a-z_]+)>", path.read_text(), re.MULTILINE))
        header = pathlib.Path(self.build, "standard.hpp")
        header.write_text("".join(f"#include <{name}>\n" for name in sorted(headers)))
        flags = "-O0 -w -D_GLIBCXX_ASSERTIONS -fPIC -fvisibility=hidden -fvisibility-inlines-hidden -std=c++20".split()
        subprocess.run(["clang++-14", *flags, "-x", "c++-header", str(header), "-o", str(header) + ".pch"], check=True)
        self.precompiled = str(header) + ".pch"


class Workshop:
    def __init__(self, library, test_build, directory):
        self.library, self.test_build, self.directory = library, test_build, directory
        self.source, self.build = directory + "/source", directory + "/build"
        self.scratch, self.programs = directory + "/scratch", directory + "/programs"
        shutil.rmtree(directory, ignore_errors=True)
        for part in ("src", "core", "include"):
            shutil.copytree(f"{library.source}/{part}", f"{self.source}/{part}")
        shutil.copytree(library.build, self.build, symlinks=True)
        # A test looks up the installation's data beside the library.
        shutil.rmtree(f"{self.build}/share", ignore_errors=True)
        os.symlink(f"{test_build}/share", f"{self.build}/share")
        os.makedirs(self.scratch)
        os.makedirs(self.programs)
        self.commands = [line for line in output(["ninja", "-C", test_build, "-t", "commands"]).splitlines()]

    def translated(self, command):
        # The build may lie inside the sources: the longer path is tried first.
        places = {self.library.build + "/": self.build + "/", self.library.source + "/": self.source + "/"}
        return re.sub("|".join(map(re.escape, places)), lambda found: places[found[0]], command)

    def run(self, command, directory):
        return subprocess.run(["/bin/sh", "-c", command], cwd=directory, stdout=subprocess.DEVNULL,
                              stderr=subprocess.DEVNULL).returncode == 0

    def build_mutant(self, path, text):
        """Whether it compiles. Afterwards libraries and programs hold the mutant."""
        pathlib.Path(self.source, path).write_text(text)
        objects = self.library.objects_of.get(path, [])
        for name in objects:
            command = self.translated(self.library.compile[name])
            command = command.replace(" -c ", f" -include-pch {self.library.precompiled} -c ", 1)
            if path.startswith("core/") or not self.run(command, self.build):
                if not self.run(self.translated(self.library.compile[name]), self.build):
                    return False
        for command in self.library.link:
            if any(name in command for name in objects) and not self.run(self.translated(command), self.build):
                return False
        return self.link_programs(path, objects)

    def link_programs(self, path, objects):
        """The test programs that hold a source of the library themselves, or the test of the header that is changed."""
        changed = {re.sub(r"^(\w+)/CMakeFiles/\w+\.dir/(.*)$", r"/__/__/\1/\2", name): f"{self.build}/{name}"
                   for name in objects}
        if path.endswith(".hpp"):
            test = f"/{pathlib.Path(path).stem}_test.cpp"
            changed[test + ".o"] = f"{self.programs}{test}.o"
            if not all(self.compile_test(command, test) for command in self.commands if command.endswith(test)):
                return False
        for command in self.commands:
            program = re.search(r" -o bin/(\w+) ", command)
            held = [found for found in re.findall(r" (\S+?\.dir(/\S+))", command) if found[1] in changed]
            if program and held:
                command = command.split(" && cd ")[0].replace(program[0], f" -o {self.programs}/{program[1]} ")
                for name, place in held:  # in front: of an inline function that others hold too, this one is taken
                    command = command.replace(f" {name} ", " ").replace("g++ ", f"g++ {changed[place]} ", 1)
                if not self.run(command, self.test_build):
                    return False
        return True

    def compile_test(self, command, test):
        command = re.sub(rf"-I{re.escape(self.library.source)}/(src|core|include)\b", rf"-I{self.source}/\1", command)
        command = re.sub(r" -MD -MT \S+ -MF \S+ -o \S+ ", f" -O0 -g0 -w -o {self.programs}{test}.o ", command)
        return self.run(command.removeprefix("ccache "), self.test_build)

    def restore(self, path):
        shutil.copyfile(f"{self.library.source}/{path}", f"{self.source}/{path}")
        objects = self.library.objects_of.get(path, [])
        for name in objects:
            shutil.copyfile(f"{self.library.build}/{name}", f"{self.build}/{name}")
        for command in self.library.link:
            if any(name in command for name in objects):
                library = re.search(r" -o (\S+)", command)[1]
                shutil.copyfile(f"{self.library.build}/{library}", f"{self.build}/{library}")
        for name in os.listdir(self.programs):
            os.unlink(f"{self.programs}/{name}")

    def test(self, program, tests, seconds, report=None):
        """"passed", "failed" or "timeout" of some tests of a program against the library in this workshop."""
        own = f"{self.programs}/{program}"
        limits = f"ulimit -t {seconds} -v {MEMORY} -c 0; exec \"$@\""
        command = ["/bin/sh", "-c", limits, program, own if os.path.exists(own) else f"{self.test_build}/bin/{program}", "--gtest_fail_fast",
                   "--gtest_filter=" + ":".join(tests)]
        if report:
            command.append("--gtest_output=json:" + report)
        environment = dict(os.environ, LD_LIBRARY_PATH=self.build + "/lib", TMPDIR=self.scratch,
                           VELK_ORACLE_DOCUMENTS="2000", VELK_AMESP_INP_RANDOM_EDITS="5000")

        process = subprocess.Popen(command, cwd=self.scratch, env=environment, stdin=subprocess.DEVNULL,
                                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, start_new_session=True)
        try:
            status = process.wait(timeout=10 * seconds)
        except subprocess.TimeoutExpired:
            os.killpg(process.pid, signal.SIGKILL)
            process.wait()
            status = -signal.SIGXCPU
        if status in (-signal.SIGXCPU, -signal.SIGKILL):
            return "timeout"
        return "passed" if status == 0 else "failed"

    def clean(self):
        shutil.rmtree(self.scratch, ignore_errors=True)
        os.makedirs(self.scratch)


def times_of(report):
    """Seconds that each test of a report took."""
    with open(report, encoding="utf-8") as file:
        suites = json.load(file)["testsuites"]
    return {f"{suite['name']}.{test['name']}": float(test["time"].rstrip("s"))
            for suite in suites for test in suite["testsuite"]}
