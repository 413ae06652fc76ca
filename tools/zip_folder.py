#!/usr/bin/env python3
"""zip_folder.py FOLDER ARCHIVE SECONDS - packs a folder so that the same files always give the same archive.

SECONDS since 1970 is the time that every file in it gets.
"""

import sys
import time
import zipfile
from pathlib import Path

USUAL_FILE = 0o100644 << 16   # for those who unpack it elsewhere


def main():
    if len(sys.argv) != 4:
        sys.exit(__doc__)
    folder, archive, when = Path(sys.argv[1]), Path(sys.argv[2]), time.gmtime(int(sys.argv[3]))[:6]
    with zipfile.ZipFile(archive, "w") as packed:
        for file in sorted(folder.rglob("*")):
            if not file.is_file():
                continue
            entry = zipfile.ZipInfo(file.relative_to(folder.parent).as_posix(), when)
            entry.compress_type, entry.external_attr, entry.create_system = zipfile.ZIP_DEFLATED, USUAL_FILE, 3
            packed.writestr(entry, file.read_bytes(), compresslevel=9)


if __name__ == "__main__":
    main()
