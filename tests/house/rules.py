"""The rules of the house that a machine can check. Each rule looks at a source tree and yields what breaks it."""

import re
from pathlib import Path

# Who may include whom, by the beginning of the including file's path; the longest beginning counts. An entry
# that ends in "/" allows the headers directly in that folder, another one exactly that header.
WINDOWLESS = [f"platform/{name}.h" for name in ("errors", "text", "path", "files", "document", "console")]
SHELL_FOR_EDITOR = [f"shell/{name}.h"
                    for name in ("settings", "data_directory", "frmError", "frmSave", "environment", "editor_window",
                                 "wait_line")]
EDITOR_FOR_SHELL = ["editor/startup.h"]
CONTROLS = ["controls/", "controls/picturebox/", "controls/buttonlist/"]
MAY_INCLUDE = {
    "model/": ["model/", *WINDOWLESS],
    "tools/kvset/": ["tools/kvset/", "model/", *WINDOWLESS],
    "controls/": ["controls/", "platform/"],
    "controls/picturebox/": ["controls/picturebox/", "controls/", "platform/"],
    "controls/buttonlist/": ["controls/buttonlist/", "controls/", "platform/"],
    "kernel/": ["kernel/", "platform/"],
    "shell/": ["shell/", "kernel/", "model/", "platform/", *CONTROLS, *EDITOR_FOR_SHELL],
    "editor/": ["editor/", "model/", "platform/", *CONTROLS, *SHELL_FOR_EDITOR],
    "platform/": ["platform/"],
    "platform/headless/": ["platform/headless/", "platform/"],
    "platform/win32/": ["platform/win32/", "platform/", "res/resource.h"],
    "platform/win32/entry.cpp": ["platform/win32/", "platform/", "shell/mStichMain.h"],
}
# Tests and measurements may look at everything but Windows, and these at Windows as well.
SEES_WINDOWS = ("platform/win32/", "tests/window/", "tests/support/win32/", "benchmarks/window/")
SEES_SYSTEM = (*SEES_WINDOWS, "platform/headless/")
WINDOWS_HEADER = "platform/win32/windows.h"
LOOKS_EVERYWHERE = ("tests/", "benchmarks/")
CONTROL_IDS = "platform/win32/control_ids.h"

BINARY = {".bmp", ".jpg", ".png", ".ico", ".cur", ".kvs", ".bin"}
NOT_TEXT = {".git", "build", "__pycache__", "golden", "seeds", "pictures"}   # folders

INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]', re.MULTILINE)
CONTROL_MADE = re.compile(r'\b(\w+)\s*[({]\s*(?:\*?\w+\s*,\s*)?"\1"')
QUOTED = re.compile(r'"(\w+)"')
COMMENT = re.compile(r"//[^\n]*|/\*.*?\*/", re.DOTALL)
FOREIGN_WORDS = re.compile(r"(?<![A-Za-z])sp(?:ec|ecifications?)(?![A-Za-z])|\bParts?\s\d+\.\d|\bissues?\s#?\d",
                           re.IGNORECASE)
MACHINE_PATHS = re.compile(r"(?<![\w.$}/-])/(?:work|root|home|tmp|farm)/\w")
REGISTRY_HOSTS = re.compile(r"\b(?:deb|security|snapshot)\.debian\.[a-z]|\bpypi\.[a-z]|\bregistry\.[a-z]+\.[a-z]")


def files(root):
    """All files of the tree with their paths inside it; nothing that was built."""
    for path in sorted(root.rglob("*")):
        inside = path.relative_to(root)
        if path.is_file() and not ({".git", "build", "__pycache__"} & set(inside.parts)):
            yield inside.as_posix(), path


def texts(root):
    for name, path in files(root):
        if path.suffix.lower() not in BINARY and not (NOT_TEXT & set(Path(name).parts)):
            yield name, path.read_bytes()


def sources(root):
    for name, path in files(root):
        if path.suffix in (".cpp", ".h"):
            yield name, path.read_text(encoding="utf-8", errors="replace")


def _rule_for(name):
    beginnings = [beginning for beginning in MAY_INCLUDE if name.startswith(beginning)]
    return max(beginnings, key=len) if beginnings else None


def _allowed(header, entries):
    folder = header.rpartition("/")[0] + "/"
    return any(header == entry or folder == entry for entry in entries)


def include_arrows(root):
    """Includes against the arrows, and sources in a folder that has no arrows."""
    for name, text in sources(root):
        if name.startswith(LOOKS_EVERYWHERE) or name.startswith("res/"):
            continue
        room = _rule_for(name)
        if room is None:
            yield f"{name}: no rule says what this folder may include"
            continue
        for bracket, header in INCLUDE.findall(text):
            if bracket == '"' and not _allowed(header, MAY_INCLUDE[room]):
                yield f'{name}: "{header}"'


def windows_seen(root):
    """<windows.h> but in our one header; other headers of the system, or ours of Windows, where none may be."""
    for name, text in sources(root):
        for bracket, header in INCLUDE.findall(text):
            if bracket == "<" and header.lower() == "windows.h":
                wrong = name != WINDOWS_HEADER
            elif bracket == "<":
                in_product = not name.startswith(LOOKS_EVERYWHERE)
                wrong = header.endswith(".h") and in_product and not name.startswith(SEES_SYSTEM)
            else:
                wrong = header.startswith("platform/win32/") and not name.startswith(SEES_WINDOWS)
            if wrong:
                yield f"{name}: {header}"


def controls_without_id(root):
    """Controls (members made with their own name as text) that the list of control IDs does not name."""
    listed = root / CONTROL_IDS
    known = set(QUOTED.findall(COMMENT.sub("", listed.read_text(encoding="utf-8")))) if listed.exists() else set()
    for name, text in sources(root):
        if name.startswith(("editor/", "shell/", "controls/")):
            for control in sorted(set(CONTROL_MADE.findall(COMMENT.sub("", text))) - known):
                yield f"{name}: {control}"


def foreign_words(root):
    """Texts and file names that speak of a description or a task instead of the thing itself."""
    for name, _ in files(root):
        if FOREIGN_WORDS.search(name):
            yield f"the name of {name}"
    yield from _lines_with(root, FOREIGN_WORDS)


def machine_traces(root):
    """Folders of one machine, and hosts that packages come from."""
    yield from _lines_with(root, MACHINE_PATHS)
    yield from _lines_with(root, REGISTRY_HOSTS)


def _lines_with(root, pattern):
    for name, content in texts(root):
        for number, line in enumerate(content.decode("utf-8", errors="replace").splitlines(), start=1):
            if pattern.search(line):
                yield f"{name}:{number}: {line.strip()}"


def not_plain_text(root):
    """Text files that are not UTF-8, have a byte order mark, or end lines by anything but LF."""
    for name, content in texts(root):
        try:
            content.decode("utf-8")
        except UnicodeDecodeError as error:
            yield f"{name}: {error}"
        if content.startswith(b"\xef\xbb\xbf"):
            yield f"{name}: a byte order mark"
        if b"\r" in content:
            yield f"{name}: a carriage return"
        if content and not content.endswith(b"\n"):
            yield f"{name}: no line end at the end"
