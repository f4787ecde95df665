#!/usr/bin/env python3
"""Installs the build into a folder of its own and looks at what stands there as a desktop does.

Usage: installed.py BUILD VERSION
"""
import os
import re
import struct
import subprocess
import sys
import tempfile
from pathlib import Path

ID = "com.quillmere.Sanovia"
ICON_SIZES = (16, 22, 24, 32, 48, 64, 128, 256, 512)
LANGUAGES = ("de", "es", "ru", "zh_CN")  # beside English
HELP_LANGUAGES = ("en", "ru", "de", "es", "zh-Hans")

failures = []


def expect(holds, message):
    if not holds:
        failures.append(message)


def output(*command):
    """What the command says on both streams; a failure of it is one of ours."""
    run = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
    expect(run.returncode == 0, f"{command[0]} ended with {run.returncode}:\n{run.stdout}")
    return run.stdout


def pixels(png):
    return struct.unpack(">II", png.read_bytes()[16:24])


def check_desktop(share, version):
    entry = share / "applications" / f"{ID}.desktop"
    output("desktop-file-validate", str(entry))
    text = entry.read_text()
    for key in ("Name", "GenericName", "Comment", "Keywords"):
        for language in LANGUAGES:
            expect(f"\n{key}[{language}]=" in text, f"no {key} in {language}")
    for line in ("Exec=sanovia", f"Icon={ID}"):
        expect(f"\n{line}\n" in text, f"no line {line}")

    metainfo = share / "metainfo" / f"{ID}.metainfo.xml"
    output("appstreamcli", "validate", "--no-net", "--no-color", str(metainfo))
    expect(f'<release version="{version}"' in metainfo.read_text(), "the metainfo has another version")

    icons = share / "icons" / "hicolor"
    for size in ICON_SIZES:
        png = icons / f"{size}x{size}" / "apps" / f"{ID}.png"
        expect(png.is_file() and pixels(png) == (size, size), f"no icon of {size} pixels")
    expect((icons / "scalable" / "apps" / f"{ID}.svg").is_file(), "no scalable icon")


def page_text(page):
    """The page in one line, without breaks inside words."""
    raw = subprocess.run(["gzip", "-dc", str(page)], check=True, stdout=subprocess.PIPE).stdout
    source = Path(os.environ["SANOVIA_SCRATCH"]) / page.stem
    source.write_bytes(raw)
    warnings = output("groff", "-t", "-man", "-ww", "-z", str(source))
    expect(warnings == "", f"man page: {warnings}")
    run = subprocess.run(["groff", "-t", "-man", "-Tascii", "-P-c", "-P-b", "-P-u", "-rLL=500n", "-rHY=0"], input=raw,
                         check=True, stdout=subprocess.PIPE)
    return re.sub(r"\s+", " ", run.stdout.decode("ascii"))


def check_manuals(prefix, version):
    manuals = prefix / "share" / "man" / "man1"
    window, tool = (page_text(manuals / f"{name}.1.gz") for name in ("sanovia", "sanovia-cli"))
    for page in (window, tool):
        expect(f"Sanovia {version}" in page, "a man page of another version")

    # What the tool says of itself is in its page, and the page promises no option beside.
    said = output(str(prefix / "bin" / "sanovia-cli"), "--help")
    entries = re.findall(r"^  (\S.*?)  +(\S.*)$", said, re.MULTILINE)
    expect(len(entries) >= 20, f"the help of sanovia-cli has only {len(entries)} entries")
    for name, meaning in entries:
        found = f"{name} {meaning.rstrip('.')}".lower() in tool.lower()
        expect(found, f"the man page of sanovia-cli lacks: {name}  {meaning}")
    promised, known = (set(re.findall(r"--[a-z]+", text)) for text in (tool, said))
    expect(promised == known, f"options of the man page {promised}, of the help {known}")
    check_completions(prefix / "share", said)


def check_completions(share, said):
    """Every option and command that the help of the tool tells is completed in every shell."""
    known = set(re.findall(r"--([a-z-]+)", said)) | set(re.findall(r"^  ([a-z]+) ", said, re.MULTILINE))
    columns = set(re.findall(r"^  ([a-z]+)  ", said[said.index("Columns, named"):], re.MULTILINE))
    for path in ("bash-completion/completions/sanovia-cli", "zsh/vendor-completions/_sanovia-cli",
                 "fish/vendor_completions.d/sanovia-cli.fish"):
        words = set(re.findall(r"[a-z]+(?:-[a-z]+)*", (share / path).read_text()))
        missing = known - columns - words - {"mode"}
        expect(not missing, f"{path} does not complete {missing}")


def main():
    build, version = sys.argv[1:]
    os.environ["LC_ALL"] = "C.UTF-8"
    with tempfile.TemporaryDirectory() as scratch:
        os.environ["SANOVIA_SCRATCH"] = scratch
        os.environ["XDG_DATA_HOME"] = scratch + "/data"
        prefix = Path(scratch) / "prefix"
        subprocess.run(["cmake", "--install", build, "--prefix", str(prefix)], check=True, stdout=subprocess.DEVNULL)
        expect(os.access(prefix / "bin" / "sanovia", os.X_OK), "no program")
        check_desktop(prefix / "share", version)
        check_manuals(prefix, version)
        for language in HELP_LANGUAGES:
            expect((prefix / "share/sanovia/help" / language / "main.html").is_file(), f"no help in {language}")
        expect(not (prefix / "share" / "doc").exists(), "Debian's documents outside of a Debian package")
    for failure in failures:
        print(failure, file=sys.stderr)
    sys.exit(1 if failures else 0)


main()
