#!/usr/bin/env python3
# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""hostile_files.py FOLDER FAMILY...: writes files into FOLDER that were made to break, stop or
fill up who reads them, most of them far smaller than what they unpack to; those of the families, or
all. `manifest.json` there lists them in their order, each with what the scanner makes of it: a
"draft", "nothing", or "either" where that is a matter of the time and memory at hand, or of the
versions of libraries."""
import json
import os
import pathlib
import sys

from hostile_documents import pdf_drawing_files, pdf_stream_files, pdf_structure_files
from hostile_pictures import (drawing_files, gif_files, jpeg_files, other_picture_files, png_files,
                              tiff_files, webp_files)

FAMILIES = {
    "png": png_files, "jpeg": jpeg_files, "gif": gif_files, "webp": webp_files, "tiff": tiff_files,
    "drawing": drawing_files, "other_picture": other_picture_files, "pdf_stream": pdf_stream_files,
    "pdf_structure": pdf_structure_files, "pdf_drawing": pdf_drawing_files}


def main():
    folder = pathlib.Path(sys.argv[1])
    folder.mkdir(parents=True, exist_ok=True)
    manifest = []
    for family in sys.argv[2:] or FAMILIES:
        for name, outcome, content in FAMILIES[family]():
            with open(folder / name, "wb") as file:
                if isinstance(content, int):
                    os.truncate(file.fileno(), content)
                else:
                    file.write(content)
            manifest.append({"name": name, "outcome": outcome})
    (folder / "manifest.json").write_text(json.dumps(manifest, indent=1))


if __name__ == "__main__":
    main()
